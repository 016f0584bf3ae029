// Find and Next.
#include "store/find.h"

#include "store/grid_commands_fixture.h"
#include "store/sort.h"

namespace talpena::test {
namespace {

class Find : public GridCommands {
 protected:
  void Cherche(const std::string& x) {
    dialogues.inputs = {x};
    mnuChercher_Click(context, 0);
  }
  void Suivant() { mnuChercher_Click(context, 1); }
  /// N1 of the rows that Find and then Next come to, until nothing is found any more.
  Numbers Tous(const std::string& x) {
    Numbers found;
    Cherche(x);
    while (dialogues.boxes.empty()) {
      found.push_back(Ici());
      Suivant();
    }
    dialogues.boxes.clear();
    return found;
  }
};

TEST_F(Find, TheConditionOfATextStandsAsItIsGiven) {
  EXPECT_EQ(CritereDeRecherche("Bru"),
            "SEX LIKE '*Bru*' OR DATUM = 'Bru' OR ORIGINAL LIKE '*Bru*' OR DATE like '*Bru*' OR "
            "COMMENT like '*Bru*'");
}

TEST_F(Find, TheConditionOfANumberStandsAsItIsGiven) {
  EXPECT_EQ(CritereDeRecherche("12"),
            "PERIOD = 12 OR Latitude = 12 OR LONGITUDE = 12 OR N1 = 12 OR N2 = 12 OR SEX = 12 OR "
            "DATUM = '12' OR ORIGINAL = '12' OR DATE like '*12*' OR COMMENT like '*12*'");
}

TEST_F(Find, AsksForTheText) {
  Ouvre();
  Cherche("");
  ASSERT_EQ(dialogues.asked.size(), 1U);
  EXPECT_EQ(dialogues.asked[0].prompt, "Enter text to find");
  EXPECT_EQ(dialogues.asked[0].title, "Find");
  EXPECT_EQ(dialogues.asked[0].text, "");
}

TEST_F(Find, AnEmptyAnswerEndsTheCommand) {
  Ouvre();
  Va(2);
  Cherche("");
  EXPECT_EQ(Ici(), 3);
  EXPECT_TRUE(dialogues.boxes.empty());
  EXPECT_FALSE(state.RechercheAboutie);
  EXPECT_EQ(state.CritereCherche, "");
}

TEST_F(Find, ANumberFindsNumbersAndTextsThatHoldIt) {
  Ouvre(12);
  Pose(3, "COMMENT", "plot 12");
  Pose(5, "COMMENT", "plots 120 to 130");
  Pose(7, "DATE", "1912/05/01");
  Pose(8, "ORIGINAL", "12");
  Pose(9, "ORIGINAL", "utm 12");
  EXPECT_EQ(Tous("12"), (Numbers{3, 5, 7, 8, 12}));
  EXPECT_EQ(Tous("120"), (Numbers{5, 12})) << "N2";
}

TEST_F(Find, ANumberFindsCoordinatesOfSinglePrecision) {
  Ouvre();
  Pose(2, "LATITUDE", "50.1");
  Pose(4, "LONGITUDE", "-4.7");
  EXPECT_EQ(Tous("50.1"), (Numbers{2}));
  EXPECT_EQ(Tous("-4.7"), (Numbers{4}));
  EXPECT_EQ(Tous("50,1"), (Numbers{2})) << "a decimal comma";
}

TEST_F(Find, ATextColumnBesideANumberDoesNotMatchAndDoesNotFail) {
  Ouvre();
  Pose(2, "SEX", "7");
  EXPECT_EQ(Tous("7"), Numbers());
}

TEST_F(Find, ATextFindsPiecesOfTextsButAWholeDatum) {
  Ouvre();
  Pose(1, "DATUM", "EUR-M");
  Pose(2, "COMMENT", "in EUR-Moder");
  Pose(3, "SEX", "f");
  Pose(4, "ORIGINAL", "mgr 31UFS");
  EXPECT_EQ(Tous("EUR-M"), (Numbers{1, 2}));
  EXPECT_EQ(Tous("UR-M"), (Numbers{2}));
  EXPECT_EQ(Tous("f"), (Numbers{3, 4}));
}

TEST_F(Find, LetterCaseDoesNotMatterAndAccentsDo) {
  Ouvre();
  Pose(2, "COMMENT", "ÉVÊQUE");
  Pose(4, "COMMENT", "eveque");
  EXPECT_EQ(Tous("évêque"), (Numbers{2}));
  EXPECT_EQ(Tous("EVEQUE"), (Numbers{4}));
}

TEST_F(Find, DigitsWithBlanksBetweenThemAreAText) {
  Ouvre();
  Pose(3, "ORIGINAL", "utm 31 5337");
  EXPECT_EQ(Tous("31 5337"), (Numbers{3}));
  EXPECT_EQ(Tous("1E999"), Numbers()) << "no number that there is";
}

TEST_F(Find, WhatStandsInNoRowIsToldAndTheRowStays) {
  Ouvre();
  Va(3);
  Cherche("Nowhere");
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text, "Nowhere introuvable!");
  EXPECT_EQ(dialogues.boxes[0].icon, Icon::Exclamation);
  EXPECT_EQ(dialogues.boxes[0].buttons, Buttons::Ok);
  EXPECT_EQ(sound.bips, 1);
  EXPECT_EQ(Ici(), 4);
  EXPECT_FALSE(state.RechercheAboutie);
  EXPECT_FALSE(vue.sablier);
}

TEST_F(Find, SilenceIsKept) {
  Ouvre();
  state.Silence = true;
  Cherche("Nowhere");
  EXPECT_EQ(Boites(), std::vector<std::string>{"Nowhere introuvable!"});
  EXPECT_EQ(sound.bips, 0);
}

TEST_F(Find, GoesToTheRowAndOffersNext) {
  Ouvre();
  Va(4);
  Pose(2, "COMMENT", "here");
  NoteChangements();
  Cherche("here");
  EXPECT_EQ(Ici(), 2);
  EXPECT_TRUE(state.RechercheAboutie);
  EXPECT_EQ(changes, std::vector{DataControl::Change::Position});
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(Find, FollowsTheOrderOfTheGrid) {
  Ouvre();
  Pose(2, "COMMENT", "here");
  Pose(5, "COMMENT", "and here");
  ChangeTri(state.document, 4, true);
  EXPECT_EQ(Tous("here"), (Numbers{5, 2}));
}

TEST_F(Find, StaysWithinTheFilter) {
  Ouvre();
  Montre("SELECT * FROM TALPENA WHERE N1 < 4");
  EXPECT_EQ(Tous("seen"), (Numbers{1, 2, 3}));
}

TEST_F(Find, NextGoesOnFromWhereTheUserWent) {
  Ouvre();
  Cherche("seen");
  Va(3);
  Suivant();
  EXPECT_EQ(Ici(), 5);
  EXPECT_EQ(dialogues.asked.size(), 1U) << "Next does not ask";
  Suivant();
  EXPECT_EQ(Boites(), (Strings{"seen introuvable!"}));
  EXPECT_EQ(Ici(), 5);
}

TEST_F(Find, NextWithoutASearchDoesNothing) {
  Ouvre();
  Suivant();
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(Find, TheSearchGoesOnInAnotherFile) {
  Ouvre();
  Cherche("seen");
  state.document.WorkingDb->Execute("DELETE FROM TALPENA");
  Ouvre(2);
  Suivant();
  EXPECT_EQ(Ici(), 2);
}

TEST_F(Find, AQuoteIsRefusedByTheEngineAndShown) {
  Ouvre();
  Cherche("seen");
  Va(3);
  Cherche("l'eau");
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text.rfind("Error 3075\n", 0), 0U) << dialogues.boxes[0].text;
  EXPECT_EQ(dialogues.boxes[0].icon, Icon::Exclamation);
  EXPECT_EQ(Ici(), 4);
  EXPECT_FALSE(vue.sablier);
  dialogues.boxes.clear();
  Suivant();
  EXPECT_EQ(Ici(), 5) << "the search before goes on";
}

TEST_F(Find, AnOpenBracketIsShownToo) {
  Ouvre();
  Cherche("[a");
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text,
            "Error 93\nThe text holds a bracket [ without its ]; leave it out or close it.");
}

TEST_F(Find, OnAnEmptyTableNothingIsFound) {
  Ouvre(0);
  Cherche("x");
  EXPECT_EQ(Boites(), (Strings{"x introuvable!"}));
  EXPECT_EQ(sound.bips, 1);
}

TEST_F(Find, BeforeAFileWasReadNothingIsFound) {
  Cherche("x");
  EXPECT_EQ(Boites(), (Strings{"x introuvable!"}));
}

TEST_F(Find, FindsRowsThatWereAddedBehindTheOthers) {
  Ouvre(3);
  ChangeTri(state.document, 4, true);
  Edition(state.document, "a test").AjouteLigne([](Recordset& row) {
    row.Set("COMMENT", Cell::Of(std::string_view("new")));
  });
  Cherche("new");
  EXPECT_TRUE(dialogues.boxes.empty());
  EXPECT_EQ(Rows().AbsolutePosition(), 3);
}

}  // namespace
}  // namespace talpena::test
