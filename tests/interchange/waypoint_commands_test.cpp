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

const std::string head =
    "Grid\tLat/Lon hddd.ddddd°\nDatum\tWGS 84\n\n"
    "Header\tName\tDescription\tType\tPosition\tAltitude\n\n";
const std::string alpha = "Waypoint\tA\tAlpha\tUser\tN50.5 E4.25\t12 m\n";
const std::string beta = "Waypoint\tB\tBeta\tUser\tS1 W2\t\n";
const std::string cut = "Waypoint\tC\tGamma\tUser\tN1\t\n";

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
  world.ImporteWpt(FichierWpt({LigneWpt("A", "a"), "H  a remark", "T  another"}, "M  G"));
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

TEST(ImportMapSource, AsksForATextAndShowsIt) {
  WaypointWorld world;
  world.dialogues.paths.emplace_back("/gps/w.txt");
  mnuImportGarmin_Click(world.Contexte(), 0);
  EXPECT_EQ(world.dialogues.fileDialogs[0].filter, "Text file (*.txt)|*.txt|All files (*.*)|*.*");
  EXPECT_EQ(world.dialogues.fileDialogs[0].name, "");
  EXPECT_EQ(world.vue.calls.back(), "MontreImportGarmin 0 /gps/w.txt");
}

TEST(ImportMapSource, EndsInSilenceOnCancel) {
  WaypointWorld world;
  world.dialogues.paths.emplace_back("");
  const std::size_t calls = world.vue.calls.size();
  mnuImportGarmin_Click(world.Contexte(), 0);
  EXPECT_EQ(world.vue.calls.size(), calls);
  EXPECT_EQ(world.Boites(), Vide());
}

TEST(ImportMapSource, DoesNothingForTracks) {
  WaypointWorld world;
  mnuImportGarmin_Click(world.Contexte(), 1);
  EXPECT_TRUE(world.dialogues.fileDialogs.empty());
}

TEST(ImportMapSource, AddsRowsAndTheirPoints) {
  WaypointWorld world;
  world.options.Period = 2;
  world.ImporteMapSource(head + alpha + beta);
  EXPECT_EQ(world.Lignes(), (Lines{"2|50.5|4.25|-|-|-|WGS84|deg 50.5 4.25|-|A - Alpha",
                                   "2|-1|-2|-|-|-|WGS84|deg -1 -2|-|B - Beta"}));
  EXPECT_TRUE(world.state.document.FichierModifie());
  EXPECT_EQ(world.vue.selection.size(), 2U);
}

TEST(ImportMapSource, CountsWaypointsWithoutAPositionAsDroppedButNotThoseUnchecked) {
  WaypointWorld world;
  MapSourceText text;
  world.files.Pose("w", head + alpha + beta + "Waypoint\tC\tGamma\tUser\t\t\n");
  RempliLV(world.files, "w", text);
  MapSourceChoice choice{.grid = 0, .datum = "WGS84", .items = TousLesPoints(text)};
  choice.items[0].checked = false;
  ImportMapSource(world.context, text, choice, {});
  EXPECT_EQ(world.Lignes(), Lines{"1|-1|-2|-|-|-|WGS84|deg -1 -2|-|B - Beta"});
  EXPECT_EQ(world.state.document.Montre().avis,
            "Import: 1 rows added, 1 dropped, 0 without a point");
}

TEST(ImportMapSource, AddsRowsOnGridUtmWithoutACoordinate) {
  WaypointWorld world;
  world.ImporteMapSource(
      "Grid\tUTM\nDatum\tWGS 84\nHeader\tName\n"
      "Waypoint\tA\tAlpha\tUser\t44 R 413954 2809536\n");
  EXPECT_EQ(world.Lignes(), Lines{"1|-|-|-|-|-|WGS84|-|-|A - Alpha"});
  EXPECT_EQ(world.state.document.Montre().avis,
            "Import: 1 rows added, 0 dropped, 1 without a point");
}

TEST(ImportMapSource, WarnsOnceWhereNoFreeFieldTakesTheAltitude) {
  WaypointWorld world;
  world.options.AltitudeImport = 1;
  world.options.AltitudeFixed = "9";
  world.ImporteMapSource(head + alpha + beta);
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].text,
            "The altitude will not be imported since it is not used in the free fields");
  EXPECT_EQ(world.dialogues.boxes[0].icon, Icon::Stop);
  EXPECT_EQ(world.Lignes().size(), 2U);
  EXPECT_EQ(world.Lignes()[0], "1|50.5|4.25|-|-|-|WGS84|deg 50.5 4.25|-|A - Alpha");
}

TEST(ImportMapSource, KeepsTheRowsBeforeAPositionWithTooFewParts) {
  WaypointWorld world;
  world.ImporteMapSource(head + alpha + cut + beta);
  EXPECT_EQ(
      world.Boites(),
      Lines{"Error 9\nLine 7 of the file: The position “N1” of the waypoint “C” does not have "
            "the form of the grid that is chosen; choose the grid of the file.\n"
            "Rows added before it: 1."});
  EXPECT_EQ(world.Lignes(), Lines{"1|-|-|-|-|-|WGS84|deg 50.5 4.25|-|A - Alpha"});
  EXPECT_FALSE(world.state.document.FichierModifie());
}

TEST(ImportMapSource, AnswersHowManyCameInAndWhetherAllDid) {
  WaypointWorld world;
  const auto importe = [&world](const std::string& waypoints) {
    MapSourceText text;
    world.files.Pose("w", head + waypoints);
    RempliLV(world.files, "w", text);
    return ImportMapSource(world.context, text,
                           {.grid = 0, .datum = "WGS84", .items = TousLesPoints(text)}, {});
  };
  EXPECT_TRUE(importe(alpha + beta).finished);
  const MapSourceOutcome outcome = importe(alpha + "Waypoint\tX\n" + beta + cut + alpha);
  EXPECT_FALSE(outcome.finished);
  EXPECT_EQ(outcome.added, 2);
  EXPECT_EQ(world.Boites().size(), 1U);
}

TEST(ImportMapSource, TellsADatumThatTheCatalogueLacksOnce) {
  WaypointWorld world;
  MapSourceText text;
  world.files.Pose("w", head + alpha + alpha);
  RempliLV(world.files, "w", text);
  text.datum = "XYZ";
  world.Importe(text);
  const Lines boxes = world.Boites();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_NE(boxes[0].find("XYZ"), std::string::npos);
  EXPECT_EQ(world.Lignes()[1], "1|-|-|-|-|-|XYZ  |deg 50.5 4.25|-|A - Alpha");
}

TEST(ChargeImportGarmin, GivesTheTextAndTheFirstOptions) {
  WaypointWorld world;
  world.files.Pose("w", head + alpha);
  world.options = {.Period = 4, .DateImport = 1, .DateField = "D"};
  const MapSourceText text = ChargeImportGarmin(world.state, world.io, "w", 0, world.options);
  EXPECT_EQ(text.items.Nombre(), 1U);
  EXPECT_EQ(world.options, objGraminImport{.DateField = "D"});
  EXPECT_EQ(world.files.ouverts, 0);
}

TEST(ChargeImportGarmin, TellsAWrongFileType) {
  WaypointWorld world;
  world.files.Pose("w", "a,b,c");
  const MapSourceText text = ChargeImportGarmin(world.state, world.io, "w", 0, world.options);
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].text, "Wrong file type!");
  EXPECT_EQ(world.dialogues.boxes[0].icon, Icon::Stop);
  EXPECT_EQ(text.header, "w\r\na,b,c\r\n");
}

TEST(ChargeImportGarmin, ShowsAFailureAndKeepsWhatWasRead) {
  WaypointWorld world;
  world.files.Pose("w", "Grid\tUTM\n");
  const MapSourceText text = ChargeImportGarmin(world.state, world.io, "w", 0, world.options);
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].text.substr(0, 8), "Error 62");
  EXPECT_EQ(text.grid, GarminGrid::Utm);
  EXPECT_EQ(world.files.ouverts, 0);
}

TEST(ChargeImportGarmin, TellsAFaultOfTheDisk) {
  WaypointWorld world;
  const std::string bytes = head + alpha + beta;
  world.files.Pose("w", bytes);
  world.files.bloc = 8;
  world.files.lectureJusqua = bytes.size() - 1;
  const MapSourceText text = ChargeImportGarmin(world.state, world.io, "w", 0, world.options);
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].text.substr(0, 8), "Error 57");
  EXPECT_LE(text.items.Nombre(), 1U);
  EXPECT_EQ(world.files.ouverts, 0);
}

TEST(ChargeImportGarmin, StaysEmptyForAnyOtherType) {
  WaypointWorld world;
  const MapSourceText text = ChargeImportGarmin(world.state, world.io, "w", 1, world.options);
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].text, "This function is not yet abailable!");
  EXPECT_EQ(world.dialogues.boxes[0].icon, Icon::Information);
  EXPECT_EQ(text.header, "");
}

}  // namespace
}  // namespace talpena
