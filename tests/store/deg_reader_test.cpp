#include "store/deg_reader.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "store/deg_files.h"
#include "store/lit_deg_fixture.h"

namespace talpena {
namespace {

using test::EnTete2;
using test::FinEnTete;
using test::LitDegTest;
using test::oneField;
using test::Rangee;
using test::RangeeLue;
using Texts = std::vector<std::string>;

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

}  // namespace
}  // namespace talpena
