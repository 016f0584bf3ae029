#include <gtest/gtest.h>

#include "store/record/record_world.h"

namespace talpena::test {
namespace {

struct SauveEcranTest : ::testing::Test, RecordWorld {
  std::string Contenu() { return Lignes().at(0); }
};

TEST_F(SauveEcranTest, DoesNothingToAnUnchangedForm) {
  Ligne();
  ecran.ChampPeriode = "99";
  EXPECT_TRUE(Sauve());
  EXPECT_FALSE(state.document.FichierModifie());
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(SauveEcranTest, WritesTheRow) {
  DefinitChampsLibres({"a", "b"});
  int told = 0;
  Ouvre({{}});
  const Subscription observed = ObserveLignes(state.document, [&](DataControl::Change change) {
    EXPECT_EQ(change, DataControl::Change::Values);
    ++told;
  });
  Entete(state.document)->DatumFichier = state.Catalogue.DatumWgs84;
  Tape(CoordSystem::Deg, {"50,5", "-4.25"});
  cmdChangeDatum_Click(Contexte(), ecran, "WGS84");
  ecran.ChampPeriode = "3";
  ecran.ChampCh1 = "12 ex.";
  ecran.ChampCh2 = "-2";
  ecran.ChampSex = "F";
  ecran.ChampAnnee = "1998/07/__";
  ecran.Grid = {"Lac", "450"};
  ecran.ChampLibre = "sous écorce\r\nde hêtre";
  EXPECT_TRUE(ChangeEtSauve());
  EXPECT_EQ(Contenu(),
            "3|50.5|-4.25|12|-2|F|WGS84|deg 50.5 -4.25|1998/07/  |Lac/450/sous écorce\nde hêtre");
  EXPECT_TRUE(state.document.FichierModifie());
  EXPECT_FALSE(ecran.modifie);
  EXPECT_FALSE(ecran.ButOk);
  EXPECT_EQ(ecran.ChampCh1, "12") << "as it was stored";
  EXPECT_EQ(told, 1);
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(SauveEcranTest, ShowsAgainWhatItWrote) {
  DefinitChampsLibres({"a", "b"});
  Ligne({{"DATUM", "WGS84"}});
  Tape(CoordSystem::Mgr, {"31", "u", "fr1664"});
  ecran.Grid = {"x", ""};
  ecran.ChampLibre = "r1\r\nr2";
  ecran.ChampAnnee = "19__/__/14";
  EXPECT_TRUE(ChangeEtSauve());
  EXPECT_EQ(TexteChamp("ORIGINAL"), "mgr 31 U FR1664");
  const RecordScreen saved = ecran;
  RempliDessus(Contexte(), ecran);
  EXPECT_EQ(ecran.EditBox, saved.EditBox);
  EXPECT_EQ(ecran.Grid, saved.Grid);
  EXPECT_EQ(ecran.ChampLibre, saved.ChampLibre);
  EXPECT_EQ(ecran.ChampAnnee, saved.ChampAnnee);
  EXPECT_EQ(ecran.ChampLatitude, saved.ChampLatitude);
  EXPECT_EQ(ecran.ValeurUtmAlpha, saved.ValeurUtmAlpha);
}

TEST_F(SauveEcranTest, AnEmptyMaskSavesNull) {
  Ligne({{"DATE", "1998/07/14"}});
  ecran.ChampAnnee = "____/__/__";
  EXPECT_TRUE(ChangeEtSauve());
  EXPECT_TRUE(Champ("DATE").EstNull());
  Ligne({{"DATE", ""}});
  EXPECT_TRUE(ChangeEtSauve());
  EXPECT_TRUE(Champ("DATE").EstNull());
}

TEST_F(SauveEcranTest, KeepsADateOfAnotherFormUntilOneIsTyped) {
  Ligne({{"DATE", "summer 98"}});
  EXPECT_TRUE(ChangeEtSauve());
  EXPECT_EQ(TexteChamp("DATE"), "summer 98");
  ecran.ChampAnnee = "1998/__/__";
  EXPECT_TRUE(ChangeEtSauve());
  EXPECT_EQ(TexteChamp("DATE"), "1998/  /  ");
  ecran.ChampAnnee = "____/__/__";
  EXPECT_TRUE(ChangeEtSauve());
  EXPECT_TRUE(Champ("DATE").EstNull());
}

TEST_F(SauveEcranTest, KeepsAllDigitsOfAPointThatWasNotTouched) {
  Ligne({{"LATITUDE", "50.123457"}, {"LONGITUDE", "-123.456789"}});
  const auto before = static_cast<float>(Champ("LATITUDE").real);
  const auto before2 = static_cast<float>(Champ("LONGITUDE").real);
  ecran.ChampCh1 = "5";
  EXPECT_TRUE(ChangeEtSauve());
  EXPECT_EQ(static_cast<float>(Champ("LATITUDE").real), before);
  EXPECT_EQ(static_cast<float>(Champ("LONGITUDE").real), before2);
}

// The writer of files would give a Null latitude the value of the row before.
TEST_F(SauveEcranTest, WritesNumbersThatAreEmptyAsZero) {
  Ligne();
  EXPECT_TRUE(ChangeEtSauve());
  EXPECT_EQ(Contenu(), "1|0|0|0|0|-|-|-|-|-");
  EXPECT_EQ(ecran.ChampLatitude, "+0");
  EXPECT_EQ(ecran.ChampCh1, "0");
}

TEST_F(SauveEcranTest, LeavesDatumAndOriginalAloneWhenTheLastBoxIsEmpty) {
  Ligne({{"DATUM", "WGS84"}, {"ORIGINAL", "deg 50 4"}});
  ecran.EditBox = {"", "51", "  "};
  EXPECT_TRUE(ChangeEtSauve());
  EXPECT_EQ(TexteChamp("ORIGINAL"), "deg 50 4");
}

TEST_F(SauveEcranTest, WritesTheForcedDatum) {
  Ligne({{"DATUM", "WGS84"}, {"ORIGINAL", "lmb 112568 128963"}});
  ecran.ChampCh1 = "5";
  EXPECT_TRUE(ChangeEtSauve());
  EXPECT_EQ(TexteChamp("DATUM"), "BEL72");
  EXPECT_EQ(TexteChamp("ORIGINAL"), "lmb 112568 128963");
}

TEST_F(SauveEcranTest, ComputesABoxThatWasNotLeft) {
  Entete(state.document)->DatumFichier = state.Catalogue.DatumWgs84;
  Ligne({{"DATUM", "WGS84"}, {"ORIGINAL", "deg 50 4"}, {"LATITUDE", "50"}, {"LONGITUDE", "4"}});
  ecran.EditBox[1] = "51,5";
  EXPECT_TRUE(ChangeEtSauve());
  EXPECT_EQ(TexteChamp("ORIGINAL"), "deg 51.5 4");
  EXPECT_EQ(TexteChamp("LATITUDE"), "51.5");
}

// A point that was snapped to a grid stays where it is until the reference is typed anew.
TEST_F(SauveEcranTest, LeavesThePointOfAReferenceThatWasNotTouched) {
  Ligne({{"DATUM", "WGS84"}, {"ORIGINAL", "deg 50,5 4,25"}, {"LATITUDE", "50.25"}});
  ecran.ChampCh1 = "5";
  EXPECT_TRUE(ChangeEtSauve());
  EXPECT_EQ(TexteChamp("LATITUDE"), "50.25");
  EXPECT_EQ(TexteChamp("ORIGINAL"), "deg 50.5 4.25");
}

TEST_F(SauveEcranTest, SaysThatAReferenceSavedIsIncomplete) {
  Ligne({{"DATUM", "WGS84"}});
  cmbSystem_Click(Contexte(), ecran, 2);
  ecran.EditBox = {"", "616000", "5564000"};
  EXPECT_TRUE(ChangeEtSauve());
  EXPECT_EQ(TexteChamp("ORIGINAL"), "utm 616000 5564000");
  EXPECT_EQ(ecran.avis, Message(970));
}

struct RefusalCase {
  const char* name;
  void (*change)(RecordScreen&);
  const char* message;
  RecordField focus;
};

TEST_F(SauveEcranTest, RefusesWhatCannotBeRight) {
  const RefusalCase cases[] = {
      {"month", [](RecordScreen& e) { e.ChampAnnee = "1998/13/01"; }, "Invalid date",
       RecordField::ChampAnnee},
      {"day", [](RecordScreen& e) { e.ChampAnnee = "1998/12/32"; }, "Invalid date",
       RecordField::ChampAnnee},
      {"period 0", [](RecordScreen& e) { e.ChampPeriode = "0"; },
       "Period must be comprise between 1 and 3", RecordField::ChampPeriode},
      {"no period", [](RecordScreen& e) { e.ChampPeriode = ""; },
       "Period must be comprise between 1 and 3", RecordField::ChampPeriode},
      {"period 4", [](RecordScreen& e) { e.ChampPeriode = "4"; },
       "Period must be comprise between 1 and 3", RecordField::ChampPeriode},
      {"huge period", [](RecordScreen& e) { e.ChampPeriode = "1E400"; },
       "Period must be comprise between 1 and 3", RecordField::ChampPeriode},
      {"latitude", [](RecordScreen& e) { e.ChampLatitude = "90.6"; },
       "Valid Latitude range: -90° +90°", RecordField::ChampLatitude},
      {"south", [](RecordScreen& e) { e.ChampLatitude = "-91"; }, "Valid Latitude range: -90° +90°",
       RecordField::ChampLatitude},
      {"longitude", [](RecordScreen& e) { e.ChampLongitude = "181"; },
       "Valid Longitude range: -180° +180°", RecordField::ChampLongitude},
      {"west", [](RecordScreen& e) { e.ChampLongitude = "-180,6"; },
       "Valid Longitude range: -180° +180°", RecordField::ChampLongitude},
      {"the date goes first",
       [](RecordScreen& e) { e.ChampAnnee = "1998/13/01", e.ChampPeriode = "9"; }, "Invalid date",
       RecordField::ChampAnnee},
      {"then the period", [](RecordScreen& e) { e.ChampLatitude = "99", e.ChampPeriode = "9"; },
       "Period must be comprise between 1 and 3", RecordField::ChampPeriode},
  };
  Ligne({{"LATITUDE", "50"}, {"LONGITUDE", "4"}, {"N1", "7"}});
  const std::string before = Contenu();
  for (const RefusalCase& c : cases) {
    SCOPED_TRACE(c.name);
    RempliDessus(Contexte(), ecran);
    ecran.ChampCh1 = "8";
    c.change(ecran);
    EXPECT_FALSE(ChangeEtSauve());
    EXPECT_EQ(Boites(), (Lines{c.message}));
    EXPECT_EQ(ecran.focus, c.focus);
    EXPECT_TRUE(ecran.modifie);
    EXPECT_EQ(Contenu(), before);
    EXPECT_EQ(PremiereFaute(state, ecran)->text, c.message);
  }
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(SauveEcranTest, AcceptsTheEdges) {
  Ligne();
  for (const auto& [latitude, longitude, date] : {std::tuple{"90.4", "180.4", "1998/00/00"},
                                                  {"-90.5", "-180.5", "1998/12/31"},
                                                  {"90,5", "180,5", "____/__/__"}}) {
    ecran.ChampLatitude = latitude;
    ecran.ChampLongitude = longitude;
    ecran.ChampAnnee = date;
    EXPECT_TRUE(ChangeEtSauve()) << latitude;
  }
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(SauveEcranTest, NamesTheNumberOfPeriods) {
  for (const int pivots : {0, 1, 2}) {
    Entete(state.document)->NbPivots = static_cast<std::int16_t>(pivots);
    ecran.ChampPeriode = "9";
    EXPECT_EQ(PremiereFaute(state, ecran)->text,
              "Period must be comprise between 1 and " + std::to_string(pivots + 1));
  }
}

TEST_F(SauveEcranTest, BeepsUnlessSilent) {
  Ligne();
  ecran.ChampPeriode = "9";
  EXPECT_FALSE(ChangeEtSauve());
  EXPECT_EQ(sound.bips, 0);
  state.Silence = false;
  EXPECT_FALSE(ChangeEtSauve());
  EXPECT_EQ(sound.bips, 1);
  EXPECT_EQ(Boites().size(), 2U);
}

TEST_F(SauveEcranTest, RefusesAnOddMgrsReferenceThatWasNotLeft) {
  Ligne({{"DATUM", "WGS84"}, {"ORIGINAL", "mgr 31 U FR1664"}});
  ecran.EditBox[2] = "FR166";
  EXPECT_FALSE(ChangeEtSauve());
  EXPECT_EQ(Boites(), (Lines{"Invalid UTM"}));
  EXPECT_EQ(TexteChamp("ORIGINAL"), "mgr 31 U FR1664");
}

TEST_F(SauveEcranTest, NeedsARecordset) {
  ecran.ChampPeriode = "1";
  EXPECT_FALSE(ChangeEtSauve());
  EXPECT_EQ(Boites(), (Lines{"Erreur! [recordset is nothing]"}));
}

TEST_F(SauveEcranTest, NeedsARow) {
  Ouvre({});
  ecran.ChampPeriode = "1";
  EXPECT_FALSE(ChangeEtSauve());
  EXPECT_EQ(Boites(), (Lines{"Erreur! [recordset BOF or EOF]"}));
}

TEST_F(SauveEcranTest, WritesNothingWhenAFieldIsRefused) {
  struct Case {
    void (*change)(RecordScreen&);
    RecordField focus;
  };
  const Case cases[] = {
      {[](RecordScreen& e) { e.ChampSex = "MF"; }, RecordField::ChampSex},
      {[](RecordScreen& e) {
         e.EditBox = {"31", "616000.123456", "5564000.123456"};
       },
       RecordField::EditBox2},
      {[](RecordScreen& e) { e.ChampCh1 = "99999999999"; }, RecordField::ChampCh1},
      {[](RecordScreen& e) { e.ChampCh2 = "1E400"; }, RecordField::ChampCh2},
  };
  Ligne({{"DATUM", "WGS84"}, {"ORIGINAL", "utm 31 616000 5564000"}, {"N1", "7"}, {"N2", "8"}});
  const std::string before = Contenu();
  for (const Case& c : cases) {
    RempliDessus(Contexte(), ecran);
    ecran.ChampPeriode = "2";
    c.change(ecran);
    EXPECT_FALSE(ChangeEtSauve());
    const auto boxes = Boites();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].find("Erreur pendant la sauvegarde.\r\n"), 0U) << boxes[0];
    EXPECT_GT(boxes[0].size(), 33U);
    EXPECT_EQ(ecran.focus, c.focus);
    EXPECT_EQ(Contenu(), before);
    EXPECT_TRUE(ecran.modifie);
    state.document.Data1.recordset().Edit();  // no edit was left open
    state.document.Data1.recordset().CancelUpdate();
  }
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(SauveEcranTest, RoundsWholeNumbersToEven) {
  Ligne();
  ecran.ChampCh1 = "2,5";
  ecran.ChampCh2 = "3.5";
  ecran.ChampPeriode = "2.5";
  EXPECT_TRUE(ChangeEtSauve());
  EXPECT_EQ(Contenu().substr(0, 10), "2|0|0|2|4|");
}

TEST_F(SauveEcranTest, ShowsAFailureOfARowThatIsGone) {
  Ligne();
  state.document.WorkingDb->Execute("DELETE FROM TALPENA");
  EXPECT_FALSE(ChangeEtSauve());
  const auto boxes = Boites();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].find("Erreur pendant la sauvegarde.\r\n"), 0U);
}

struct MetAvisTest : ::testing::Test, RecordWorld {
  std::string Avis() {
    MetAvis(state, ecran);
    return ecran.avis;
  }
};

TEST_F(MetAvisTest, SaysWhatCannotBeReadBackAsItStands) {
  DefinitChampsLibres({"a", "b"});
  Ligne();
  EXPECT_EQ(Avis(), "");
  ecran.ChampLibre = "1/2 remark";
  EXPECT_EQ(Avis(), "") << "the remark keeps them";
  ecran.Grid[0] = "1/2";
  EXPECT_EQ(Avis(),
            "/ separates the free fields: this text will be split when the row is read again.");
}

TEST_F(MetAvisTest, SaysWhatTheFileCannotHold) {
  Ligne();
  ecran.ChampLibre = "café Ł";
  EXPECT_EQ(Avis(), "The character Ł is not in code page 1252: the file cannot be saved with it.");
  ecran.ChampLibre = "café";
  EXPECT_EQ(Avis(), "");
}

TEST_F(MetAvisTest, SaysThatANumberIsNone) {
  Ligne();
  ecran.ChampCh1 = "12 ex.";
  EXPECT_EQ(Avis(), "“12 ex.” is not a number: it counts as 12.");
  ecran.ChampCh1 = "12,5";
  EXPECT_EQ(Avis(), "");
}

TEST_F(MetAvisTest, SaysThatOriginalIsTooLong) {
  Ligne();
  cmbSystem_Click(Contexte(), ecran, 2);
  ecran.EditBox = {"31", "616000.123456", "5564000.123456"};
  EXPECT_EQ(Avis(), Message(976));
}

}  // namespace
}  // namespace talpena::test
