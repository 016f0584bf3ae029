#include "coord_commands/adjust.h"

#include <gtest/gtest.h>

#include "coords/snap.h"
#include "store/coords_world.h"

namespace talpena {
namespace {

using test::CoordsWorld;
using test::Lines;

std::string faulty(const std::string& count) {
  return "Rows whose coordinates name no place: " + count +
         ". They keep their point and are now selected in the table, so that they can be put right."
         "\n";
}

TEST(AjusteDegres, RecomputesFromOriginal) {
  CoordsWorld w;
  w.Montre({{"WGS84", "deg +50.50000 +004.25000"}, {"WGS84", " utm 31 500000 5000000 "}});
  AjusteDegres(w.Contexte(), SansMaille, SansMaille);
  EXPECT_EQ(w.Points(), (Lines{"50.5 4.25", "45.15348 3"}));
  EXPECT_TRUE(w.state.document.FichierModifie());
}

TEST(AjusteDegres, MovesToTheDatumOfTheFile) {
  CoordsWorld w;
  test::Entete(w.state.document)->DatumFichier = w.state.Catalogue.DatumEur;
  w.Montre({{"WGS84", "deg 50.5 4.25"}});
  AjusteDegres(w.Contexte(), SansMaille, SansMaille);
  EXPECT_EQ(w.Points(), (Lines{"50.50085 4.25129"}));
}

TEST(AjusteDegres, SnapsToTheMeshes) {
  CoordsWorld w;
  w.Montre({{"WGS84", "deg -0.1 0.1"}, {"WGS84", "deg 0.1 -0.1"}});
  AjusteDegres(w.Contexte(), 0.5, SansMaille);
  EXPECT_EQ(w.Points(), (Lines{"-0.25 0.1", "0.25 -0.1"}));
}

TEST(AjusteDegres, KeepsRowsWithoutOriginalAndThoseItCannotRead) {
  CoordsWorld w;
  w.Montre({{"WGS84", ""},
            {"WGS84", "xyz 1 2"},
            {"WGS84", "utm 31 0 5500000"},
            {"WGS84", "lmb 0 128963"}});
  AjusteDegres(w.Contexte(), SansMaille, SansMaille);
  EXPECT_EQ(w.Points(), (Lines{"1 2", "1 2", "1 2", "1 2"}));
  EXPECT_FALSE(w.state.document.FichierModifie());
}

TEST(AjusteDegres, ReadsABlankDatumAsWgs84) {
  CoordsWorld w;
  test::Entete(w.state.document)->DatumFichier = w.state.Catalogue.DatumEur;
  w.Montre({{"", "deg 50.5 4.25"}, {"     ", "deg 50.5 4.25"}, {"wgs84", "deg 50.5 4.25"}});
  AjusteDegres(w.Contexte(), SansMaille, SansMaille);
  EXPECT_EQ(w.Points(), (Lines{"50.50085 4.25129", "50.50085 4.25129", "50.50085 4.25129"}));
}

TEST(AjusteDegres, TellsUnknownDatumsOnce) {
  CoordsWorld w;
  w.Montre(
      {{"QQQ", "deg 50.5 4.25"}, {"qqq", "deg 1.5 1"}, {"ZZZ", "deg 1.5 1"}, {"WGS84", "deg 7 8"}});
  AjusteDegres(w.Contexte(), SansMaille, SansMaille);
  EXPECT_EQ(w.Points(), (Lines{"1 2", "1 2", "1 2", "7 8"}));
  EXPECT_EQ(w.Boites(), (Lines{"This datum is absent from the available datums!\n\nQQQ, ZZZ"}));
}

TEST(AjusteDegres, TellsThatTheFilesDatumIsUnknown) {
  CoordsWorld w;
  test::Entete(w.state.document)->DatumFichier = 0;
  test::Entete(w.state.document)->DatumFichierCode = "NONE";
  w.Montre({{"WGS84", "deg 50.5 4.25"}});
  AjusteDegres(w.Contexte(), SansMaille, SansMaille);
  EXPECT_EQ(w.Points(), (Lines{"1 2"}));
  EXPECT_EQ(w.Boites(), (Lines{"This datum is absent from the available datums!\n\nNONE"}));
}

// A latitude of 50412 degrees has no radius of curvature.
TEST(AjusteDegres, LeavesARowThatTheArithmeticHasNoResultFor) {
  CoordsWorld w;
  test::Entete(w.state.document)->DatumFichier = w.state.Catalogue.DatumEur;
  w.state.Silence = false;
  w.Montre({{"EUR-M", "deg 5 6"}, {"WGS84", "deg 50412 3921"}, {"EUR-M", "deg 7 8"}});
  AjusteDegres(w.Contexte(), SansMaille, SansMaille);
  EXPECT_EQ(w.Points(), (Lines{"5 6", "1 2", "7 8"}));
  EXPECT_EQ(w.Boites(),
            (Lines{faulty("1") + "\nRow 2: deg 50412 3921 (the latitude 50412° lies beyond 90°)"}));
  EXPECT_EQ(w.vue.selection, (std::vector<Bookmark>{2}));
  EXPECT_TRUE(w.state.document.FichierModifie());
  EXPECT_FALSE(w.vue.grilleGelee);
  EXPECT_FALSE(w.vue.sablier);
  EXPECT_FALSE(w.vue.barre);
  EXPECT_EQ(w.sound.bips, 1);
}

TEST(AjusteDegres, WalksTheRowsThatTheGridShows) {
  CoordsWorld w;
  w.Montre({{"WGS84", "deg 50 4", "1"}, {"WGS84", "deg 51 4", "20"}, {"WGS84", "deg 52 4", "30"}});
  test::MontreSelect(w.state.document,
                     "SELECT * FROM TALPENA WHERE LATITUDE > 10 ORDER BY LATITUDE DESC");
  AjusteDegres(w.Contexte(), SansMaille, SansMaille);
  EXPECT_EQ(w.Points(), (Lines{"1 2", "51 4", "52 4"}));
}

TEST(AjusteDegres, ShowsProgressAndBeeps) {
  CoordsWorld w;
  w.state.Silence = false;
  w.Montre({{"WGS84", "deg 50 4"}});
  int shown = 0;
  const Subscription observed =
      test::ObserveLignes(w.state.document, [&](DataControl::Change change) {
        if (change == DataControl::Change::Values) ++shown;
      });
  AjusteDegres(w.Contexte(), SansMaille, SansMaille);
  EXPECT_EQ(w.vue.progression, (std::vector<int>{100, 0}));
  EXPECT_EQ(w.sound.bips, 1);
  EXPECT_EQ(shown, 1);
}

TEST(AjusteDegres, DoesNothingWithoutAnOpenTable) {
  CoordsWorld w;
  AjusteDegres(w.Contexte(), SansMaille, SansMaille);
  EXPECT_TRUE(w.vue.progression.empty());
}

TEST(AjusteDegres, StoresFiveDecimals) {
  CoordsWorld w;
  w.Montre({{"WGS84", "deg 50.123456 4.0000078"}});
  AjusteDegres(w.Contexte(), SansMaille, SansMaille);
  EXPECT_EQ(w.Points(), (Lines{"50.12346 4.00001"}));
}

TEST(AjusteGrades, SnapsRows) {
  CoordsWorld w;
  test::Entete(w.state.document)->DatumFichier = ChercheDatum(w.state.Catalogue, "NTF");
  w.Montre({{"NTF", "grp +55.55000 +002.10000"}});
  mnuAjustGrid_Click(w.Contexte(), w.vue, 2);
  EXPECT_EQ(w.Points(), (Lines{"49.95 4.13722"}));
}

TEST(AjusteCoor, EndsOnCancel) {
  CoordsWorld w;
  w.vue.ajustement = false;
  w.Montre({{"WGS84", "deg 50 4"}});
  mnuAjustGrid_Click(w.Contexte(), w.vue, 0);
  EXPECT_EQ(w.Points(), (Lines{"1 2"}));
}

TEST(AjusteCoor, SnapsToTheMeshOfTheDialog) {
  CoordsWorld w;
  w.state.UtmAjust = 4;
  w.Montre({{"WGS84", "mgr 31 U ES12346789"}, {"WGS84", "utm 31 512345 5667890"}});
  mnuAjustGrid_Click(w.Contexte(), w.vue, 0);
  const Lines points = w.Points();
  EXPECT_EQ(points[0], points[1]);
  EXPECT_EQ(points[0].substr(0, 4), "51.1");
}

TEST(AjusteCoor, OpensOnTheSettingsAndKeepsTheChoice) {
  CoordsWorld w;
  struct Choosing : AdjustDialogs {
    explicit Choosing(StoreState& s) : state(s) {}
    bool MontreAjustement() override {
      opened = {state.MailleChoisie, state.GrilleChoisie};
      state.MailleChoisie = 7;
      state.GrilleChoisie = 2;
      return true;
    }
    StoreState& state;
    std::pair<int, int> opened;
  } vue(w.state);
  w.state.UtmAjust = 3;
  AjusteCoor(w.Contexte(), vue);
  EXPECT_EQ(vue.opened, (std::pair{3, 1}));  // a grid of 0 is none: UTM
  EXPECT_EQ(w.state.UtmAjust, 7);
  EXPECT_EQ(w.state.GridAjust, 2);
  AjusteCoor(w.Contexte(), vue);
  EXPECT_EQ(vue.opened, (std::pair{7, 2}));
}

TEST(MnuAjustGrid, AsksForBothMeshes) {
  CoordsWorld w;
  w.dialogues.inputs = {"-0,5", "999"};
  w.Montre({{"WGS84", "deg -0.1 0.1"}});
  mnuAjustGrid_Click(w.Contexte(), w.vue, 1);
  EXPECT_EQ(w.Points(), (Lines{"-0.25 0.1"}));
  ASSERT_EQ(w.dialogues.asked.size(), 2U);
  EXPECT_EQ(w.dialogues.asked[0].prompt,
            "Adjust LATITUDES each ... (in decimal degrees Greenwich)");
  EXPECT_EQ(w.dialogues.asked[0].title, "Adjusting to decimal degrees Greenwich ");
  EXPECT_EQ(w.dialogues.asked[1].prompt,
            "Adjust LONGITUDES each ... (in decimal degrees Greenwich)");
  EXPECT_EQ(w.dialogues.asked[1].title, "LoadResString(167 + Langue)");
}

TEST(MnuAjustGrid, IsCancelledByZero) {
  for (const auto& inputs : {std::deque<std::string>{"0"}, {""}, {"abc"}, {"1", "0"}, {"1", ""}}) {
    CoordsWorld w;
    w.dialogues.inputs = inputs;
    w.Montre({{"WGS84", "deg 50 4"}});
    mnuAjustGrid_Click(w.Contexte(), w.vue, 1);
    EXPECT_EQ(w.Points(), (Lines{"1 2"}));
    EXPECT_TRUE(w.dialogues.inputs.empty());
  }
}

TEST(MnuAjustGrid, AsksAgainOutsideTheBounds) {
  CoordsWorld w;
  w.state.Silence = false;
  w.dialogues.inputs = {"90", "100", "-91", "1", "2"};
  w.Montre({{"WGS84", "deg 50.2 4.2"}});
  mnuAjustGrid_Click(w.Contexte(), w.vue, 1);
  EXPECT_EQ(w.Points(), (Lines{"50.5 5"}));
  EXPECT_EQ(w.sound.bips, 4);  // three refusals and the end
}

// The longitude's upper bound looks at the latitude's mesh.
TEST(MnuAjustGrid, TakesALongitudeMeshOf200) {
  CoordsWorld w;
  w.dialogues.inputs = {"1", "200"};
  w.Montre({{"WGS84", "deg 50.2 4.2"}});
  mnuAjustGrid_Click(w.Contexte(), w.vue, 1);
  EXPECT_EQ(w.Points(), (Lines{"50.5 100"}));
}

TEST(MnuAjustGrid, RefusesAnyLongitudeMeshBesideALatitudeOf999) {
  CoordsWorld w;
  w.dialogues.inputs = {"999", "1", "2", "999"};
  w.Montre({{"WGS84", "deg 50.2 4.2"}});
  mnuAjustGrid_Click(w.Contexte(), w.vue, 1);
  EXPECT_EQ(w.Points(), (Lines{"50.2 4.2"}));
  EXPECT_TRUE(w.dialogues.inputs.empty());
}

TEST(MnuAjustIfbl, SnapsToTheSquares) {
  for (const auto& [index, expected] : {std::pair{0, 2}, {1, 4}, {2, 6}}) {
    CoordsWorld w;
    test::Entete(w.state.document)->DatumFichier = ChercheDatum(w.state.Catalogue, "BEL72");
    w.Montre(
        {{"BEL72", "ifb G33643"},
         {"BEL72", std::string("ifb G33643").substr(0, 4 + static_cast<std::size_t>(expected))}});
    mnuAjustIFBL_Click(w.Contexte(), index);
    EXPECT_EQ(w.Points()[0], w.Points()[1]);
    EXPECT_NE(w.Points()[0], "1 2");
  }
}

TEST(ChangeDatumFichier, RecomputesAllRows) {
  CoordsWorld w;
  w.state.document.AjusteGrille();
  w.Montre({{"WGS84", "deg 50.5 4.25"}});
  ChangeDatumFichier(w.Contexte(), "EUR-M");
  EXPECT_EQ(w.Points(), (Lines{"50.50085 4.25129"}));
  EXPECT_EQ(w.state.document.Entete().DatumFichierCode, "EUR-M");
  EXPECT_EQ(w.vue.panneauDatum, "EUR-M");
  EXPECT_TRUE(w.state.document.FichierModifie());
  ChangeDatumFichier(w.Contexte(), "WGS84");
  EXPECT_EQ(w.Points(), (Lines{"50.5 4.25"}));
}

TEST(ChangeDatumFichier, RefusesAnUnknownCode) {
  CoordsWorld w;
  w.Montre({{"WGS84", "deg 50.5 4.25"}});
  ChangeDatumFichier(w.Contexte(), "QQQ");
  EXPECT_EQ(w.state.document.Entete().DatumFichierCode, "WGS84");
  EXPECT_EQ(w.Boites(), (Lines{"This datum is absent from the available datums!\n\nQQQ"}));
}

TEST(ChangeDatumFichier, LeavesTheRowsWhileNoGridIsShown) {
  CoordsWorld w;
  w.Montre({{"WGS84", "deg 50.5 4.25"}});
  ChangeDatumFichier(w.Contexte(), "EUR-M");
  EXPECT_EQ(w.Points(), (Lines{"1 2"}));
}

TEST(ChangeDatumFichier, ComputesAllRowsButOneThatIsNoPlace) {
  CoordsWorld w;
  w.state.document.AjusteGrille();
  test::Entete(w.state.document)->DatumFichierCode = "EUR-M";
  test::Entete(w.state.document)->DatumFichier = w.state.Catalogue.DatumEur;
  w.Montre({{"EUR-M", "deg 50.50085 4.25129"},
            {"EUR-M", "deg 5041.234 3.9"},
            {"EUR-M", "deg 50.50085 4.25129"},
            {"EUR-M", "deg 50.50085 4.25129"}});
  ChangeDatumFichier(w.Contexte(), "WGS84");
  EXPECT_EQ(w.Points(), (Lines{"50.5 4.25", "1 2", "50.5 4.25", "50.5 4.25"}));
  EXPECT_EQ(w.state.document.Entete().DatumFichierCode, "WGS84");
  EXPECT_EQ(w.Boites(),
            (Lines{faulty("1") + "\nRow 2: deg 5041.234 3.9 (the latitude 5041.234° lies beyond "
                                 "90°)"}));
  EXPECT_EQ(w.vue.selection, (std::vector<Bookmark>{2}));
}

// A datum whose ellipsoid the catalogue lacks stands for a failure in the middle of the rows.
TEST(ChangeDatumFichier, IsTakenBackAsAWholeByAFailure) {
  CoordsWorld w;
  w.state.document.AjusteGrille();
  w.state.Catalogue.Datums.push_back({0, 0, 0, 0, 0, 9999, "BROKE", "", "", 1});
  w.Montre({{"WGS84", "deg 50.5 4.25"}, {"BROKE", "deg 50.5 4.25"}, {"WGS84", "deg 50.5 4.25"}});
  ChangeDatumFichier(w.Contexte(), "EUR-M");
  EXPECT_EQ(w.Points(), (Lines{"1 2", "1 2", "1 2"}));
  EXPECT_EQ(w.state.document.Entete().DatumFichierCode, "WGS84");
  EXPECT_EQ(w.state.document.Entete().DatumFichier, w.state.Catalogue.DatumWgs84);
  EXPECT_FALSE(w.state.document.FichierModifie());
  EXPECT_EQ(w.Boites().size(), 1U);
  EXPECT_FALSE(w.vue.grilleGelee);
}

TEST(ChangeDatumFichier, TellsRowsThatTheFilterHides) {
  CoordsWorld w;
  w.state.document.AjusteGrille();
  w.Montre({{"WGS84", "deg 95 4", "1"}, {"WGS84", "deg 50 4", "20"}, {"WGS84", "deg 96 4", "20"}});
  w.state.document.MontreLignes(RowsShown::Filtrees("LATITUDE > 10"));
  ChangeDatumFichier(w.Contexte(), "EUR-M");
  EXPECT_EQ(w.Points()[0], "1 2");
  EXPECT_EQ(w.Boites(),
            (Lines{faulty("2") + "\nRow 2: deg 96 4 (the latitude 96° lies beyond 90°)"
                                 "\nRow not shown: deg 95 4 (the latitude 95° lies beyond 90°)"}));
  EXPECT_EQ(w.state.document.Data1.recordset().RecordCount(), 2);
}

}  // namespace
}  // namespace talpena
