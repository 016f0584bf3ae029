// Erase column, with the field that each column stands for.
#include "store/erase_column.h"

#include "store/grid_commands_fixture.h"
#include "store/sort.h"

namespace talpena::test {
namespace {

class EraseColumn : public GridCommands {
 protected:
  void Efface(int first, int last, Answer answer = Answer::Yes) {
    vue.colonnes = ColumnRange{first, last};
    dialogues.answers = {answer};
    MnuEraseCol_Click(context);
  }
  static constexpr const char* before = "1|50.5|4.25|1|10|M|WGS84|deg +50.5 +4.25|1990/01/01|seen";
};

struct ErasedCase {
  const char* name;
  int column;
  const char* row;
};

// clang-format off
constexpr ErasedCase erased[] = {
    {"Period",                          0, "0|50.5|4.25|1|10|M|WGS84|deg +50.5 +4.25|1990/01/01|seen"},
    {"Latitude",                        1, "1|0|4.25|1|10|M|WGS84|deg +50.5 +4.25|1990/01/01|seen"},
    {"Longitude",                       2, "1|50.5|0|1|10|M|WGS84|deg +50.5 +4.25|1990/01/01|seen"},
    {"N1",                              3, "1|50.5|4.25|0|10|M|WGS84|deg +50.5 +4.25|1990/01/01|seen"},
    {"N2",                              4, "1|50.5|4.25|1|0|M|WGS84|deg +50.5 +4.25|1990/01/01|seen"},
    {"Original coordinates: the date",  7, "1|50.5|4.25|1|10|M|WGS84|deg +50.5 +4.25||seen"},
    {"Date: the comments",              8, "1|50.5|4.25|1|10|M|WGS84|deg +50.5 +4.25|1990/01/01|"},
    {"Comments: nothing",               9, "1|50.5|4.25|1|10|M|WGS84|deg +50.5 +4.25|1990/01/01|seen"},
};
// clang-format on

TEST_F(EraseColumn, EmptiesTheFieldOfTheTable) {
  for (const ErasedCase& c : erased) {
    SCOPED_TRACE(c.name);
    state.document.WorkingDb->Execute("DELETE FROM TALPENA");
    state.document.OublieModifications();
    Ouvre(3);
    Efface(c.column, c.column);
    EXPECT_EQ(Lignes()[0], c.row);
    EXPECT_TRUE(state.document.FichierModifie());
    EXPECT_EQ(dialogues.boxes.size(), 1U) << "the question only";
    dialogues.boxes.clear();
  }
}

TEST_F(EraseColumn, EmptiesItInEveryRow) {
  Ouvre(5);
  Efface(4, 4);
  const auto rows = state.document.Data1.Clone();
  for (rows->MoveFirst(); !rows->EOF_(); rows->MoveNext()) EXPECT_EQ(rows->Get("N2").integer, 0);
  EXPECT_EQ(N1(), (Numbers{1, 2, 3, 4, 5}));
}

// The Sex column stands for the datum, which takes no empty text.
TEST_F(EraseColumn, TheSexAndDatumColumnsEndInTheEnginesErrorWithNothingChanged) {
  for (const int column : {5, 6}) {
    SCOPED_TRACE(column);
    state.document.WorkingDb->Execute("DELETE FROM TALPENA");
    Ouvre(3);
    sound.bips = 0;
    Efface(column, column);
    ASSERT_EQ(dialogues.boxes.size(), 2U);
    EXPECT_EQ(dialogues.boxes[1].text, std::string("Error 3315\nThe column ") +
                                           (column == 5 ? "DATUM" : "ORIGINAL") +
                                           " cannot be emptied; it has to hold a text.");
    EXPECT_EQ(dialogues.boxes[1].icon, Icon::Exclamation);
    EXPECT_EQ(Lignes()[0], before);
    EXPECT_FALSE(state.document.FichierModifie());
    EXPECT_FALSE(state.document.WorkingDb->EnTransaction());
    EXPECT_FALSE(vue.barre);
    EXPECT_FALSE(vue.sablier);
    EXPECT_FALSE(vue.grilleGelee);
    dialogues.boxes.clear();
  }
}

TEST_F(EraseColumn, SeveralColumnsWithOneThatIsRefusedChangeNothing) {
  Ouvre(3);
  Efface(3, 6);
  EXPECT_EQ(dialogues.boxes.size(), 2U);
  EXPECT_EQ(Lignes()[0], before);
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(EraseColumn, SeveralColumnsAtOnce) {
  Ouvre(2);
  Efface(1, 4);
  EXPECT_EQ(Lignes()[0], "1|0|0|0|0|M|WGS84|deg +50.5 +4.25|1990/01/01|seen");
  Efface(7, 9);
  EXPECT_EQ(Lignes()[1], "1|0|0|0|0|M|WGS84|deg +50.5 +4.25||");
}

TEST_F(EraseColumn, AsksWithNoAsItsDefault) {
  Ouvre();
  Efface(3, 3, Answer::No);
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text, "Delete all selected cells?");
  EXPECT_EQ(dialogues.boxes[0].icon, Icon::Question);
  EXPECT_EQ(dialogues.boxes[0].buttons, Buttons::YesNo);
  EXPECT_EQ(dialogues.boxes[0].defaultButton, Answer::No);
  EXPECT_EQ(sound.bips, 1);
  EXPECT_EQ(Lignes()[0], before);
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(EraseColumn, SilenceIsKept) {
  Ouvre();
  state.Silence = true;
  Efface(5, 5);
  EXPECT_EQ(dialogues.boxes.back().text,
            "Error 3315\nThe column DATUM cannot be emptied; it has to hold a text.");
  EXPECT_EQ(sound.bips, 0);
}

TEST_F(EraseColumn, WithoutAChosenColumnTheCurrentOneIsChosen) {
  Ouvre();
  vue.colonneCourante = 3;
  dialogues.answers = {Answer::Yes};
  MnuEraseCol_Click(context);
  EXPECT_EQ(vue.colonnes, (ColumnRange{3, 3}));
  EXPECT_EQ(N1(), (Numbers{0, 0, 0, 0, 0}));
}

TEST_F(EraseColumn, KeepsToTheRowsOfAFilterAndAppliesItAnew) {
  Ouvre();
  state.document.MontreLignes(RowsShown::Filtrees("N1 > 3"));
  Efface(3, 3);
  EXPECT_EQ(N1(), Numbers()) << "no row meets the filter any more";
  Montre(state.document.SqlCourant());
  EXPECT_EQ(N1(), (Numbers{1, 2, 3, 0, 0}));
}

TEST_F(EraseColumn, StaysOnTheCurrentRowInTheNewOrder) {
  Ouvre();
  ChangeTri(state.document, 4, true);
  Va(1);
  ASSERT_EQ(Ici(), 4);
  Efface(3, 3);
  EXPECT_EQ(Rows().Get("N2").integer, 40);
  EXPECT_EQ(Rows().AbsolutePosition(), 3) << "all equal: the file's order";
}

TEST_F(EraseColumn, RunsTheQueryAgainOnlyWhereTheColumnMattersToIt) {
  Ouvre();
  NoteChangements();
  Efface(4, 4);
  EXPECT_EQ(changes, std::vector{DataControl::Change::Values});
  Montre("SELECT * FROM TALPENA WHERE n2 = 0 ORDER BY N1");
  changes.clear();
  Efface(1, 2);
  EXPECT_EQ(changes, std::vector{DataControl::Change::Values});
  changes.clear();
  Efface(1, 4);
  EXPECT_EQ(changes, (std::vector{DataControl::Change::Values, DataControl::Change::Rows,
                                  DataControl::Change::Position}));
}

TEST_F(EraseColumn, ShowsHowFarItCame) {
  Ouvre();
  Efface(3, 3);
  ASSERT_FALSE(vue.progression.empty());
  EXPECT_EQ(*std::max_element(vue.progression.begin(), vue.progression.end()), 100);
  EXPECT_EQ(vue.progression.back(), 0);
  EXPECT_FALSE(vue.barre);
  EXPECT_FALSE(vue.grilleGelee);
}

TEST_F(EraseColumn, OnAnEmptyTableNothingIsRefused) {
  Ouvre(0);
  Efface(5, 5);
  EXPECT_EQ(dialogues.boxes.size(), 1U) << "the question only";
}

TEST_F(EraseColumn, BeforeAFileWasReadThereIsNothingToAsk) {
  MnuEraseCol_Click(context);
  EXPECT_TRUE(dialogues.boxes.empty());
}

}  // namespace
}  // namespace talpena::test
