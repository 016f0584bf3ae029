#include <gtest/gtest.h>

#include "coords/mgrs.h"
#include "coords/original_maker.h"
#include "coords/snap.h"
#include "store/record/input_boxes.h"
#include "store/record/record_world.h"

namespace talpena::test {
namespace {

struct QuitteEditBoxTest : ::testing::Test, RecordWorld {
  QuitteEditBoxTest() { Ligne({{"DATUM", "WGS84"}, {"LATITUDE", "1"}, {"LONGITUDE", "2"}}); }
  void ExigePoint(double latitude, double longitude, double tolerance = 1e-5) {
    EXPECT_NEAR(Val(ecran.ChampLatitude), latitude, tolerance);
    EXPECT_NEAR(Val(ecran.ChampLongitude), longitude, tolerance);
  }
  void ExigeSansPoint() {
    EXPECT_EQ(ecran.ChampLatitude, "+1");
    EXPECT_EQ(ecran.ChampLongitude, "+2");
    EXPECT_NE(ecran.avis.find("names no point"), std::string::npos) << ecran.avis;
    EXPECT_TRUE(dialogues.boxes.empty());
  }
  void SurWgs84() { Entete(state.document)->DatumFichier = state.Catalogue.DatumWgs84; }
};

TEST_F(QuitteEditBoxTest, ShowsWhatARecomputationOfOriginalGives) {
  OriginalMaker maker(state);
  for (int i = 0; i < CoordSystemCount; ++i) {
    const auto system = static_cast<CoordSystem>(i);
    for (int n = 0; n < 200; ++n) {
      const std::string original = maker.Original(system);
      SCOPED_TRACE(original);
      cmbSystem_Click(Contexte(), ecran, i);
      ecran.EditBox = {};
      ecran.ChampLatitude = ecran.ChampLongitude = "";
      RemplitBoites(ecran, original);
      QuitteEditBox(Contexte(), ecran, 2);

      double latitude = 0, longitude = 0;
      std::string code;
      DecodeOriginal(state, original, ecran.datum, latitude, longitude, code);
      ConvertitDatum(state.Catalogue, latitude, longitude, 0, latitude, longitude, ecran.datum,
                     state.document.Entete().DatumFichier);
      ASSERT_EQ(Val(ecran.ChampLatitude), CinqDecimales(latitude));
      ASSERT_EQ(Val(ecran.ChampLongitude), CinqDecimales(longitude));
      ASSERT_EQ(ecran.avis, "");
      ASSERT_EQ(Majuscules(OriginalDesBoites(ecran)), original);
    }
  }
}

TEST_F(QuitteEditBoxTest, WaitsUntilAllBoxesAreFilled) {
  cmbSystem_Click(Contexte(), ecran, 2);
  ecran.EditBox = {"31", "616000", ""};
  QuitteEditBox(Contexte(), ecran, 1);
  EXPECT_EQ(ecran.ChampLatitude, "+1");
  EXPECT_EQ(ecran.avis, "");
  ecran.EditBox[2] = "5564000";
  QuitteEditBox(Contexte(), ecran, 2);
  ExigePoint(50.2, 4.6, 0.1);
}

TEST_F(QuitteEditBoxTest, PutsTheTextRight) {
  SurWgs84();
  Tape(CoordSystem::Mgr, {" 31 ", "u", " fr 16 64 "});
  EXPECT_EQ(ecran.EditBox[0], "31");
  EXPECT_EQ(ecran.EditBox[1], "U");
  EXPECT_EQ(ecran.EditBox[2], "FR1664");
  Tape(CoordSystem::Deg, {"50,5", "\u00A04,25"});
  EXPECT_EQ(ecran.EditBox[1], "50.5");
  EXPECT_EQ(ecran.EditBox[2], "4.25");
  cmdChangeDatum_Click(Contexte(), ecran, "WGS84");
  ExigePoint(50.5, 4.25);
  Tape(CoordSystem::Utm, {"31", "616 000", "5 564 000"});
  EXPECT_EQ(ecran.EditBox[1], "616000");
}

TEST_F(QuitteEditBoxTest, ComputesEachNotation) {
  struct Case {
    CoordSystem system;
    std::vector<std::string> boxes;
    double latitude, longitude;
  };
  // Expected: DecodeOriginal's own published examples, moved to WGS84 by hand where needed.
  SurWgs84();
  const Case cases[] = {
      {CoordSystem::Deg, {"50.5", "4.25"}, 50.5, 4.25},
      {CoordSystem::Dms, {"50.2530", "3.5512"}, 50.425, 3.92},
      {CoordSystem::Dms, {"-50.2530", "-3.5512"}, -50.425, -3.92},
      {CoordSystem::Utm, {"31", "500000", "5538630"}, 50.0, 3.0},
      {CoordSystem::Utm, {"31", "500000", "-4461369"}, -50.0, 3.0},
  };
  for (const Case& c : cases) {
    Tape(c.system, c.boxes);
    if (ecran.lblDatum != "WGS84") cmdChangeDatum_Click(Contexte(), ecran, "WGS84");
    ExigePoint(c.latitude, c.longitude, 2e-5);
  }
  const Case moved[] = {
      {CoordSystem::Grp, {"54.3945", "1.3213"}, 48.955, 3.5264},
      {CoordSystem::Bng, {"SU", "1234"}, 51.107, -1.822},
      {CoordSystem::Itm, {"IO", "1534"}, 53.25, -6.28},
      {CoordSystem::Lmb, {"150000", "170000"}, 50.84, 4.37},
      {CoordSystem::Ifb, {"G3"}, 50.42, 3.95},
      {CoordSystem::Lf2, {"600000", "200000"}, 46.8, 2.337},
      {CoordSystem::Lfe, {"600000", "2200000"}, 46.8, 2.337},
      {CoordSystem::Nma, {"500000", "300000"}, 33.3, -5.4},
      {CoordSystem::Sma, {"500000", "300000"}, 29.7, -5.4},
  };
  for (const Case& c : moved) {
    SCOPED_TRACE(static_cast<int>(c.system));
    Tape(c.system, c.boxes);
    ExigePoint(c.latitude, c.longitude, 0.2);
    EXPECT_FALSE(ecran.ValeurLibre.empty());
    EXPECT_EQ(ecran.avis, "");
  }
}

TEST_F(QuitteEditBoxTest, TakesThreeHundredAndSixtyOffNationalLongitudes) {
  Tape(CoordSystem::Bng, {"SU", "1234"});
  EXPECT_EQ(ecran.ChampLongitude[0], '-');
  Tape(CoordSystem::Itm, {"IO", "1534"});
  EXPECT_EQ(ecran.ChampLongitude[0], '-');
}

TEST_F(QuitteEditBoxTest, RefusesAnOddNumberOfMgrsDigits) {
  state.Silence = false;
  Tape(CoordSystem::Mgr, {"31", "U", "FR166"});
  EXPECT_EQ(Boites(), (Lines{"Invalid UTM"}));
  EXPECT_EQ(sound.bips, 1);
  EXPECT_EQ(ecran.focus, RecordField::EditBox2);
  EXPECT_EQ(ecran.ChampLatitude, "+1");
  state.Silence = true;
  QuitteEditBox(Contexte(), ecran, 0);
  EXPECT_EQ(Boites(), (Lines{"Invalid UTM"}));
  EXPECT_EQ(sound.bips, 1);
}

TEST_F(QuitteEditBoxTest, StopsAtAZeroZoneOrEasting) {
  Tape(CoordSystem::Utm, {"0", "616000", "5564000"});
  ExigeSansPoint();
  Tape(CoordSystem::Utm, {"31", "0", "5564000"});
  ExigeSansPoint();
}

TEST_F(QuitteEditBoxTest, LeavesThePointForAReferenceThatNamesNone) {
  struct Case {
    CoordSystem system;
    std::vector<std::string> boxes;
    const char* failure;
  };
  const Case cases[] = {
      {CoordSystem::Mgr, {"32", "X", "FR1664"}, "INVALID MGRS"},
      {CoordSystem::Mgr, {"31", "Y", "FR1664"}, "INVALID MGRS"},
      {CoordSystem::Mgr, {"31", "U", "AA1664"}, "OUTSIDE RANGE"},
      {CoordSystem::Mgr, {"31", "U", "FR"}, ""},
      {CoordSystem::Mgr, {"31", "U", "FR123456123456"}, ""},
      {CoordSystem::Bng, {"ZZ", "1234"}, ""},
      {CoordSystem::Bng, {"SU", "123"}, ""},
      {CoordSystem::Bng, {"SU", "12A4"}, ""},
      {CoordSystem::Itm, {"II", "1234"}, ""},
      {CoordSystem::Lmb, {"0", "128963"}, ""},
      {CoordSystem::Ifb, {"I3"}, ""},
      {CoordSystem::Ifb, {"G33"}, ""},
      {CoordSystem::Ifb, {"G39915"}, ""},
      {CoordSystem::Lf2, {"600000", "0"}, ""},
      {CoordSystem::Deg, {"5000", "4"}, ""},
      {CoordSystem::Deg, {"1E400", "4"}, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.boxes.back());
    Tape(c.system, c.boxes);
    ExigeSansPoint();
    EXPECT_EQ(ecran.avis.find(c.failure), 0U) << ecran.avis;
  }
  Tape(CoordSystem::Mgr, {"31", "U", "FR1664"});
  EXPECT_EQ(ecran.avis, "") << "a good reference";
  EXPECT_NE(ecran.ChampLatitude, "+1");
}

TEST_F(QuitteEditBoxTest, AnotherSystemAndAnotherRowClearTheHint) {
  Tape(CoordSystem::Ifb, {"I3"});
  EXPECT_NE(ecran.avis, "");
  cmbSystem_Click(Contexte(), ecran, 0);
  EXPECT_EQ(ecran.avis, "");
  Tape(CoordSystem::Ifb, {"I3"});
  RempliDessus(Contexte(), ecran);
  EXPECT_EQ(ecran.avis, "");
}

TEST_F(QuitteEditBoxTest, SaysThatATextIsNoNumber) {
  SurWgs84();
  Tape(CoordSystem::Deg, {"50°12", "N4"});
  ExigePoint(50, 0, 0.01);
  EXPECT_EQ(ecran.avis, "“50°12” is not a number: it counts as 50.");
}

TEST_F(QuitteEditBoxTest, MarksTheFormOnlyWhenThePointChanges) {
  SurWgs84();
  Tape(CoordSystem::Deg, {"50.5", "4.25"});
  cmdChangeDatum_Click(Contexte(), ecran, "WGS84");
  ecran.modifie = ecran.ButOk = false;
  QuitteEditBox(Contexte(), ecran, 1);
  EXPECT_FALSE(ecran.modifie);
  ecran.EditBox[1] = "50.6";
  QuitteEditBox(Contexte(), ecran, 1);
  EXPECT_TRUE(ecran.modifie);
  EXPECT_TRUE(ecran.ButOk);
}

TEST_F(QuitteEditBoxTest, LeavesASnappedPointWhereItIs) {
  Ouvre({{{"PERIOD", "1"},
          {"DATUM", "WGS84"},
          {"ORIGINAL", "deg 50,53 4,27"},
          {"LATITUDE", "50.5"},
          {"LONGITUDE", "4.25"}}});
  state.document.Data1.recordset().MoveLast();
  RempliDessus(Contexte(), ecran);
  for (int box = 1; box <= 2; ++box) QuitteEditBox(Contexte(), ecran, box);
  EXPECT_EQ(ecran.ChampLatitude + " " + ecran.ChampLongitude, "+50.5 +4.25");
  EXPECT_FALSE(ecran.modifie);
  ecran.EditBox[1] = "50.54";
  QuitteEditBox(Contexte(), ecran, 1);
  EXPECT_NEAR(std::stod(ecran.ChampLatitude), 50.54, 0.01);
  EXPECT_NE(ecran.ChampLongitude, "+4.25");
  EXPECT_TRUE(ecran.modifie);
}

TEST_F(QuitteEditBoxTest, ComputesAPointThatTheRowLacks) {
  Ouvre({{{"PERIOD", "1"}, {"DATUM", "EUR-M"}, {"ORIGINAL", "deg 50.53 4.27"}}});
  state.document.Data1.recordset().MoveLast();
  RempliDessus(Contexte(), ecran);
  QuitteEditBox(Contexte(), ecran, 2);
  EXPECT_EQ(ecran.ChampLatitude + " " + ecran.ChampLongitude, "+50.53 +4.27");
}

TEST_F(QuitteEditBoxTest, IgnoresABoxThatIsNone) {
  QuitteEditBox(Contexte(), ecran, 3);
  QuitteEditBox(Contexte(), ecran, -1);
  EXPECT_EQ(ecran.ChampLatitude, "+1");
}

struct AfficheControleTest : ::testing::Test, RecordWorld {
  AfficheControleTest() {
    Entete(state.document)->DatumFichier = state.Catalogue.DatumWgs84;
    Ligne({{"DATUM", "WGS84"}});
  }
  void Montre(const std::string& latitude, const std::string& longitude) {
    ecran.ChampLatitude = latitude;
    ecran.ChampLongitude = longitude;
    AfficheControle(Contexte(), ecran);
  }
};

TEST_F(AfficheControleTest, ShowsPlainNumbersWithASign) {
  Montre(" 50,50 ", "-003.5");
  EXPECT_EQ(ecran.ChampLatitude, "+50.5");
  EXPECT_EQ(ecran.ChampLongitude, "-3.5");
  Montre("+.5", "-0");
  EXPECT_EQ(ecran.ChampLatitude, "+0.5");
  EXPECT_EQ(ecran.ChampLongitude, "+0");
  Montre("+50.", "");
  EXPECT_EQ(ecran.ChampLatitude, "+50");
  EXPECT_EQ(ecran.ChampLongitude, "");
}

TEST_F(AfficheControleTest, ShowsDegreesMinutesSeconds) {
  Montre("50.425", "-0.5");
  EXPECT_EQ(ecran.ValeurDMS, "50° 25' 30.0''\n-0° 30' 00.0''");
  Montre("-3.92", "3");
  EXPECT_EQ(ecran.ValeurDMS, "-3° 55' 12.0''\n3° 0' 00.0''");
}

TEST_F(AfficheControleTest, ShowsUtmAndMgrs) {
  Montre("50", "3");
  EXPECT_EQ(ecran.ValeurUtmMetrique, "E=500000   N=5538631");
  EXPECT_EQ(ecran.ValeurUtmAlpha, "31 U ER0000038631");
  Montre("50", "-150");
  EXPECT_EQ(ecran.ValeurUtmAlpha.substr(0, 4), " 6 U");
}

TEST_F(AfficheControleTest, ShowsUtmOnTheDatumOfTheRow) {
  Montre("50", "3");
  const std::string wgs84 = ecran.ValeurUtmMetrique;
  ecran.datum = state.Catalogue.DatumEur;
  Montre("50", "3");
  EXPECT_NE(ecran.ValeurUtmMetrique, wgs84);
}

TEST_F(AfficheControleTest, ShowsTheTextOfFailureInThePolarRegions) {
  Montre("85", "3");
  EXPECT_EQ(ecran.ValeurUtmAlpha, "N    POLAR REGION");
  EXPECT_EQ(ecran.ValeurUtmMetrique, "");
  Montre("-85", "3");
  EXPECT_EQ(ecran.ValeurUtmAlpha, "S    POLAR REGION");
  EXPECT_FALSE(ecran.ValeurDMS.empty());
}

TEST_F(AfficheControleTest, ShowsNoUtmAtZero) {
  Montre("0", "0");
  EXPECT_EQ(ecran.ValeurUtmAlpha + ecran.ValeurUtmMetrique, "");
  EXPECT_EQ(ecran.ValeurDMS, "0° 0' 00.0''\n0° 0' 00.0''");
}

TEST_F(AfficheControleTest, ShowsTheReferenceInTheInputSystem) {
  for (const auto& [system, boxes] :
       {std::pair<CoordSystem, std::vector<std::string>>{CoordSystem::Lmb, {"112568", "128963"}},
        {CoordSystem::Lf1, {"600123", "200456"}},
        {CoordSystem::Lfe, {"600123", "2200456"}},
        {CoordSystem::Sma, {"500123", "300456"}},
        {CoordSystem::Ifb, {"G33643"}}}) {
    Tape(system, boxes);
    std::string joined;
    for (const std::string& box : boxes) joined += (joined.empty() ? "" : " ") + box;
    EXPECT_EQ(ecran.ValeurLibre, joined);
    EXPECT_TRUE(ecran.valeurLibreVisible);
  }
  Tape(CoordSystem::Deg, {"50", "4"});
  EXPECT_EQ(ecran.ValeurLibre, "");
  EXPECT_FALSE(ecran.valeurLibreVisible);
}

TEST_F(AfficheControleTest, IsEmptyOutsideAGridAndForNoPoint) {
  cmbSystem_Click(Contexte(), ecran, static_cast<int>(CoordSystem::Bng));
  Montre("-33", "18");
  EXPECT_EQ(ecran.ValeurLibre, "");
  EXPECT_FALSE(ecran.ValeurUtmAlpha.empty());
  Montre("1E300", "18");
  EXPECT_EQ(ecran.ValeurUtmAlpha, "");
  Montre("", "18");
  EXPECT_EQ(ecran.ValeurDMS + ecran.ValeurUtmAlpha + ecran.ValeurUtmMetrique, "");
  Montre("1E999", "18");
  EXPECT_EQ(ecran.ValeurDMS, "");
  EXPECT_EQ(ecran.ChampLatitude, "1E999");
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(AfficheControleTest, SurvivesACatalogueWithoutTheDatum) {
  ecran.datum = 0;
  Montre("50", "3");
  EXPECT_EQ(ecran.ValeurUtmAlpha, "");
  EXPECT_FALSE(ecran.ValeurDMS.empty());
}

}  // namespace
}  // namespace talpena::test
