#include "store/deg_reader.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "store/deg_files.h"
#include "store/file_commands.h"
#include "store/world.h"

namespace talpena {
namespace {

using test::EnTete2;
using test::FinEnTete;
using test::Rangee;
using test::RangeeLue;
using Texts = std::vector<std::string>;

const std::string oneField = "/\r\nSTAT.TOPO,Toponyme,50\r\n";

class LitDegTest : public ::testing::Test {
 protected:
  test::World world;
  StoreState& state = world.state;

  int Rang(const std::string& call) const {
    const auto& calls = world.vue.calls;
    const auto it = std::find(calls.begin(), calls.end(), call);
    return it == calls.end() ? -1 : static_cast<int>(it - calls.begin());
  }
  std::vector<std::string> LignesLiees() {
    std::vector<std::string> all;
    const auto rows = state.document.Data1.Clone();
    for (rows->MoveFirst(); !rows->EOF_(); rows->MoveNext()) {
      all.push_back(test::World::Texte(*rows));
    }
    return all;
  }
  /// What is put back behind every load, whether it succeeds or not.
  void ExpectFerme() {
    EXPECT_EQ(world.files.ouverts, 0) << "the file is closed";
    EXPECT_FALSE(state.document.WorkingDb->EnTransaction());
    EXPECT_FALSE(world.vue.barre);
    EXPECT_FALSE(world.vue.sablier);
    EXPECT_EQ(world.vue.message, "") << "the wait window is closed";
  }
};

// ---- what a load takes over

TEST_F(LitDegTest, TakesForm2Over) {
  test::MarqueModifie(state.document);
  world.Charge(EnTete2("NTF", oneField, "Talpa inventa", "no comment") + Rangee("1", "a/b") +
               Rangee("2"));
  EXPECT_EQ(world.Boites(), Texts{});
  EXPECT_EQ(world.Lignes(), (Texts{RangeeLue("1", "a/b"), RangeeLue("2", "/")}));
  EXPECT_EQ(LignesLiees(), world.Lignes());
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "NTF");
  EXPECT_EQ(state.document.Entete().DatumFichier, 3);
  EXPECT_EQ(world.vue.panneauDatum, "NTF");
  EXPECT_EQ(state.document.Entete().FreeFieldText, "/\r\nSTAT.TOPO,Toponyme,50");
  EXPECT_EQ(state.document.Entete().FreeFieldCount, 1);
  EXPECT_EQ(state.document.Entete().TitreFichier, "Talpa inventa");
  EXPECT_EQ(state.document.Entete().Commentaire, "no comment");
  EXPECT_EQ(world.vue.boxTitre, "Talpa inventa");
  EXPECT_EQ(world.vue.commentaire, "no comment");
  EXPECT_EQ(state.document.Entete().NbPivots, 2);
  EXPECT_EQ(state.document.Entete().Pivot1, 1950);
  EXPECT_EQ(state.document.Entete().Pivot2, 1990);
  EXPECT_FALSE(state.document.FichierModifie());
  EXPECT_EQ(world.vue.titre, "Talpena - /data/f.deg");
  EXPECT_TRUE(world.vue.titresVisibles);
  EXPECT_TRUE(world.vue.grilleVisible);
  EXPECT_EQ(state.LastFiles[0], "/data/f.deg");
  EXPECT_EQ(state.document.Fichier.NomFichier, "") << "the caller's affair";
  ExpectFerme();
}

TEST_F(LitDegTest, TakesForm1Over) {
  test::Entete(state.document)->DatumFichierCode = "ARS-M";
  test::Entete(state.document)->FreeFieldCount = 1;
  test::Entete(state.document)->FreeFieldDefs = {{"l", "c", 1}};
  world.Charge(FinEnTete("Old title") + Rangee("1", "remark") +
               "1K+42.73309   5.77569\r\nFIN DU FICHIER\r\n" + Rangee("9"));
  EXPECT_EQ(world.Boites(), Texts{});
  EXPECT_EQ(world.Lignes(),
            (Texts{RangeeLue("1", "remark"),
                   "1|42.73309|5.77569|0|0|F|EUR-M|deg +42.73309 5.77569|2004/07/01|"}));
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "ARS-M")
      << "a form 1 file has none of its own";
  EXPECT_EQ(world.vue.panneauDatum, "ARS-M");
  EXPECT_GE(Rang("RecalculeCoordonnees"), 0);
  EXPECT_EQ(state.document.Entete().FreeFieldCount, 0);
  EXPECT_EQ(state.document.Entete().FreeFieldText, "");
  EXPECT_EQ(state.document.Entete().TitreFichier, "Old title");
  EXPECT_TRUE(state.document.FichierModifie()) << "a bare point got coordinates";
  ExpectFerme();
}

TEST_F(LitDegTest, DecodesTheCodePage) {
  world.Charge(EnTete2("WGS84", "/\r\nA,Localit\xE9,5\r\n",
                       "Fran\xE7"
                       "ais \x80",
                       "\x95") +
               Rangee("1", "\xE9t\xE9/\x9C"));
  EXPECT_EQ(world.vue.boxTitre,
            "Fran\xC3\xA7"
            "ais \xE2\x82\xAC");
  EXPECT_EQ(world.vue.commentaire, "\xE2\x80\xA2");
  EXPECT_EQ(state.document.Entete().FreeFieldDefs.at(0).Label, "Localit\xC3\xA9");
  EXPECT_EQ(world.Lignes(), Texts{RangeeLue("1", "\xC3\xA9t\xC3\xA9/\xC5\x93")});
}

TEST_F(LitDegTest, KeepsLineFeedsAndNulsOfARemark) {
  world.Charge(EnTete2() + Rangee("1", std::string("a\nb\0c", 5)));
  ASSERT_EQ(world.Boites(), Texts{});
  EXPECT_EQ(world.Lignes(), Texts{RangeeLue("1", std::string("a\nb\0c", 5))});
}

TEST_F(LitDegTest, ReadsLinesThatEndInCrAlone) {
  std::string bytes = EnTete2("NTF", oneField) + Rangee("1") + Rangee("2");
  bytes.erase(std::remove(bytes.begin(), bytes.end(), '\n'), bytes.end());
  world.Charge(bytes);
  EXPECT_EQ(world.Lignes(), (Texts{RangeeLue("1", "/"), RangeeLue("2", "/")}));
}

TEST_F(LitDegTest, ReadsALastLineWithoutEnd) {
  std::string bytes = EnTete2() + Rangee("1");
  bytes.resize(bytes.size() - 2);
  world.Charge(bytes);
  EXPECT_EQ(world.Lignes(), Texts{RangeeLue("1")});
}

TEST_F(LitDegTest, ReadsAHeaderWithoutRows) {
  world.Charge(EnTete2());
  EXPECT_EQ(world.Boites(), Texts{});
  EXPECT_EQ(world.Lignes(), Texts{});
  EXPECT_TRUE(state.document.Data1.EstLie());
  EXPECT_EQ(world.vue.progression, (std::vector<int>{0, 100}));
}

TEST_F(LitDegTest, ReplacesTheRowsAndGoesOnCounting) {
  world.Charge(EnTete2() + Rangee("1") + Rangee("2"));
  world.Charge(EnTete2() + Rangee("3"));
  EXPECT_EQ(world.Lignes(), Texts{RangeeLue("3")});
  EXPECT_EQ(LignesLiees(), Texts{RangeeLue("3")});
  const auto rows = state.document.WorkingDb->OpenRecordset("TALPENA");
  EXPECT_EQ(rows->Get("Counter").integer, 3);
}

TEST_F(LitDegTest, KeepsTheSort) {
  state.document.ChangeOrdre({4, Direction::Descending});
  world.Charge(EnTete2() + Rangee("1") + Rangee("3") + Rangee("2"));
  EXPECT_EQ(LignesLiees(), (Texts{RangeeLue("3"), RangeeLue("2"), RangeeLue("1")}));
  EXPECT_EQ(state.document.Data1.RecordSource, state.document.SqlCourant());
}

TEST_F(LitDegTest, PadsRowsOfAFileWithoutFieldsWithThoseOfTheFileBefore) {
  world.Charge(EnTete2("WGS84", oneField) + Rangee("1", "a/b"));
  world.Charge(EnTete2("WGS84") + Rangee("2", "remark"));
  EXPECT_EQ(world.Lignes(), Texts{RangeeLue("2", "/remark")});
  EXPECT_EQ(state.document.Entete().FreeFieldCount, 1);
  EXPECT_EQ(state.document.Entete().FreeFieldText, "");
}

TEST_F(LitDegTest, ShowsItsStepsInOrder) {
  world.Charge(EnTete2("NTF") + Rangee());
  EXPECT_EQ(Rang("RecalculeCoordonnees"), -1);
  const int title = Rang("ChangeTitreFenetre Talpena - /data/f.deg");
  const int message = Rang("AfficheMessage " + Texte(1000, MsgId::Ouverture) + "\n/data/f.deg");
  const int datum = Rang("AffichePanneauDatum NTF");
  const int box = Rang("ChangeBoxTitre Title");
  const int comment = Rang("ChangeCommentaire Comment");
  const int shown = Rang("MontreTitres");
  const int grid = Rang("AjusteGrille");
  const int closed = Rang("FermeMessage");
  const int focus = Rang("PlaceFocusGrille");
  const std::vector<int> order = {0,       title, message, datum,  box,
                                  comment, shown, grid,    closed, focus};
  EXPECT_EQ(title, 0);
  EXPECT_TRUE(std::is_sorted(order.begin(), order.end()))
      << ::testing::PrintToString(world.vue.calls);
}

TEST_F(LitDegTest, MovesTheProgressBarAtEachTenth) {
  std::string bytes = EnTete2();
  for (int i = 0; i < 1000; ++i) bytes += Rangee(std::to_string(i));
  world.Charge(bytes);
  EXPECT_EQ(world.vue.progression, (std::vector<int>{0, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100}));
}

TEST_F(LitDegTest, RunsTheMessageLoopForBarePointsOnly) {
  world.Charge(EnTete2() + Rangee() + Rangee());
  EXPECT_EQ(Rang("TraiteMessages"), -1);
  EXPECT_FALSE(state.document.FichierModifie());
  world.Charge(EnTete2() + Rangee() + "1K+ 4.50000\r\n\r\n");
  EXPECT_EQ(std::count(world.vue.calls.begin(), world.vue.calls.end(), "TraiteMessages"), 2);
  EXPECT_TRUE(state.document.FichierModifie());
}

TEST_F(LitDegTest, KeepsTheStampOfTheFileThatItRead) {
  world.Charge(EnTete2() + Rangee());
  EXPECT_EQ(state.document.Fichier.EmpreinteFichier, world.files.Empreinte("/data/f.deg"));
  world.files.Pose("/data/f.deg", "changed by another program");
  EXPECT_NE(state.document.Fichier.EmpreinteFichier, world.files.Empreinte("/data/f.deg"));
}

TEST_F(LitDegTest, TellsWhoShowsTheRows) {
  int refreshed = 0;
  const Subscription observed =
      test::ObserveLignes(state.document, [&](DataControl::Change change) {
        if (change == DataControl::Change::Rows) ++refreshed;
      });
  world.Charge(EnTete2() + Rangee());
  EXPECT_EQ(refreshed, 1) << "the first file binds the grid at its end";
  world.Charge(EnTete2() + Rangee());
  EXPECT_EQ(refreshed, 3) << "the next one empties it first";
}

/// How many rows the data control has each time that who shows them is told.
class LitDegFirstRowsTest : public LitDegTest {
 protected:
  static std::string Lignes(int count) {
    std::string rows;
    for (int i = 1; i <= count; ++i) rows += Rangee(std::to_string(i));
    return rows;
  }
  std::vector<std::int64_t> shown;
  Subscription observed = test::ObserveLignes(state.document, [this](DataControl::Change change) {
    if (change != DataControl::Change::Rows) return;
    shown.push_back(state.document.Data1.recordset().RecordCount());
  });
};

TEST_F(LitDegFirstRowsTest, TheFirstRowsAreOnShowWhileTheOthersAreRead) {
  world.Charge(EnTete2() + Lignes(1000));
  EXPECT_EQ(shown, (std::vector<std::int64_t>{200, 1000}));
  EXPECT_EQ(Rang("TraiteMessages") >= 0, true) << "they are painted";
  EXPECT_EQ(LignesLiees().size(), 1000U);
  EXPECT_EQ(LignesLiees(), world.Lignes());
  EXPECT_FALSE(state.document.FichierModifie());
  ExpectFerme();
}

TEST_F(LitDegFirstRowsTest, AFileOfAsManyRowsIsReadToItsEnd) {
  for (const int count : {199, 200, 201}) {
    world.Charge(EnTete2() + Lignes(count));
    EXPECT_EQ(LignesLiees().size(), static_cast<std::size_t>(count));
    EXPECT_EQ(LignesLiees(), world.Lignes());
    EXPECT_EQ(world.Boites(), Texts{});
  }
}

TEST_F(LitDegFirstRowsTest, AFaultFarBehindThemEndsAsOneAmongThem) {
  for (const int before : {150, 200, 700}) {
    SCOPED_TRACE(before);
    world.Charge(EnTete2() + Lignes(before) + "1K    1E39\r\n" + Lignes(300));
    EXPECT_EQ(world.Boites(),
              Texts{"Line " + std::to_string(before + 9) +
                    " of the file: A number is too large for its place; correct it."});
    EXPECT_EQ(LignesLiees().size(), static_cast<std::size_t>(before));
    EXPECT_EQ(LignesLiees(), world.Lignes());
    EXPECT_TRUE(state.document.Fichier.LecturePartielle);
    EXPECT_FALSE(state.document.FichierModifie());
    EXPECT_EQ(world.vue.calls.back(), "FermeMessage");
    EXPECT_EQ(std::count(world.vue.calls.begin(), world.vue.calls.end(), "PlaceFocusGrille"), 1)
        << "the keys go to the rows that came";
    world.vue.calls.clear();
    ExpectFerme();
  }
}

TEST_F(LitDegFirstRowsTest, RowsThatAreSortedOrAddedAreShownAtTheEnd) {
  world.Charge(EnTete2("WGS84", oneField) + Lignes(400));
  shown.clear();
  world.Charge(EnTete2("WGS84", oneField) + Lignes(300), MergeMode::Merge);
  EXPECT_EQ(shown, (std::vector<std::int64_t>{700}));
  state.document.ChangeOrdre({7, Direction::Ascending});
  world.Charge(EnTete2() + Lignes(300));
  EXPECT_EQ(shown, (std::vector<std::int64_t>{700, 0, 300}));
}

// ---- free fields for a form 1 file

TEST_F(LitDegTest, OffersStandardFieldsToAForm1File) {
  world.files.Pose("/app/standard.hdr", ";\r\na,b,1\r\nc,d,2\r\n");
  world.dialogues.answers = {Answer::Yes};
  world.Charge(FinEnTete() + Rangee("1", "remark"));
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].text, Texte(1000, MsgId::ChampsStandard));
  EXPECT_EQ(world.dialogues.boxes[0].buttons, Buttons::YesNo);
  EXPECT_EQ(state.document.Entete().FreeFieldText, ";\r\na,b,1\r\nc,d,2");
  EXPECT_EQ(state.document.Entete().FreeFieldCount, 2);
  EXPECT_EQ(world.Lignes(), Texts{RangeeLue("1", ";;remark")});
}

TEST_F(LitDegTest, LeavesAForm1FileWithoutFieldsOnNo) {
  world.files.Pose("/app/standard.hdr", ";\r\na,b,1\r\n");
  world.dialogues.answers = {Answer::No};
  test::Entete(state.document)->FreeFieldCount = 3;
  world.Charge(FinEnTete() + Rangee("1", "remark"));
  EXPECT_EQ(state.document.Entete().FreeFieldCount, 0);
  EXPECT_EQ(state.document.Entete().FreeFieldText, "");
  EXPECT_EQ(world.Lignes(), Texts{RangeeLue("1", "remark")});
}

TEST_F(LitDegTest, DoesNotOfferThemToForm2OrToAMerge) {
  world.files.Pose("/app/standard.hdr", ";\r\na,b,1\r\n");
  world.Charge(EnTete2() + Rangee());
  world.Charge(FinEnTete() + Rangee(), MergeMode::Merge);
  EXPECT_EQ(world.Boites(), Texts{});
}

// ---- merging

TEST_F(LitDegTest, MergesAFileOfTheSameLayout) {
  world.Charge(EnTete2("WGS84", oneField, "One", "first") + Rangee("1", "a/b"));
  const auto stamp = state.document.Fichier.EmpreinteFichier;
  state.document.Fichier.NomFichier = "/data/f.deg";
  world.Charge(EnTete2("wgs84", oneField, "Two", "second") + Rangee("2", "c/d"), MergeMode::Merge,
               "/data/g.deg");
  EXPECT_EQ(world.Boites(), Texts{});
  EXPECT_EQ(world.Lignes(), (Texts{RangeeLue("1", "a/b"), RangeeLue("2", "c/d")}));
  EXPECT_EQ(LignesLiees().size(), 2U);
  EXPECT_EQ(world.vue.boxTitre, "One - Two");
  EXPECT_EQ(world.vue.commentaire, "first-second");
  EXPECT_EQ(world.vue.titre, "Talpena - /data/g.deg");
  EXPECT_EQ(state.document.Fichier.NomFichier, "/data/f.deg");
  EXPECT_TRUE(state.document.FichierModifie());
  EXPECT_EQ(state.LastFiles[0], "/data/g.deg");
  EXPECT_EQ(state.document.Fichier.EmpreinteFichier, stamp)
      << "the open file is still the first one";
  ExpectFerme();
}

TEST_F(LitDegTest, KeepsThePeriodsOnAMerge) {
  world.Charge(EnTete2("WGS84", oneField) + Rangee("1"));
  std::string bytes = EnTete2("WGS84", oneField);
  bytes.replace(bytes.find("1950"), 4, "1960");
  world.Charge(bytes, MergeMode::Merge);
  EXPECT_EQ(state.document.Entete().Pivot1, 1950);
}

TEST_F(LitDegTest, RefusesAMergeOfAnotherDatum) {
  world.Charge(EnTete2("WGS84", oneField) + Rangee("1"));
  world.vue.calls.clear();
  world.Charge(EnTete2("NTF", oneField) + Rangee("2"), MergeMode::Merge);
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].text, "Datum not compatible with current file.");
  EXPECT_EQ(world.dialogues.boxes[0].icon, Icon::Stop);
  EXPECT_EQ(world.sound.bips, 1);
  EXPECT_EQ(world.Lignes().size(), 1U);
  EXPECT_EQ(world.vue.calls, Texts{}) << "the window shows nothing of it";
  EXPECT_EQ(state.document.Entete().FreeFieldText, "") << "a refused merge empties it";
  EXPECT_EQ(state.document.Entete().FreeFieldCount, 1);
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "WGS84");
  ExpectFerme();
}

TEST_F(LitDegTest, RefusesAMergeOfOtherFields) {
  world.Charge(EnTete2("WGS84", oneField) + Rangee("1"));
  world.Charge(EnTete2("WGS84", "/\r\nSTAT.TOPO,Lieu,50,x\r\n") + Rangee("2"), MergeMode::Merge);
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].text,
            "Field definition not compatible with current file!\r\nSTAT.TOPO,Lieu,50");
  EXPECT_EQ(world.dialogues.boxes[0].icon, Icon::Stop);
  EXPECT_EQ(world.Lignes().size(), 1U);
  EXPECT_EQ(state.document.Entete().FreeFieldText, "");
  ExpectFerme();
}

TEST_F(LitDegTest, MergesForm1WithoutAnyTest) {
  world.Charge(EnTete2("NTF", oneField) + Rangee("1", "a/b"));
  world.Charge(FinEnTete("Old") + Rangee("2", "remark"), MergeMode::Merge);
  EXPECT_EQ(world.Boites(), Texts{});
  EXPECT_EQ(world.Lignes(), (Texts{RangeeLue("1", "a/b"), RangeeLue("2", "/remark")}));
  EXPECT_EQ(Rang("RecalculeCoordonnees"), -1);
  EXPECT_EQ(world.vue.boxTitre, "Title - Old");
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "NTF");
  EXPECT_EQ(state.document.Entete().FreeFieldText, "");
}

TEST_F(LitDegTest, TakesDatumAndFieldsOfTheMergedFileWhereThereWereNone) {
  world.Charge(EnTete2("WGS84") + Rangee("1", "remark"));
  world.Charge(EnTete2("NTF", oneField) + Rangee("2", "c/d"), MergeMode::Merge);
  EXPECT_EQ(world.Lignes(), (Texts{RangeeLue("1", "remark"), RangeeLue("2", "c/d")}));
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "NTF");
  EXPECT_EQ(world.vue.panneauDatum, "NTF");
  EXPECT_EQ(state.document.Entete().FreeFieldCount, 1);
  EXPECT_EQ(state.document.Entete().FreeFieldText, "/\r\nSTAT.TOPO,Toponyme,50");
}

TEST_F(LitDegTest, CannotMergeAForm2FileWithoutFields) {
  world.Charge(EnTete2("WGS84", oneField) + Rangee("1", "a/b"));
  world.Charge(EnTete2("WGS84") + Rangee("2"), MergeMode::Merge, "/data/g.deg");
  const Texts boxes = world.Boites();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].rfind("The file ends behind line 9, in its header", 0), 0U) << boxes[0];
  EXPECT_EQ(world.Lignes(), Texts{RangeeLue("1", "a/b")});
  EXPECT_EQ(state.document.Entete().FreeFieldText, "/\r\nSTAT.TOPO,Toponyme,50") << "put back";
  EXPECT_EQ(state.LastFiles[0], "/data/f.deg");
  EXPECT_EQ(world.vue.boxTitre, "Title");
  ExpectFerme();
}

TEST_F(LitDegTest, KeepsTheDatumWhenAMergeFailsInTheHeader) {
  world.Charge(EnTete2("WGS84") + Rangee("1"));
  world.Charge(EnTete2("NTF") + Rangee("2"), MergeMode::Merge);
  EXPECT_EQ(world.Boites().size(), 1U);
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "WGS84") << "the rows still stand on it";
  EXPECT_EQ(state.document.Entete().DatumFichier, 1);
  EXPECT_EQ(world.vue.panneauDatum, "WGS84");
}

// ---- failures

TEST_F(LitDegTest, AHeaderThatBreaksOffKeepsTheModifiedMark) {
  world.Charge(EnTete2() + Rangee("1"));
  test::MarqueModifie(state.document);
  world.Charge("<TALPENA 2.0>\r\nNTF\r\n");
  EXPECT_EQ(world.Boites().size(), 1U);
  EXPECT_TRUE(state.document.FichierModifie());
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "NTF");
  EXPECT_TRUE(world.Lignes().empty());
}

TEST_F(LitDegTest, AHeaderThatBreaksOffLeavesNothingOfTheFileBefore) {
  world.Charge(EnTete2() + Rangee("1"));
  EXPECT_NE(state.document.Entete().BoxTitre + state.document.Entete().Commentaire, "");
  world.Charge("<TALPENA 2.0>\r\nNTF\r\n");
  EXPECT_EQ(world.Boites().size(), 1U);
  EXPECT_EQ(state.document.Entete().BoxTitre, "");
  EXPECT_EQ(state.document.Entete().Commentaire, "");
  EXPECT_EQ(world.vue.boxTitre, "");
}

TEST_F(LitDegTest, SaysThatThereIsNoFile) {
  world.Charge(EnTete2() + Rangee("1"));
  test::Entete(state.document)->FreeFieldText = "kept";
  world.vue.calls.clear();
  LitDeg(world.context, "\"/data/f.deg\"", MergeMode::Replace);
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].text, "File not found");
  EXPECT_EQ(world.dialogues.boxes[0].icon, Icon::Stop);
  EXPECT_EQ(state.document.Entete().FreeFieldText, "kept");
  EXPECT_EQ(world.vue.calls, Texts{});
  EXPECT_EQ(world.Lignes().size(), 1U);
}

TEST_F(LitDegTest, SaysWhyAFileCannotBeOpened) {
  world.files.refus["/data/f.deg"] = ErrorNumber::PermissionDenied;
  world.Charge(EnTete2() + Rangee("1"));
  EXPECT_EQ(
      world.Boites(),
      Texts{"Access is refused; the file or the folder may be protected or in use.\n/data/f.deg"});
  EXPECT_EQ(world.Lignes(), Texts{});
  ExpectFerme();
}

std::string SansCr(std::string bytes) {
  bytes.erase(std::remove(bytes.begin(), bytes.end(), '\r'), bytes.end());
  return bytes;
}

TEST_F(LitDegTest, RowsThatEndInLfAloneMakeOneRowAndCanBeOpenedLineByLine) {
  state.document.Fichier.NomFichier = "/data/f.deg";
  world.Charge(EnTete2() + SansCr(Rangee("1") + Rangee("2") + Rangee("3")));
  EXPECT_EQ(world.Lignes().size(), 1U);
  EXPECT_TRUE(state.document.Fichier.FinsLf);
  RouvreEnLf(world.context);
  EXPECT_EQ(world.Lignes(), (Texts{RangeeLue("1"), RangeeLue("2"), RangeeLue("3")}));
  EXPECT_FALSE(state.document.Fichier.FinsLf);
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(LitDegTest, AFileOfLfFromItsFirstLineCanBeOpenedLineByLineToo) {
  state.document.Fichier.NomFichier = "/data/f.deg";
  for (const std::size_t remark : {std::size_t{1}, std::size_t{2} << 20}) {
    world.Charge(SansCr(EnTete2() + Rangee("1", std::string(remark, 'x')) + Rangee("2")));
    EXPECT_EQ(world.Boites().size(), 1U);
    EXPECT_TRUE(state.document.Fichier.FinsLf);
    RouvreEnLf(world.context);
    EXPECT_EQ(world.Lignes().size(), 2U);
    EXPECT_FALSE(state.document.Fichier.FinsLf);
  }
}

TEST_F(LitDegTest, LineBreaksInARemarkAreNoReasonToOfferThat) {
  world.Charge(EnTete2() + Rangee("1", "one\ntwo"));
  EXPECT_FALSE(state.document.Fichier.FinsLf);
  world.Charge(EnTete2() + SansCr(Rangee("1") + Rangee("2")));
  EXPECT_TRUE(state.document.Fichier.FinsLf);
  world.Charge(EnTete2() + Rangee("1"));
  EXPECT_FALSE(state.document.Fichier.FinsLf);
}

TEST_F(LitDegTest, TheUserMayGiveUpAndKeepsTheRowsBefore) {
  std::string bytes = EnTete2();
  for (int i = 0; i < 1000; ++i) bytes += Rangee("5");
  world.vue.abandonDans = 400;
  world.files.Pose("/data/f.deg", bytes);
  EXPECT_EQ(LitDeg(world.context, "/data/f.deg", MergeMode::Replace), LoadOutcome::Failed);
  EXPECT_EQ(
      world.Boites(),
      Texts{"Reading was ended: the table holds the first 399 rows of the file, and Save asks "
            "before it replaces it."});
  EXPECT_EQ(world.Lignes().size(), 399U);
  EXPECT_EQ(LignesLiees().size(), 399U);
  EXPECT_TRUE(state.document.Fichier.LecturePartielle);
  ExpectFerme();
}

struct BadFile {
  const char* name;
  std::string bytes;
  const char* message;
};

TEST_F(LitDegTest, SaysWhatIsWrongWithAFileThatIsNone) {
  const std::string lfHint =
      "\nThe lines of this file end in LF alone; those of a .deg file end in CR LF.";
  std::string lfOnly = EnTete2() + Rangee();
  lfOnly.erase(std::remove(lfOnly.begin(), lfOnly.end(), '\r'), lfOnly.end());
  const BadFile badFiles[] = {
      {"empty", "", "The file is empty; choose another one."},
      {"one line", "title",
       "The file ends behind line 1, in its header; it is damaged, or no distribution file."},
      {"header cut", "a\r\nb\r\nc\r\nd\r\n",
       "The file ends behind line 4, in its header; it is damaged, or no distribution file."},
      {"100 MB line", std::string(100 << 20, 'x'),
       "Line 1 of the file is longer than 1 MB; this is no distribution file."},
      {"two items", EnTete2("WGS84", "/\r\na,b\r\n"),
       "Line 4 of the file: The definition of a free field needs a code, a label and a width with "
       "commas between them; this one has not: a,b"},
      {"row too long", EnTete2() + std::string(17 << 20, ' '),
       "Line 9 of the file is longer than 16 MB; this is no distribution file."},
      {"number too large", EnTete2() + "1K    1E39\r\n",
       "Line 9 of the file: A number is too large for its place; correct it."},
  };
  for (const BadFile& bad : badFiles) {
    SCOPED_TRACE(bad.name);
    world.Charge(bad.bytes);
    EXPECT_EQ(world.Boites(), Texts{bad.message});
    ExpectFerme();
  }
  world.Charge(lfOnly);
  EXPECT_EQ(
      world.Boites(),
      Texts{"The file ends behind line 1, in its header; it is damaged, or no distribution file." +
            lfHint});
  world.Charge(EnTete2() + Rangee("5"));
  EXPECT_EQ(world.Lignes(), Texts{RangeeLue("5")}) << "the next file opens";
}

TEST_F(LitDegTest, MakesRowsOfZerosOfAFileOfCr) {
  world.Charge("\r\r\r\r\r\r");
  EXPECT_EQ(world.Boites(), Texts{});
  EXPECT_EQ(world.Lignes(), Texts{"0|0|0|0|0|-|EUR-M|deg  ||"});
}

TEST_F(LitDegTest, ShowsItsFailuresInAPlainBoxAfterABeep) {
  world.Charge("");
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].icon, Icon::None);
  EXPECT_EQ(world.dialogues.boxes[0].buttons, Buttons::Ok);
  EXPECT_EQ(world.sound.bips, 1);
  state.Silence = true;
  world.Charge("");
  EXPECT_EQ(world.dialogues.boxes.size(), 2U);
  EXPECT_EQ(world.sound.bips, 1);
}

TEST_F(LitDegTest, KeepsTheRowsBeforeARefusedOne) {
  const std::string noDatum = "2K+ 4.50000-  3.25000    3    72004/07/01F\r\n";
  const std::string noOriginal = "2K+ 4.50000-  3.25000    3    72004/07/01FWGS84\r\n";
  world.Charge(EnTete2() + noDatum + Rangee("1"));
  EXPECT_EQ(world.Boites().size(), 1U);
  EXPECT_EQ(world.Lignes(), Texts{});
  world.Charge(EnTete2() + Rangee("1") + Rangee("2") + noOriginal + Rangee("4"));
  const Texts boxes = world.Boites();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].rfind("Line 11 of the file ends before the original coordinates; ", 0), 0U)
      << boxes[0];
  EXPECT_EQ(world.Lignes(), (Texts{RangeeLue("1"), RangeeLue("2")}));
  EXPECT_EQ(LignesLiees(), world.Lignes()) << "the grid shows what stayed";
  EXPECT_FALSE(state.document.Fichier.EmpreinteFichier.has_value());
  ExpectFerme();
  world.Charge(EnTete2() + Rangee("5"));
  EXPECT_EQ(world.Lignes(), Texts{RangeeLue("5")});
}

TEST_F(LitDegTest, KeepsTheRowsBeforeAFaultOfTheDisk) {
  std::string bytes = EnTete2();
  for (int i = 0; i < 10; ++i) bytes += Rangee(std::to_string(i));
  world.files.bloc = 100;
  for (std::size_t end = 0; end < bytes.size(); end += 97) {
    world.files.lectureJusqua = end;
    world.Charge(bytes);
    const Texts boxes = world.Boites();
    ASSERT_EQ(boxes.size(), 1U) << end;
    EXPECT_NE(boxes[0].find("The disk or the device cannot be read"), std::string::npos)
        << boxes[0];
    const std::size_t header = EnTete2().size();
    const std::size_t row = Rangee().size();
    const std::size_t whole = end < header ? 0 : (end - header) / row;
    EXPECT_GE(world.Lignes().size() + 1, whole) << end;
    EXPECT_LE(world.Lignes().size(), whole) << end;
    ExpectFerme();
  }
  world.files.lectureJusqua.reset();
  world.Charge(bytes);
  EXPECT_EQ(world.Lignes().size(), 10U);
}

TEST_F(LitDegTest, KeepsTheRowsOfTheTableWhenAMergeFailsMidway) {
  world.Charge(EnTete2("WGS84", oneField) + Rangee("1", "a/b"));
  world.Charge(EnTete2("WGS84", oneField) + Rangee("2", "c/d") + "1K    1E39\r\n",
               MergeMode::Merge);
  EXPECT_EQ(world.Boites(),
            Texts{"Line 12 of the file: A number is too large for its place; correct it."});
  EXPECT_EQ(world.Lignes(), (Texts{RangeeLue("1", "a/b"), RangeeLue("2", "c/d")}));
  EXPECT_EQ(LignesLiees(), world.Lignes());
  ExpectFerme();
}

TEST_F(LitDegTest, SaysThatThereIsNoWorkingDatabase) {
  world.state.document.WorkingDb.reset();
  world.Charge(EnTete2() + Rangee("1"));
  EXPECT_EQ(world.Boites(),
            Texts{"This database cannot be found; look whether it was moved or renamed."});
}

}  // namespace
}  // namespace talpena
