#include "store/sort.h"

#include <gtest/gtest.h>

#include "store/world.h"

namespace talpena {
namespace {

// clang-format off
constexpr const char* orders[] = {
    "SELECT * FROM TALPENA ORDER BY Counter",
    "SELECT * FROM TALPENA ORDER BY [PERIOD]",
    "SELECT * FROM TALPENA ORDER BY [LATITUDE]",
    "SELECT * FROM TALPENA ORDER BY  [LONGITUDE]",
    "SELECT * FROM TALPENA ORDER BY  [N1]",
    "SELECT * FROM TALPENA ORDER BY  [N2]",
    "SELECT * FROM TALPENA ORDER BY  [DATUM]",
    "SELECT * FROM TALPENA ORDER BY  [ORIGINAL]",
    "SELECT * FROM TALPENA ORDER BY  [DATE]",
    "SELECT * FROM TALPENA ORDER BY  [SEX]",
};
// clang-format on

class ChangeTriTest : public ::testing::Test {
 protected:
  test::World world;

  ChangeTriTest() {
    const auto rows = world.state.document.WorkingDb->OpenRecordset("TALPENA");
    for (const std::int64_t n : {30, 10, 20}) {
      rows->AddNew();
      rows->Set("N1", Cell::Of(n));
      rows->Update();
    }
    world.state.document.Data1.Lie(*world.state.document.WorkingDb);
    world.state.document.RelieSqlCourant();
  }
  Recordset& Rows() { return world.state.document.Data1.recordset(); }
  std::vector<std::int64_t> N1() {
    std::vector<std::int64_t> values;
    const auto rows = world.state.document.Data1.Clone();
    for (rows->MoveFirst(); !rows->EOF_(); rows->MoveNext()) {
      values.push_back(rows->Get("N1").integer);
    }
    return values;
  }
};

TEST_F(ChangeTriTest, TakesTheExactTexts) {
  for (int i = 0; i < 10; ++i) {
    ChangeTri(world.state.document, i, false);
    EXPECT_EQ(world.state.document.SqlCourant(), std::string(orders[i]) + " ASC");
    EXPECT_EQ(world.state.document.Data1.RecordSource, world.state.document.SqlCourant());
    ChangeTri(world.state.document, i, true);
    EXPECT_EQ(world.state.document.SqlCourant(), std::string(orders[i]) + " DESC");
  }
}

TEST_F(ChangeTriTest, OrdersTheRows) {
  using Values = std::vector<std::int64_t>;
  ChangeTri(world.state.document, 4, false);
  EXPECT_EQ(N1(), (Values{10, 20, 30}));
  ChangeTri(world.state.document, 4, true);
  EXPECT_EQ(N1(), (Values{30, 20, 10}));
  ChangeTri(world.state.document, 0, true);
  EXPECT_EQ(N1(), (Values{20, 10, 30})) << "the file's order reversed";
}

TEST_F(ChangeTriTest, KeepsTheCurrentRow) {
  Rows().MoveLast();
  ASSERT_EQ(Rows().Get("N1").integer, 20);
  int positions = 0;
  const Subscription observed =
      test::ObserveLignes(world.state.document, [&](DataControl::Change change) {
        if (change == DataControl::Change::Position) ++positions;
      });
  ChangeTri(world.state.document, 4, true);
  EXPECT_EQ(Rows().Get("N1").integer, 20);
  EXPECT_EQ(Rows().AbsolutePosition(), 1);
  EXPECT_EQ(positions, 1);
}

TEST_F(ChangeTriTest, GoesToTheFirstRowWhenTheCurrentOneIsGone) {
  Rows().MoveLast();
  world.state.document.WorkingDb->Execute("DELETE FROM TALPENA WHERE N1 = 20");
  ChangeTri(world.state.document, 4, false);
  EXPECT_EQ(Rows().Get("N1").integer, 10);
}

TEST_F(ChangeTriTest, WorksOnAnEmptyTable) {
  world.state.document.WorkingDb->Execute("DELETE FROM TALPENA");
  world.state.document.Data1.Refresh();
  ChangeTri(world.state.document, 4, false);
  EXPECT_TRUE(Rows().EOF_());
}

TEST(RowsShown, TellTheirOrderAndSourceInTheListsWords) {
  for (int i = 0; i < 10; ++i) {
    for (const auto direction : {Direction::Ascending, Direction::Descending}) {
      const RowOrder order{i, direction};
      const RowsShown rows = RowsShown::Dans(order);
      EXPECT_EQ(rows.Ordre(), order);
      EXPECT_EQ(rows.Source(),
                std::string(orders[i]) + (direction == Direction::Descending ? " DESC" : " ASC"));
    }
  }
  EXPECT_EQ(RowsShown::Dans({}).Source(), orders[0]) << "as it is at start";
}

TEST(RowsShown, AreInFileOrderForTheTableAndAFilter) {
  const std::pair<RowsShown, const char*> cases[] = {
      {RowsShown::Table(), "TALPENA"},
      {RowsShown::Toutes(), "SELECT * FROM TALPENA"},
      {RowsShown::Filtrees("N1 > 2"), "SELECT * FROM TALPENA WHERE N1 > 2"}};
  for (const auto& [rows, source] : cases) {
    EXPECT_EQ(rows.Source(), source);
    ASSERT_TRUE(rows.Ordre()) << source;
    EXPECT_EQ(rows.Ordre()->index, 0);
    EXPECT_NE(rows.Ordre()->direction, Direction::Descending);
  }
}

TEST(RowsShown, HaveNoneOfTheListsOrdersWhereTheConditionBringsItsOwn) {
  EXPECT_FALSE(RowsShown::Filtrees("N1 > 1 ORDER BY [N2]").Ordre());
}

TEST(RowsShown, HaveNoneOfTheListsOrdersForAGroupedSave) {
  EXPECT_EQ(RowsShown::Groupables().Source(),
            "SELECT * FROM TALPENA ORDER BY [PERIOD], [LATITUDE], [LONGITUDE]");
  EXPECT_FALSE(RowsShown::Groupables().Ordre());
}

TEST_F(ChangeTriTest, RefusesAnotherIndex) {
  for (const int index : {-1, 10}) {
    EXPECT_THROW(ChangeTri(world.state.document, index, false), TalpenaError);
  }
  EXPECT_EQ(world.state.document.SqlCourant(), "SELECT * FROM TALPENA ORDER BY Counter");
}

TEST(ChangeTri, WithNothingOpenIsTakenByTheFileOpenedNext) {
  test::World world;
  ChangeTri(world.state.document, 4, true);
  EXPECT_EQ(world.state.document.SqlCourant(), "SELECT * FROM TALPENA ORDER BY  [N1] DESC");
  EXPECT_FALSE(world.state.document.Data1.EstLie());
}

}  // namespace
}  // namespace talpena
