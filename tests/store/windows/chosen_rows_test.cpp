// The order in which rows were chosen.
#include "store/windows/chosen_rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace talpena {

void PrintTo(const RowRun& run, std::ostream* out) { *out << run.from << ">" << run.to; }

namespace {

using Runs = std::vector<RowRun>;

std::vector<int> Lignes(const ChosenRows& rows) {
  std::vector<int> all;
  for (const RowRun run : rows.Suites()) {
    const int step = run.to < run.from ? -1 : 1;
    for (int row = run.from; row != run.to + step; row += step) all.push_back(row);
  }
  return all;
}

TEST(ChosenRows, AreNoneAtFirst) {
  const ChosenRows rows;
  EXPECT_EQ(rows.Nombre(), 0);
  EXPECT_FALSE(rows.Derniere());
  EXPECT_FALSE(rows.Contient(0));
}

TEST(ChosenRows, NewOnesComeBehindThoseThatWereThere) {
  ChosenRows rows;
  rows.Devient({{7, 7}}, false);
  rows.Devient({{2, 3}, {7, 7}}, false);
  EXPECT_EQ(rows.Suites(), (Runs{{7, 7}, {2, 3}}));
  EXPECT_EQ(rows.Derniere(), 3);
  rows.Devient({{0, 9}}, false);
  EXPECT_EQ(Lignes(rows), (std::vector<int>{7, 2, 3, 0, 1, 4, 5, 6, 8, 9}));
  EXPECT_EQ(rows.Nombre(), 10);
}

TEST(ChosenRows, UpwardsTheyComeFromBelow) {
  ChosenRows rows;
  rows.Devient({{5, 5}}, false);
  rows.Devient({{2, 5}}, true);
  EXPECT_EQ(rows.Suites(), (Runs{{5, 2}}));
  EXPECT_EQ(rows.Derniere(), 2);
  rows.Devient({{0, 7}}, true);
  EXPECT_EQ(Lignes(rows), (std::vector<int>{5, 4, 3, 2, 7, 6, 1, 0}));
}

TEST(ChosenRows, OnesThatGoLeaveTheOthersInTheirOrder) {
  ChosenRows rows;
  rows.Devient({{5, 5}}, false);
  rows.Devient({{1, 5}}, true);
  rows.Devient({{1, 2}, {4, 5}}, false);
  EXPECT_EQ(rows.Suites(), (Runs{{5, 4}, {2, 1}}));
  EXPECT_FALSE(rows.Contient(3));
  rows.Devient({}, false);
  EXPECT_EQ(rows.Nombre(), 0);
}

TEST(ChosenRows, OneAfterTheOtherStayOneRun) {
  ChosenRows rows;
  for (int row = 0; row < 1000; ++row) rows.Devient({{0, row}}, false);
  EXPECT_EQ(rows.Suites(), (Runs{{0, 999}}));
  rows.Vide();
  for (int row = 999; row >= 0; --row) rows.Devient({{row, 999}}, true);
  EXPECT_EQ(rows.Suites(), (Runs{{999, 0}}));
}

/// The plainest way: a list of single rows.
TEST(ChosenRows, AgreeWithAListOfRows) {
  std::mt19937 random(11);
  ChosenRows rows;
  std::vector<int> expected;
  for (int step = 0; step < 3000; ++step) {
    std::vector<int> wanted;
    Runs runs;
    for (int row = static_cast<int>(random() % 4); row < 40;) {
      const int last = std::min(39, row + static_cast<int>(random() % 6));
      runs.push_back({row, last});
      for (int r = row; r <= last; ++r) wanted.push_back(r);
      row = last + 1 + static_cast<int>(random() % 8);
    }
    const bool upwards = random() % 2 == 0;
    std::erase_if(expected, [&](int row) {
      return std::find(wanted.begin(), wanted.end(), row) == wanted.end();
    });
    if (upwards) std::reverse(wanted.begin(), wanted.end());
    for (const int row : wanted) {
      if (std::find(expected.begin(), expected.end(), row) == expected.end()) {
        expected.push_back(row);
      }
    }
    std::shuffle(runs.begin(), runs.end(), random);
    rows.Devient(runs, upwards);
    ASSERT_EQ(Lignes(rows), expected) << step;
    ASSERT_EQ(rows.Nombre(), static_cast<std::int64_t>(expected.size()));
  }
}

TEST(ChosenRows, TakeAnOrderAsItIsAndJoinNeighbours) {
  ChosenRows rows;
  rows.Devient({{1, 5}}, false);
  const Runs singles{{7, 7}, {6, 6}, {5, 5}, {1, 1}, {2, 2}, {3, 3}, {9, 9}};
  rows.DevientDansLOrdre(singles);
  EXPECT_EQ(Lignes(rows), (std::vector<int>{7, 6, 5, 1, 2, 3, 9}));
  EXPECT_EQ(rows.Suites(), (Runs{{7, 5}, {1, 3}, {9, 9}}));
  EXPECT_EQ(rows.Derniere(), 9);
  rows.DevientDansLOrdre({});
  EXPECT_EQ(rows.Nombre(), 0);
}

}  // namespace
}  // namespace talpena
