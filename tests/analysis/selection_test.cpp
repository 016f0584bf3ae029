// Selection: a condition of the user's own over the table.
#include "analysis/selection.h"

#include <gtest/gtest.h>

#include "common/talpena_error.h"
#include "store/filter.h"
#include "store/sort.h"
#include "store/world.h"

namespace talpena::test {
namespace {

class SelectionTest : public testing::Test, protected World {
 protected:
  SelectionTest() {
    const auto rows = state.document.WorkingDb->OpenRecordset("TALPENA");
    for (std::int64_t i = 1; i <= 6; ++i) {
      rows->AddNew();
      rows->Set("PERIOD", Cell::Of(i % 3 + 1));
      rows->Set("LATITUDE", Cell::Of(48.0 + static_cast<double>(i)));
      rows->Set("N1", Cell::Of(10 * i));
      rows->Set("SEX", Cell::Of(std::string_view(i % 2 == 0 ? "F" : "M")));
      rows->Set("DATE", Cell::Of(std::string_view(i < 4 ? "1998/07/14" : "2001/01/01")));
      rows->Set("ORIGINAL", Cell::Of(std::string_view("deg +48.00000 +004.00000")));
      rows->Set("COMMENT", Cell::Of(std::string_view(i == 6 ? "in a garden" : "")));
      rows->Update();
    }
    state.document.Data1.Lie(*state.document.WorkingDb);
    state.document.RelieSqlCourant();
  }
  bool Choisit(const std::string& condition) { return ValideSelection(state, io, {1, condition}); }
  bool ToutMontre() { return ValideSelection(state, io, {0, ""}); }
  std::int64_t Montrees() { return state.document.Data1.recordset().RecordCount(); }
};

TEST_F(SelectionTest, ShowsTheRowsThatMeetTheCondition) {
  EXPECT_TRUE(Choisit("N1 > 40"));
  EXPECT_EQ(state.document.Data1.RecordSource, "SELECT * FROM TALPENA WHERE N1 > 40");
  EXPECT_EQ(Montrees(), 2);
  EXPECT_FALSE(state.document.FichierModifie());
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(SelectionTest, AllRowsComeBackInFileOrder) {
  ChangeTri(state.document, 4, true);
  Choisit("N1 > 40");
  EXPECT_TRUE(ToutMontre());
  EXPECT_EQ(state.document.Data1.RecordSource, "SELECT * FROM TALPENA");
  EXPECT_EQ(Montrees(), 6);
  state.document.Data1.recordset().MoveFirst();
  EXPECT_EQ(state.document.Data1.recordset().Get("N1").integer, 10);
}

TEST_F(SelectionTest, WithoutAConditionItBeepsAndStays) {
  for (const char* empty : {"", "   "}) {
    sound.bips = 0;
    EXPECT_FALSE(Choisit(empty));
    EXPECT_EQ(sound.bips, 1);
    EXPECT_EQ(Montrees(), 6);
  }
  state.Silence = true;
  EXPECT_FALSE(Choisit(""));
  EXPECT_EQ(sound.bips, 1);
}

TEST_F(SelectionTest, AFilterThatMatchesNothingShowsNoRow) {
  EXPECT_TRUE(Choisit("N1 = 7"));
  EXPECT_EQ(Montrees(), 0);
  EXPECT_TRUE(state.document.FiltreActif());
}

TEST_F(SelectionTest, AnInvalidConditionIsTheEnginesFault) {
  Choisit("N1 > 40");
  for (const char* wrong : {"N1 >", "NOWHERE = 1", "SEX = 'F", "1=1; DELETE FROM TALPENA"}) {
    EXPECT_THROW(Choisit(wrong), TalpenaError) << wrong;
    EXPECT_EQ(state.document.Data1.RecordSource, "SELECT * FROM TALPENA WHERE N1 > 40");
    EXPECT_EQ(Montrees(), 2) << "the rows of before";
  }
  EXPECT_EQ(Lignes().size(), 6U);
}

TEST_F(SelectionTest, OffersTheFilterThatIsOnElseTheConditionTakenLast) {
  EXPECT_EQ(RempliSelection(state).OptSelect, 0);
  EXPECT_EQ(RempliSelection(state).TxtSelect, "");
  Choisit("N1 > 40");
  EXPECT_EQ(RempliSelection(state).OptSelect, 1);
  EXPECT_EQ(RempliSelection(state).TxtSelect, "N1 > 40");
  EXPECT_THROW(Choisit("N1 >"), TalpenaError);
  ToutMontre();
  EXPECT_EQ(RempliSelection(state).OptSelect, 0);
  EXPECT_EQ(RempliSelection(state).TxtSelect, "N1 > 40");
}

TEST_F(SelectionTest, ASortShowsTheWholeTable) {
  Choisit("N1 > 40");
  ChangeTri(state.document, 4, true);
  EXPECT_EQ(Montrees(), 6);
  EXPECT_FALSE(state.document.FiltreActif());
}

TEST_F(SelectionTest, StatementsThatNameTheTableSeeAllOfIt) {
  Choisit("N1 > 40");
  const auto mean = state.document.WorkingDb->OpenRecordset("SELECT AVG(N1) FROM TALPENA");
  EXPECT_EQ(mean->Get(0).Nombre(), 35);
}

TEST_F(SelectionTest, ItsExamplesAndColumnNamesAreGood) {
  for (const std::string_view example : ExemplesDeSelection) {
    EXPECT_TRUE(Choisit(std::string(example))) << example;
    EXPECT_GT(Montrees(), 0) << example;
    EXPECT_LT(Montrees(), 6) << example;
  }
  std::size_t start = 0;
  const std::string names = std::string(ColonnesDeSelection) + ", ";
  for (std::size_t end = 0; (end = names.find(", ", start)) != std::string::npos; start = end + 2) {
    const std::string name = names.substr(start, end - start);
    EXPECT_TRUE(Choisit(name + " IS NULL OR 1 = 1")) << name;
  }
}

TEST_F(SelectionTest, WorksBeforeAnyFileWasRead) {
  World fresh;
  EXPECT_TRUE(ValideSelection(fresh.state, fresh.io, {1, "N1 > 1"}));
  EXPECT_EQ(fresh.state.document.Data1.recordset().RecordCount(), 0);
}

struct WordCase {
  const char* before;
  const char* word;
};

TEST(SelectionWords, TheWordBeforeTheCursorIsCompleted) {
  constexpr WordCase cases[] = {{"", ""},
                                {"la", "la"},
                                {"PERIOD = 2 AND n", "n"},
                                {"PERIOD = 2", ""},
                                {"PERIOD ", ""},
                                {"(LAT", "LAT"},
                                {"[COM", "COM"},
                                {"SEX LIKE 'F", ""},
                                {"SEX LIKE 'F' OR DA", "DA"},
                                {"COMMENT LIKE \"d'eau\" AND O", "O"},
                                {"N1", "N1"}};
  for (const auto& [before, word] : cases) EXPECT_EQ(MotACompleter(before), word) << before;
}

}  // namespace
}  // namespace talpena::test
