#include <gtest/gtest.h>

#include "store/record/record_world.h"

namespace talpena::test {
namespace {

struct RecordMovesTest : ::testing::Test, RecordWorld {
  std::vector<DataControl::Change> changes;
  Subscription observed;

  void TroisLignes() {
    Ouvre({{{"PERIOD", "1"}, {"N1", "10"}},
           {{"PERIOD", "2"}, {"N1", "20"}},
           {{"PERIOD", "3"}, {"N1", "30"}}});
    observed = ObserveLignes(state.document,
                             [this](DataControl::Change change) { changes.push_back(change); });
  }
  void Navigue(int index) { cmdNavig_Click(Contexte(), ecran, index); }
};

TEST_F(RecordMovesTest, GoesToTheNextAndThePreviousRow) {
  TroisLignes();
  Navigue(0);
  EXPECT_EQ(ecran.ChampCh1, "20");
  EXPECT_EQ(ecran.lblCpt, "2/3");
  EXPECT_EQ(state.document.Data1.recordset().AbsolutePosition(), 1);
  EXPECT_EQ(changes, (std::vector{DataControl::Change::Position}));
  Navigue(1);
  EXPECT_EQ(ecran.ChampCh1, "10");
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(RecordMovesTest, StaysAtTheEndsWithABeep) {
  state.Silence = false;
  TroisLignes();
  Navigue(1);
  EXPECT_EQ(ecran.lblCpt, "1/3");
  EXPECT_EQ(sound.bips, 1);
  for (int i = 0; i < 3; ++i) Navigue(0);
  EXPECT_EQ(ecran.lblCpt, "3/3");
  EXPECT_EQ(ecran.ChampCh1, "30");
  EXPECT_EQ(sound.bips, 2);
}

TEST_F(RecordMovesTest, BeepsOnAnEmptyTable) {
  state.Silence = false;
  Ouvre({});
  Navigue(0);
  Navigue(1);
  EXPECT_EQ(sound.bips, 2);
  EXPECT_EQ(ecran.lblCpt, "0/0");
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(RecordMovesTest, SavesBeforeItMoves) {
  TroisLignes();
  ecran.ChampCh1 = "11";
  ecran.modifie = true;
  Navigue(0);
  EXPECT_EQ(ecran.ChampCh1, "20");
  Navigue(1);
  EXPECT_EQ(ecran.ChampCh1, "11");
}

TEST_F(RecordMovesTest, StaysWhenTheRowCannotBeSaved) {
  TroisLignes();
  ecran.ChampPeriode = "9";
  ecran.modifie = true;
  Navigue(0);
  EXPECT_EQ(Boites().size(), 1U);
  EXPECT_EQ(ecran.lblCpt, "1/3");
  EXPECT_EQ(ecran.ChampPeriode, "9");
  EXPECT_EQ(ecran.focus, RecordField::ChampPeriode);
  EXPECT_EQ(state.document.Data1.recordset().AbsolutePosition(), 0);
}

TEST_F(RecordMovesTest, AnyOtherIndexShowsTheControlNotations) {
  TroisLignes();
  ecran.ChampLatitude = "50,5";
  ecran.ChampLongitude = "4";
  ecran.modifie = true;
  Navigue(2);
  EXPECT_EQ(ecran.ChampLatitude, "+50.5");
  EXPECT_FALSE(ecran.ValeurDMS.empty());
  EXPECT_TRUE(ecran.modifie);
  EXPECT_EQ(ecran.lblCpt, "1/3");
}

TEST_F(RecordMovesTest, NewAddsAnEmptyRowAndGoesThere) {
  TroisLignes();
  ButNew_Click(Contexte(), ecran);
  EXPECT_EQ(Lignes().size(), 4U);
  EXPECT_EQ(Lignes()[3], "-|-|-|-|-|-|-|-|-|-");
  EXPECT_EQ(ecran.lblCpt, "4/4");
  EXPECT_EQ(ecran.ChampPeriode, "");
  EXPECT_EQ(ecran.focus, RecordField::ChampPeriode);
  EXPECT_TRUE(state.document.FichierModifie());
  EXPECT_FALSE(ecran.modifie);
  EXPECT_EQ(changes, (std::vector{DataControl::Change::Rows, DataControl::Change::Position}));
}

TEST_F(RecordMovesTest, NewGoesToTheNewRowInAnyOrderAndFilter) {
  TroisLignes();
  MontreSelect(state.document, "SELECT * FROM TALPENA WHERE N1 > 5 ORDER BY [PERIOD] DESC");
  RempliDessus(Contexte(), ecran);
  ButNew_Click(Contexte(), ecran);
  EXPECT_EQ(ecran.lblCpt, "4/4");
  EXPECT_EQ(Champ("Counter").integer, 4);
  ecran.ChampPeriode = "1";
  EXPECT_TRUE(ChangeEtSauve());
  EXPECT_EQ(Lignes()[3].substr(0, 2), "1|");
}

TEST_F(RecordMovesTest, NewSavesWhatWasTyped) {
  TroisLignes();
  ecran.ChampCh1 = "11";
  ecran.modifie = true;
  ButNew_Click(Contexte(), ecran);
  EXPECT_EQ(Lignes()[0].substr(0, 9), "1|0|0|11|");
  EXPECT_EQ(Lignes().size(), 4U);
}

TEST_F(RecordMovesTest, NewAndDuplicateStayWhenThatFails) {
  TroisLignes();
  ecran.ChampPeriode = "9";
  ecran.modifie = true;
  ButNew_Click(Contexte(), ecran);
  ButDupl_Click(Contexte(), ecran);
  EXPECT_EQ(Boites().size(), 2U);
  EXPECT_EQ(Lignes().size(), 3U);
  EXPECT_EQ(ecran.ChampPeriode, "9");
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(RecordMovesTest, DuplicateCopiesTheRowAsItWasJustTyped) {
  TroisLignes();
  Navigue(0);
  ecran.ChampCh1 = "21";
  ecran.modifie = true;
  ButDupl_Click(Contexte(), ecran);
  ASSERT_EQ(Lignes().size(), 4U);
  EXPECT_EQ(Lignes()[3], Lignes()[1]);
  EXPECT_EQ(ecran.lblCpt, "4/4");
  EXPECT_EQ(ecran.ChampCh1, "21");
  EXPECT_EQ(ecran.focus, RecordField::ChampPeriode);
  EXPECT_TRUE(state.document.FichierModifie());
}

TEST_F(RecordMovesTest, NewMakesTheFirstRowOfAnEmptyTable) {
  Ouvre({});
  ButNew_Click(Contexte(), ecran);
  EXPECT_EQ(ecran.lblCpt, "1/1");
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(RecordMovesTest, DuplicateShowsThatThereIsNoRow) {
  Ouvre({});
  ButDupl_Click(Contexte(), ecran);
  EXPECT_EQ(Boites(),
            (Lines{"Error 3021\nThere is no row to work on; add a row or choose one first."}));
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(RecordMovesTest, OkSavesAndIsDisabledUntilTheNextChange) {
  TroisLignes();
  ecran.ChampCh1 = "11";
  ecran.modifie = ecran.ButOk = true;
  ButOk_Click(Contexte(), ecran);
  EXPECT_FALSE(ecran.ButOk);
  EXPECT_EQ(Champ("N1").integer, 11);
  ecran.ChampPeriode = "9";
  ecran.modifie = ecran.ButOk = true;
  ButOk_Click(Contexte(), ecran);
  EXPECT_EQ(Boites().size(), 1U);
  EXPECT_TRUE(ecran.ButOk);
}

TEST_F(RecordMovesTest, EscAsksOnlyForAChangedForm) {
  TroisLignes();
  EXPECT_TRUE(ButEsc_Click(Contexte(), ecran));
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(RecordMovesTest, EscAsksWhetherToSave) {
  struct Case {
    Answer answer;
    bool closes, saves;
  };
  for (const Case& c : {Case{Answer::Cancel, false, false}, Case{Answer::No, true, false},
                        Case{Answer::Yes, true, true}}) {
    RecordWorld world;
    world.Ligne({{"N1", "10"}});
    world.ecran.ChampCh1 = "11";
    world.ecran.modifie = true;
    world.dialogues.answers = {c.answer};
    EXPECT_EQ(ButEsc_Click(world.Contexte(), world.ecran), c.closes);
    ASSERT_EQ(world.dialogues.boxes.size(), 1U);
    EXPECT_EQ(world.dialogues.boxes[0].text, "Save before closing?");
    EXPECT_EQ(world.dialogues.boxes[0].buttons, Buttons::YesNoCancel);
    EXPECT_EQ(world.Champ("N1").integer, c.saves ? 11 : 10);
    EXPECT_EQ(world.ecran.ChampCh1, "11");
  }
}

TEST_F(RecordMovesTest, EscStaysWhenTheRowCannotBeSaved) {
  TroisLignes();
  ecran.ChampPeriode = "9";
  ecran.modifie = true;
  dialogues.answers = {Answer::Yes};
  EXPECT_FALSE(ButEsc_Click(Contexte(), ecran));
  EXPECT_EQ(ecran.ChampPeriode, "9");
  EXPECT_EQ(Boites().size(), 2U);
}

}  // namespace
}  // namespace talpena::test
