#include "interchange/waypoint_commands.h"

#include <gtest/gtest.h>

#include "common/msg_id.h"
#include "interchange/text_import.h"
#include "interchange/waypoint_world.h"
#include "interchange/wpt_files.h"

namespace talpena {
namespace {

using test::FichierWpt;
using test::LigneWpt;
using test::Lines;
using test::WaypointWorld;

Lines Vide() { return {}; }

TEST(ImportGarmin, AddsARowForEachWaypointAndItsPoint) {
  WaypointWorld world;
  world.ImporteWpt(FichierWpt({LigneWpt("A", "17-APR-02 10:15:00"), LigneWpt("B", "b")}));
  EXPECT_EQ(
      world.Lignes(),
      (Lines{"1|50.50833|-2.25417|1|1|-|WGS84|deg +50.50833 -002.25417|1902/04/17|  100 A     ",
             "1|50.50833|-2.25417|1|1|-|WGS84|deg +50.50833 -002.25417||  100 B      b"}));
  EXPECT_TRUE(world.state.document.FichierModifie());
  EXPECT_EQ(world.vue.selection.size(), 2U);
  EXPECT_EQ(world.state.document.Montre().avis.rfind(
                "Import: 2 rows added, 0 dropped, 0 without a point", 0),
            0U);
  EXPECT_FALSE(world.vue.sablier);
}

TEST(ImportGarmin, RemarksTheCenturyWhereThereAreDates) {
  WaypointWorld world;
  world.ImporteWpt(FichierWpt({LigneWpt("A", "a")}));
  EXPECT_EQ(world.state.document.Montre().avis,
            "Import: 1 rows added, 0 dropped, 0 without a point");
  world.ImporteWpt(FichierWpt({LigneWpt("A", "17-APR-02 10:15:00")}));
  EXPECT_EQ(world.state.document.Montre().avis,
            "Import: 1 rows added, 0 dropped, 0 without a point. The dates of .wpt files are taken "
            "as 19xx: check the century.");
}

TEST(ImportGarmin, TellsLinesWithoutAPositionAndADatumLineWithoutNumbers) {
  WaypointWorld world;
  world.ImporteWpt(FichierWpt({LigneWpt("A", "a"), "W  a remark", "   another"}, "M  G"));
  EXPECT_EQ(world.Points()[1], "0 0") << "they enter all the same";
  EXPECT_EQ(world.dialogues.boxes.at(0).icon, Icon::Information);
  EXPECT_EQ(world.Boites(),
            Lines{"Rows to look at: 2; the first, line 13 of the file: no position where one "
                  "should stand.\nThe datum line of the file lacks numbers: check where the points "
                  "lie."});
  EXPECT_EQ(world.state.document.Montre().avis,
            "Import: 3 rows added, 0 dropped, 0 without a point. Rows to look at: 2; the first, "
            "line 13 of the file: no position where one should stand. The datum line of the file "
            "lacks numbers: check where the points lie.");
}

TEST(ImportGarmin, TellsLinesThatAreNoWaypointsInASentenceOfTheirOwn) {
  WaypointWorld world;
  const std::string track = "T  N3003.73100 W09136.62100 25-MAY-02 17:06:21 1";
  world.ImporteWpt(FichierWpt({"W  A      somewhere", track, LigneWpt("B", "b"), track}));
  EXPECT_EQ(world.Lignes().size(), 4U) << "they enter all the same";
  EXPECT_EQ(
      world.Boites(),
      Lines{"Rows to look at: 1; the first, line 12 of the file: no position where one "
            "should stand.\nRows to look at: 2; the first, line 13 of the file: the line does "
            "not begin with W, so it is probably no waypoint (a track?)."});
}

TEST(ImportGarmin, AWaypointUnderAnotherLetterIsNotOdd) {
  WaypointWorld world;
  std::string line = LigneWpt("A", "a");
  line[0] = 'X';
  world.ImporteWpt(FichierWpt({line}));
  EXPECT_EQ(world.Boites(), Vide());
}

TEST(ImportGarmin, SaysOfALineThatEndsItThatItIsNoWaypoint) {
  WaypointWorld world;
  world.ImporteWpt(FichierWpt({LigneWpt("A", "b"), "T  B      N50309e99"}));
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_NE(world.dialogues.boxes[0].text.find(
                "This line does not begin with W, so it is probably no waypoint but part of a "
                "track; take such lines out of the file."),
            std::string::npos)
      << world.dialogues.boxes[0].text;
}

// Of decimal commas and missing fields only lists can be suspected.
TEST(ImportGarmin, APositionTooLongForItsColumnCannotBeComputed) {
  WaypointWorld world;
  world.ImporteWpt(FichierWpt({"W  B      N5030.9e9", LigneWpt("C", "d")}));
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_NE(world.dialogues.boxes[0].text.find("cannot be computed; correct it in the file."),
            std::string::npos)
      << world.dialogues.boxes[0].text;
}

// ---- files that have come in already

struct AgainCase {
  const char* name;
  Answer answer;
  std::size_t rows;
};

const AgainCase again[] = {{"No", Answer::No, 1}, {"Yes", Answer::Yes, 2}};

TEST(ImportGarmin, AsksBeforeAFileComesInOnceMore) {
  for (const AgainCase& c : again) {
    SCOPED_TRACE(c.name);
    WaypointWorld world;
    world.ImporteWpt(FichierWpt({LigneWpt("A", "a")}));
    world.dialogues.answers = {c.answer};
    world.dialogues.paths.emplace_back("/gps/points.wpt");
    ImportGarmin(world.Contexte());
    ASSERT_EQ(world.dialogues.boxes.size(), 1U);
    EXPECT_EQ(world.dialogues.boxes[0].text,
              "Waypoints of this file have been imported into the open one already. Import all its "
              "waypoints once more?");
    EXPECT_EQ(world.dialogues.boxes[0].buttons, Buttons::YesNo);
    EXPECT_EQ(world.dialogues.boxes[0].defaultButton, Answer::No);
    EXPECT_EQ(world.Lignes().size(), c.rows);
  }
}

TEST(ImportGarmin, AsksTooAfterAnImportThatEndedOnTheWay) {
  WaypointWorld world;
  world.ImporteWpt(FichierWpt({LigneWpt("A", "b"), "W  B      N50309e99"}));
  world.dialogues.boxes.clear();
  world.dialogues.answers = {Answer::No};
  world.dialogues.paths.emplace_back("/gps/points.wpt");
  ImportGarmin(world.Contexte());
  EXPECT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.Lignes().size(), 1U);
}

TEST(ImportGarmin, AFileThatWasMendedIsAnotherOne) {
  WaypointWorld world;
  world.ImporteWpt(FichierWpt({LigneWpt("A", "a")}));
  world.ImporteWpt(FichierWpt({LigneWpt("A", "a"), LigneWpt("B", "b")}));
  EXPECT_EQ(world.Lignes().size(), 3U);
}

struct FolderCase {
  const char* name;
  const char* last;
  const char* open;
  const char* folder;
};

const FolderCase folders[] = {
    {"where the last one was", "/gps/", "/data/moles.deg", "/gps/"},
    {"beside the open distribution", "", "/data/moles.deg", "/data/"},
    {"wherever a dialog starts", "", "", ""},
};

TEST(ImportGarmin, LooksForItsFileWhereTheUserHasFiles) {
  for (const FolderCase& c : folders) {
    SCOPED_TRACE(c.name);
    WaypointWorld world;
    world.interchange.DossierPoints = c.last;
    world.state.document.Fichier.NomFichier = c.open;
    for (int i = 0; i < 2; ++i) world.dialogues.paths.emplace_back("");
    ImportGarmin(world.Contexte());
    ImportMapSource(world.Contexte(), 0);
    ASSERT_EQ(world.dialogues.fileDialogs.size(), 2U);
    for (const FileDialog& asked : world.dialogues.fileDialogs) EXPECT_EQ(asked.folder, c.folder);
    EXPECT_EQ(world.interchange.DossierPoints, c.last) << "nothing was chosen";
  }
}

TEST(ImportGarmin, RemembersTheFolderOfItsFile) {
  WaypointWorld world;
  world.ImporteWpt(FichierWpt({}));
  EXPECT_EQ(world.interchange.DossierPoints, "/gps/");
}

TEST(ImportGarmin, AsksForAFileWithItsFilter) {
  WaypointWorld world;
  world.ImporteWpt(FichierWpt({}));
  ASSERT_EQ(world.dialogues.fileDialogs.size(), 1U);
  EXPECT_EQ(world.dialogues.fileDialogs[0].filter,
            "Fichiers wpt (*.wpt)|*.wpt|Tous les fichiers (*.*)|*.*)");
  EXPECT_EQ(world.dialogues.fileDialogs[0].name, "");
}

TEST(ImportGarmin, EndsInSilenceOnCancel) {
  WaypointWorld world;
  world.dialogues.paths.emplace_back("");
  ImportGarmin(world.Contexte());
  EXPECT_EQ(world.Boites(), Vide());
  EXPECT_FALSE(world.state.document.FichierModifie());
}

TEST(ImportGarmin, IsTheSecondEntryOfTheImportMenu) {
  WaypointWorld world;
  world.dialogues.paths.emplace_back("");
  mnuImport_Click(world.Contexte(), 1);
  EXPECT_EQ(world.dialogues.fileDialogs.size(), 1U);
}

TEST(ImportGarmin, RefusesAnotherFormBeforeAnyRow) {
  WaypointWorld world;
  world.state.Silence = false;
  world.ImporteWpt(Remplace(FichierWpt({LigneWpt("A", "b")}), "LAT LON DM", "LAT LON DEG"));
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].text,
            "Les coordonnées doivent être exprimées en LAT LON DM.\nImportation annulée.");
  EXPECT_EQ(world.dialogues.boxes[0].icon, Icon::Stop);
  EXPECT_EQ(world.sound.bips, 1);
  EXPECT_EQ(world.Lignes(), Vide());
  EXPECT_FALSE(world.state.document.FichierModifie());
  EXPECT_EQ(world.files.ouverts, 0);
}

TEST(ImportGarmin, ShowsWhatKeepsAFileFromBeingRead) {
  WaypointWorld world;
  world.dialogues.paths.emplace_back("/gps/none.wpt");
  ImportGarmin(world.Contexte());
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].text.substr(0, 8), "Error 53");
  world.dialogues.boxes.clear();
  world.ImporteWpt("");
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].text.substr(0, 8), "Error 62");
  EXPECT_EQ(world.files.ouverts, 0);
}

TEST(ImportGarmin, KeepsTheRowsBeforeAFailureWithoutPoints) {
  WaypointWorld world;
  world.ImporteWpt(FichierWpt({LigneWpt("A", "b"), "W  B      N50309e99", LigneWpt("C", "d")}));
  EXPECT_EQ(world.Boites(),
            Lines{"Error 6\nLine 13 of the file: The position “N50309e99” cannot be "
                  "computed; correct it in the file.\nRows added before it: 1."});
  EXPECT_EQ(world.Lignes(), Lines{"1|-|-|1|1|-|WGS84|deg +50.50833 -002.25417||  100 A      b"});
  EXPECT_FALSE(world.state.document.FichierModifie());
  EXPECT_EQ(world.vue.selection.size(), 1U);
}

TEST(ImportGarmin, TellsADefaultDatumThatTheCatalogueLacksOnce) {
  WaypointWorld world;
  world.state.DatumSpheriqueCode = "XYZ";
  world.state.DatumSpherique = 0;
  world.ImporteWpt(FichierWpt({LigneWpt("A", "b"), LigneWpt("B", "c")}));
  const Lines boxes = world.Boites();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_NE(boxes[0].find("XYZ"), std::string::npos);
  EXPECT_EQ(world.Lignes(), (Lines{"1|-|-|1|1|-|XYZ  |deg +50.50833 -002.25417||  100 A      b",
                                   "1|-|-|1|1|-|XYZ  |deg +50.50833 -002.25417||  100 B      c"}));
  EXPECT_EQ(world.state.document.Montre().avis,
            "Import: 2 rows added, 0 dropped, 2 without a point");
}

TEST(ImportGarmin, AppendsToTheRowsThatAreThere) {
  WaypointWorld world;
  world.Montre({{.datum = "WGS84", .original = "deg 1 2", .latitude = "9", .longitude = "9"}});
  world.ImporteWpt(FichierWpt({LigneWpt("A", "b")}));
  EXPECT_EQ(world.Points(), (Lines{"1 2", "50.50833 -2.25417"})) << "all rows are computed anew";
  EXPECT_EQ(world.vue.selection.size(), 1U);
}

}  // namespace
}  // namespace talpena
