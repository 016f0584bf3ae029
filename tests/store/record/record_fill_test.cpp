#include <gtest/gtest.h>

#include "store/record/record_world.h"

namespace talpena::test {
namespace {

struct RempliDessusTest : ::testing::Test, RecordWorld {};

using Boxes = std::array<std::string, 3>;

TEST_F(RempliDessusTest, ShowsTheFieldsOfTheRow) {
  DefinitChampsLibres({"Toponyme ", " Altitude"});
  Ouvre({{{"PERIOD", "2"},
          {"LATITUDE", "50.12345"},
          {"LONGITUDE", "-4.5"},
          {"N1", "7"},
          {"N2", "-8"},
          {"SEX", "M"},
          {"DATUM", "WGS84"},
          {"ORIGINAL", "mgr 31 u fr1664"},
          {"DATE", "1998/07/  "},
          {"COMMENT", "Lac/450/sous écorce\nde hêtre"}},
         {}});
  EXPECT_EQ(ecran.ChampPeriode, "2");
  EXPECT_EQ(ecran.ChampLatitude, "+50.12345");
  EXPECT_EQ(ecran.ChampLongitude, "-4.5");
  EXPECT_EQ(ecran.ChampCh1, "7");
  EXPECT_EQ(ecran.ChampCh2, "-8");
  EXPECT_EQ(ecran.ChampSex, "M");
  EXPECT_EQ(ecran.ChampAnnee, "1998/07/__");
  EXPECT_EQ(ecran.lblDatum, "WGS84");
  EXPECT_EQ(ecran.datum, state.Catalogue.DatumWgs84);
  EXPECT_EQ(ecran.EditBox, (Boxes{"31", "U", "FR1664"}));
  EXPECT_EQ(ecran.Grid, (std::vector<std::string>{"Lac", "450"}));
  EXPECT_EQ(ecran.ChampLibre, "sous écorce\r\nde hêtre");
  EXPECT_EQ(ecran.lblCpt, "1/2");
  EXPECT_EQ(ecran.lblSysteme, "mgr");
  EXPECT_FALSE(ecran.modifie);
  EXPECT_FALSE(ecran.ButOk);
  EXPECT_EQ(ecran.avis, "");
  EXPECT_FALSE(ecran.ValeurDMS.empty()) << "the control notations are those of the row";
  EXPECT_EQ(EtiquettesChampsLibres(state), (std::vector<std::string>{"Toponyme", " Altitude"}));
}

TEST_F(RempliDessusTest, LeavesTheFieldsOfAnEmptyRowEmpty) {
  ecran.ChampPeriode = ecran.ChampSex = ecran.ChampLibre = ecran.avis = "rest";
  ecran.modifie = true;
  Ouvre({{}});
  EXPECT_EQ(ecran.ChampPeriode + ecran.ChampLatitude + ecran.ChampLongitude + ecran.ChampCh1 +
                ecran.ChampCh2 + ecran.ChampSex + ecran.ChampLibre + ecran.avis,
            "");
  EXPECT_EQ(ecran.ChampAnnee, "____/__/__");
  EXPECT_EQ(ecran.EditBox, Boxes{});
  EXPECT_EQ(ecran.ValeurDMS + ecran.ValeurUtmMetrique + ecran.ValeurUtmAlpha + ecran.ValeurLibre,
            "");
  EXPECT_FALSE(ecran.modifie);
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(RempliDessusTest, IsEmptyWithoutRowsAndWithoutAFile) {
  RempliDessus(Contexte(), ecran);
  EXPECT_EQ(ecran.lblCpt, "");
  EXPECT_EQ(ecran.ChampPeriode, "");
  Ouvre({});
  EXPECT_EQ(ecran.lblCpt, "0/0");
  EXPECT_EQ(ecran.ChampPeriode, "");
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(RempliDessusTest, TakesTheDefaultDatumForARowWithoutOne) {
  state.DatumSpheriqueCode = "NTF";
  Ligne();
  EXPECT_EQ(ecran.lblDatum, "NTF");
  EXPECT_EQ(ecran.datum, Indice("NTF"));
}

TEST_F(RempliDessusTest, TellsAnUnknownDatumOnceAndTakesWgs84) {
  Ligne({{"DATUM", "QQQ"}, {"ORIGINAL", "deg 50 4"}});
  EXPECT_EQ(Boites(), (Lines{"QQQ\rThis datum is absent from the available datums!"}));
  EXPECT_EQ(ecran.lblDatum, "WGS84");
  EXPECT_EQ(ecran.datum, state.Catalogue.DatumWgs84);
  RempliDessus(Contexte(), ecran);
  EXPECT_TRUE(Boites().empty()) << "the same row";
}

TEST_F(RempliDessusTest, TellsAnUnknownDatumOfEachRow) {
  Ouvre({{{"PERIOD", "1"}, {"DATUM", "QQQ"}}, {{"PERIOD", "1"}, {"DATUM", "QQQ"}}});
  cmdNavig_Click(Contexte(), ecran, 0);
  EXPECT_EQ(Boites().size(), 2U);
  cmdNavig_Click(Contexte(), ecran, 1);
  EXPECT_EQ(Boites().size(), 1U);
}

struct OriginalCase {
  const char* original;
  CoordSystem system;
  Boxes boxes;
  const char* datum;
};

TEST_F(RempliDessusTest, SplitsOriginalByItsSystem) {
  const OriginalCase cases[] = {
      {"deg +50.41234 +003.92120", CoordSystem::Deg, {"", "+50.41234", "+003.92120"}, "WGS84"},
      {"dms +50.2530 +003.5512", CoordSystem::Dms, {"", "+50.2530", "+003.5512"}, "WGS84"},
      {"utm 31 616000 5564000", CoordSystem::Utm, {"31", "616000", "5564000"}, "WGS84"},
      {"mgr 31 U ES12345678", CoordSystem::Mgr, {"31", "U", "ES12345678"}, "WGS84"},
      {"grp +54.39450 +001.32130", CoordSystem::Grp, {"", "+54.39450", "+001.32130"}, "NTF"},
      {"bng su 12345678", CoordSystem::Bng, {"", "SU", "12345678"}, "OGB-M"},
      {"itm IL 2354", CoordSystem::Itm, {"", "IL", "2354"}, "IRL"},
      {"lmb 112568 128963", CoordSystem::Lmb, {"", "112568", "128963"}, "BEL72"},
      {" ifb G3 36 43", CoordSystem::Ifb, {"", "", "G33643"}, "BEL72"},
      {"lf1 600000 200000", CoordSystem::Lf1, {"", "600000", "200000"}, "NTF"},
      {"lf2 600000 200000", CoordSystem::Lf2, {"", "600000", "200000"}, "NTF"},
      {"lf3 600000 200000", CoordSystem::Lf3, {"", "600000", "200000"}, "NTF"},
      {"lf4 600000 200000", CoordSystem::Lf4, {"", "600000", "200000"}, "NTF"},
      {"lfe 600000 2200000", CoordSystem::Lfe, {"", "600000", "2200000"}, "NTF"},
      {"nma 500000 300000", CoordSystem::Nma, {"", "500000", "300000"}, "MER"},
      {"sma 500000 300000", CoordSystem::Sma, {"", "500000", "300000"}, "MER"},
  };
  std::vector<Fields> rows;
  for (const OriginalCase& c : cases)
    rows.push_back({{"DATUM", "WGS84"}, {"ORIGINAL", c.original}});
  Ouvre(rows);
  for (const OriginalCase& c : cases) {
    SCOPED_TRACE(c.original);
    EXPECT_EQ(ecran.system, c.system);
    EXPECT_EQ(state.InputMode, static_cast<int>(c.system));
    EXPECT_EQ(ecran.EditBox, c.boxes);
    EXPECT_EQ(ecran.lblDatum, c.datum);
    EXPECT_EQ(ecran.datum, Indice(c.datum));
    cmdNavig_Click(Contexte(), ecran, 0);
  }
}

TEST_F(RempliDessusTest, KeepsTheModeForAnOriginalThatItCannotSplit) {
  state.InputMode = 2;
  Ouvre({{{"ORIGINAL", "xyz 1 2"}}, {{"ORIGINAL", "mgr 31U ES1234"}}});
  EXPECT_EQ(ecran.system, CoordSystem::Utm);
  EXPECT_EQ(ecran.EditBox, Boxes{});
  cmdNavig_Click(Contexte(), ecran, 0);
  EXPECT_EQ(ecran.system, CoordSystem::Mgr);
  EXPECT_EQ(ecran.EditBox, Boxes{});
}

TEST_F(RempliDessusTest, ShowsACommentWithoutSeparatorAsRemark) {
  DefinitChampsLibres({"a", "b"});
  Ligne({{"COMMENT", "all of it"}});
  EXPECT_EQ(ecran.Grid, (std::vector<std::string>{"", ""}));
  EXPECT_EQ(ecran.ChampLibre, "all of it");
}

TEST_F(RempliDessusTest, SaysThatADateHasAnotherForm) {
  Ligne({{"DATE", "summer 98"}});
  EXPECT_EQ(ecran.ChampAnnee, "____/__/__");
  EXPECT_NE(ecran.avis.find("summer 98"), std::string::npos);
}

struct AdapteInputboxTest : ::testing::Test, RecordWorld {};

TEST_F(AdapteInputboxTest, ShowsTheBoxesOfEachSystem) {
  for (int i = 0; i < CoordSystemCount; ++i) {
    SCOPED_TRACE(i);
    state.InputMode = static_cast<std::int16_t>(i);
    AdapteInputbox(state, ecran);
    const bool three = i == 2 || i == 3, one = i == 8;
    EXPECT_EQ(ecran.layout.boxes[0].visible, three);
    EXPECT_EQ(ecran.layout.boxes[1].visible, !one);
    EXPECT_TRUE(ecran.layout.boxes[2].visible);
    EXPECT_EQ(ecran.layout.datumFixed, i >= 4);
    EXPECT_EQ(ecran.valeurLibreVisible, i >= 4);
    for (const InputLayout::Box& box : ecran.layout.boxes)
      EXPECT_EQ(box.visible, !box.example.empty());
    EXPECT_EQ(Majuscules(ecran.lblSysteme), InfoDe(ecran.system).code);
  }
}

TEST_F(AdapteInputboxTest, GivesTheExamplesInTheLanguage) {
  const auto examples = [&](int mode) {
    state.InputMode = static_cast<std::int16_t>(mode);
    AdapteInputbox(state, ecran);
    const auto& b = ecran.layout.boxes;
    return b[0].example + "|" + b[1].example + "|" + b[2].example;
  };
  EXPECT_EQ(examples(0), "|+52.98555|-003.56963");
  EXPECT_EQ(examples(1), "|DD.MMSS (+50.2530)|DDD.MMSS (+003.5512)");
  EXPECT_EQ(examples(2), "Fuse (31)|Easting (616000)|Northing (5564000)");
  EXPECT_EQ(examples(3), "Fuse (31)|Zone (U)|Letter+Easting+Northing (FR1664)");
  EXPECT_EQ(examples(4), "|+48.9552|+003.5423");
  EXPECT_EQ(examples(5), "|SM|2354");
  EXPECT_EQ(examples(6), "|IL|2354");
  EXPECT_EQ(examples(7), "|112568|128963");
  EXPECT_EQ(examples(8), "||G3 or G336 or G33643");
  for (int i = 9; i < 16; ++i) EXPECT_EQ(examples(i), "|x (mètres)|y (mètres)");
  state.Langue = German;
  EXPECT_EQ(examples(3), Message(227) + "|" + Message(942) + "|" + Message(228));
}

TEST_F(AdapteInputboxTest, TakesMgrsForASettingThatIsNoMode) {
  for (const int mode : {-1, CoordSystemCount, 99}) {
    state.InputMode = static_cast<std::int16_t>(mode);
    AdapteInputbox(state, ecran);
    EXPECT_EQ(ecran.system, CoordSystem::Mgr);
  }
}

TEST_F(AdapteInputboxTest, NamesTheSystemsInTheirOrder) {
  const auto names = NomsDesSystemes(state.Langue);
  ASSERT_EQ(names.size(), 16U);
  EXPECT_EQ(names[0], "Decimal degrees (Greenwich)");
  EXPECT_EQ(names[7], "Lambert belge 1972 in meters");
  EXPECT_EQ(names[8], "IFBL (Belgium)");
  EXPECT_EQ(names[13], "Lambert France II étendu");
  EXPECT_EQ(names[15], "Lambert Sud Maroc");
}

TEST_F(AdapteInputboxTest, SaysThatTheCatalogueLacksTheDatumOfASystem) {
  state.Catalogue.DatumsSpeciaux[5] = 0;
  Ligne({{"LATITUDE", "50"}, {"LONGITUDE", "4"}});
  Tape(CoordSystem::Lmb, {"112568", "128963"});
  EXPECT_EQ(ecran.lblDatum, "BEL72");
  EXPECT_EQ(ecran.avis, "BEL72: This datum is absent from the available datums!");
  EXPECT_EQ(ecran.ChampLatitude, "+50");
}

struct CmbSystemTest : ::testing::Test, RecordWorld {};

TEST_F(CmbSystemTest, KeepsMetresForAnotherLambertAndComputesAnew) {
  Ligne({{"DATUM", "NTF"}, {"ORIGINAL", "lf1 600000 200000"}});
  cmbSystem_Click(Contexte(), ecran, static_cast<int>(CoordSystem::Lf2));
  EXPECT_EQ(ecran.EditBox, (Boxes{"", "600000", "200000"}));
  EXPECT_TRUE(ecran.modifie);
  const std::string france = ecran.ChampLatitude;
  cmbSystem_Click(Contexte(), ecran, static_cast<int>(CoordSystem::Nma));
  EXPECT_EQ(ecran.EditBox, (Boxes{"", "600000", "200000"}));
  EXPECT_EQ(ecran.lblDatum, "MER");
  EXPECT_NE(ecran.ChampLatitude, france);
}

TEST_F(CmbSystemTest, EmptiesTheBoxesWhereTheyMeanAnotherThing) {
  const std::pair<CoordSystem, CoordSystem> pairs[] = {{CoordSystem::Deg, CoordSystem::Dms},
                                                       {CoordSystem::Deg, CoordSystem::Grp},
                                                       {CoordSystem::Bng, CoordSystem::Itm},
                                                       {CoordSystem::Utm, CoordSystem::Mgr},
                                                       {CoordSystem::Lmb, CoordSystem::Ifb}};
  Ligne({{"LATITUDE", "50"}, {"LONGITUDE", "4"}});
  for (const auto& [from, to] : pairs) {
    cmbSystem_Click(Contexte(), ecran, static_cast<int>(from));
    ecran.EditBox = {"31", "1", "2"};
    cmbSystem_Click(Contexte(), ecran, static_cast<int>(to));
    EXPECT_EQ(ecran.EditBox, Boxes{});
    EXPECT_EQ(ecran.ChampLatitude, "+50");
  }
  EXPECT_FALSE(ecran.modifie) << "nothing that would be saved has changed";
}

TEST_F(CmbSystemTest, EmptyBoxesLeaveDatumAndOriginalAlone) {
  Ligne({{"DATUM", "WGS84"}, {"ORIGINAL", "mgr 31 U FR1664"}});
  cmbSystem_Click(Contexte(), ecran, static_cast<int>(CoordSystem::Lmb));
  ecran.ChampCh1 = "3";
  EXPECT_TRUE(ChangeEtSauve());
  EXPECT_EQ(TexteChamp("DATUM"), "WGS84");
  EXPECT_EQ(TexteChamp("ORIGINAL"), "mgr 31 U FR1664");
}

TEST_F(CmbSystemTest, GivesTheRowItsOwnDatumBack) {
  Ligne({{"DATUM", "NTF"}, {"ORIGINAL", "deg 50 4"}});
  cmbSystem_Click(Contexte(), ecran, static_cast<int>(CoordSystem::Lmb));
  EXPECT_EQ(ecran.lblDatum, "BEL72");
  cmbSystem_Click(Contexte(), ecran, static_cast<int>(CoordSystem::Dms));
  EXPECT_EQ(ecran.lblDatum, "NTF");
  EXPECT_EQ(ecran.datum, Indice("NTF"));
}

TEST_F(CmbSystemTest, TakesTheDefaultDatumWhereTheRowHasNoneOfItsOwn) {
  Ligne({{"DATUM", "BEL72"}, {"ORIGINAL", "lmb 112568 128963"}});
  cmbSystem_Click(Contexte(), ecran, static_cast<int>(CoordSystem::Mgr));
  EXPECT_EQ(ecran.lblDatum, "WGS84") << "that of UTM";
  cmbSystem_Click(Contexte(), ecran, static_cast<int>(CoordSystem::Deg));
  EXPECT_EQ(ecran.lblDatum, "EUR-M") << "that of spherical coordinates";
}

TEST_F(CmbSystemTest, DoesNotTakeADatumWithoutUtmForUtm) {
  for (DatumRecord& datum : state.Catalogue.Datums) {
    if (Rogne(datum.code) == "NTF") datum.use = 1;
  }
  Ligne({{"DATUM", "NTF"}, {"ORIGINAL", "deg 50 4"}});
  cmbSystem_Click(Contexte(), ecran, static_cast<int>(CoordSystem::Utm));
  EXPECT_EQ(ecran.lblDatum, "WGS84");
}

TEST_F(CmbSystemTest, TakesNoIndexThatIsNone) {
  Ligne({{"ORIGINAL", "deg 50 4"}});
  for (const int index : {-1, CoordSystemCount}) {
    cmbSystem_Click(Contexte(), ecran, index);
    EXPECT_EQ(ecran.system, CoordSystem::Deg);
    EXPECT_EQ(state.InputMode, 0);
  }
}

struct ChangeDatumTest : ::testing::Test, RecordWorld {
  void SansUtm(const char* code) {
    state.Catalogue.Datums[static_cast<std::size_t>(Indice(code) - 1)].use = 1;
  }
};

TEST_F(ChangeDatumTest, ComputesThePointAnew) {
  Ligne({{"DATUM", "EUR-M"}, {"ORIGINAL", "deg 50 4"}, {"LATITUDE", "50"}, {"LONGITUDE", "4"}});
  cmdChangeDatum_Click(Contexte(), ecran, "WGS84");
  EXPECT_EQ(ecran.lblDatum, "WGS84");
  EXPECT_TRUE(ecran.modifie);
  EXPECT_TRUE(ecran.ButOk);
  EXPECT_NEAR(Val(ecran.ChampLatitude), 50.0009, 0.0003) << "EUR-M lies some 100 m off";
}

TEST_F(ChangeDatumTest, RefusesADatumWithoutUtmForUtmAndMgrs) {
  SansUtm("NTF");
  for (const int mode : {2, 3}) {
    Ligne({{"DATUM", "WGS84"}});
    cmbSystem_Click(Contexte(), ecran, mode);
    const std::string before = ecran.lblDatum;
    cmdChangeDatum_Click(Contexte(), ecran, "NTF");
    EXPECT_EQ(Boites(), (Lines{"This datum is not allowed for UTM or MGRS input!"}));
    EXPECT_EQ(ecran.lblDatum, before);
    EXPECT_FALSE(ecran.modifie);
  }
  cmbSystem_Click(Contexte(), ecran, 0);
  cmdChangeDatum_Click(Contexte(), ecran, "NTF");
  EXPECT_TRUE(Boites().empty());
  EXPECT_EQ(ecran.lblDatum, "NTF");
}

TEST_F(ChangeDatumTest, DoesNothingWithoutAChoiceOrWhereTheSystemImpliesIt) {
  Ligne({{"DATUM", "EUR-M"}, {"ORIGINAL", "deg 50 4"}});
  cmdChangeDatum_Click(Contexte(), ecran, "");
  EXPECT_EQ(ecran.lblDatum, "EUR-M");
  cmbSystem_Click(Contexte(), ecran, static_cast<int>(CoordSystem::Lmb));
  cmdChangeDatum_Click(Contexte(), ecran, "WGS84");
  EXPECT_EQ(ecran.lblDatum, "BEL72");
  EXPECT_FALSE(ecran.modifie);
}

TEST_F(ChangeDatumTest, TellsACodeThatTheCatalogueLacks) {
  Ligne({{"DATUM", "EUR-M"}, {"ORIGINAL", "deg 50 4"}});
  cmdChangeDatum_Click(Contexte(), ecran, "QQQ");
  EXPECT_EQ(Boites().size(), 1U);
  EXPECT_EQ(ecran.lblDatum, "EUR-M");
}

}  // namespace
}  // namespace talpena::test
