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
    const auto rows = world.state.WorkingDb->OpenRecordset("TALPENA");
    for (const std::int64_t n : {30, 10, 20}) {
      rows->AddNew();
      rows->Set("N1", Cell::Of(n));
      rows->Update();
    }
    world.state.Data1.Lie(*world.state.WorkingDb);
    world.state.Data1.RecordSource = world.state.SqlCourant;
    world.state.Data1.Refresh();
  }
  Recordset& Rows() { return world.state.Data1.recordset(); }
  std::vector<std::int64_t> N1() {
    std::vector<std::int64_t> values;
    const auto rows = world.state.Data1.Clone();
    for (rows->MoveFirst(); !rows->EOF_(); rows->MoveNext()) {
      values.push_back(rows->Get("N1").integer);
    }
    return values;
  }
};

TEST_F(ChangeTriTest, TakesTheExactTexts) {
  for (int i = 0; i < 10; ++i) {
    ChangeTri(world.state, i, false);
    EXPECT_EQ(world.state.SqlCourant, std::string(orders[i]) + " ASC");
    EXPECT_EQ(world.state.Data1.RecordSource, world.state.SqlCourant);
    ChangeTri(world.state, i, true);
    EXPECT_EQ(world.state.SqlCourant, std::string(orders[i]) + " DESC");
  }
}

TEST_F(ChangeTriTest, OrdersTheRows) {
  using Values = std::vector<std::int64_t>;
  ChangeTri(world.state, 4, false);
  EXPECT_EQ(N1(), (Values{10, 20, 30}));
  ChangeTri(world.state, 4, true);
  EXPECT_EQ(N1(), (Values{30, 20, 10}));
  ChangeTri(world.state, 0, true);
  EXPECT_EQ(N1(), (Values{20, 10, 30})) << "the file's order reversed";
}

TEST_F(ChangeTriTest, KeepsTheCurrentRow) {
  Rows().MoveLast();
  ASSERT_EQ(Rows().Get("N1").integer, 20);
  int positions = 0;
  world.state.Data1.Ecoute([&](DataControl::Change change) {
    if (change == DataControl::Change::Position) ++positions;
  });
  ChangeTri(world.state, 4, true);
  EXPECT_EQ(Rows().Get("N1").integer, 20);
  EXPECT_EQ(Rows().AbsolutePosition(), 1);
  EXPECT_EQ(positions, 1);
}

TEST_F(ChangeTriTest, GoesToTheFirstRowWhenTheCurrentOneIsGone) {
  Rows().MoveLast();
  world.state.WorkingDb->Execute("DELETE FROM TALPENA WHERE N1 = 20");
  ChangeTri(world.state, 4, false);
  EXPECT_EQ(Rows().Get("N1").integer, 10);
}

TEST_F(ChangeTriTest, WorksOnAnEmptyTable) {
  world.state.WorkingDb->Execute("DELETE FROM TALPENA");
  world.state.Data1.Refresh();
  ChangeTri(world.state, 4, false);
  EXPECT_TRUE(Rows().EOF_());
}

TEST(OrdreDe, IsReadFromTheSource) {
  for (int i = 0; i < 10; ++i) {
    for (const bool descending : {false, true}) {
      const auto order = OrdreDe(std::string(orders[i]) + (descending ? " DESC" : " ASC"));
      ASSERT_TRUE(order) << i;
      EXPECT_EQ(order->index, i);
      EXPECT_EQ(order->descending, descending);
    }
  }
  EXPECT_EQ(OrdreDe(orders[0])->index, 0) << "as it is at start";
}

TEST(OrdreDe, IsFileOrderForTheTableAndAFilter) {
  for (const char* source :
       {"TALPENA", "SELECT * FROM TALPENA", "SELECT * FROM TALPENA WHERE N1 > 2"}) {
    ASSERT_TRUE(OrdreDe(source)) << source;
    EXPECT_EQ(OrdreDe(source)->index, 0);
    EXPECT_FALSE(OrdreDe(source)->descending);
  }
}

TEST(OrdreDe, IsNoneOfTheListForTheOrderOfAGroupedSave) {
  EXPECT_FALSE(OrdreDe("SELECT * FROM TALPENA ORDER BY [PERIOD], [LATITUDE], [LONGITUDE]"));
}

TEST_F(ChangeTriTest, RefusesAnotherIndex) {
  for (const int index : {-1, 10}) {
    EXPECT_THROW(ChangeTri(world.state, index, false), TalpenaError);
  }
  EXPECT_EQ(world.state.SqlCourant, "SELECT * FROM TALPENA ORDER BY Counter");
}

TEST(ChangeTri, WithNothingOpenIsTakenByTheFileOpenedNext) {
  test::World world;
  ChangeTri(world.state, 4, true);
  EXPECT_EQ(world.state.SqlCourant, "SELECT * FROM TALPENA ORDER BY  [N1] DESC");
  EXPECT_FALSE(world.state.Data1.EstLie());
}

}  // namespace
}  // namespace talpena
