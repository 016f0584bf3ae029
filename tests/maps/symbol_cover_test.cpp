// The diameter that is advised where automatic symbols cover the land.
#include "maps/symbol_cover.h"

#include <gtest/gtest.h>

#include "maps/map_world.h"

namespace talpena {
namespace {

class ConseilTest : public ::testing::Test {
 protected:
  /// A map of 10 by 10 degrees at the equator, 1,113 km across, with n by n rows spread over it.
  void Seme(int n) {
    w.OuvrePlate(0, 0, 10, 10);
    std::vector<test::MapWorld::Row> rows;
    for (int i = 0; i < n * n; ++i)
      rows.push_back({{(i / n + 0.5) * 10 / n}, {(i % n + 0.5) * 10 / n}});
    w.Remplit(rows);
  }
  test::MapWorld w;
};

// An automatic symbol is 22 km across: 390 of 1,239,000 square kilometres.
TEST_F(ConseilTest, AdvisesNothingWhereSymbolsCoverLittle) {
  Seme(10);
  EXPECT_EQ(ConseilDiametre(w.Contexte(), 1), std::nullopt);
}

TEST_F(ConseilTest, AdvisesTheGreatestDiameterThatCoversNoMoreThanATenth) {
  Seme(30);  // 900 symbols: 28 percent; of 10 km 5.7, of 20 km 22.8
  EXPECT_EQ(ConseilDiametre(w.Contexte(), 1), 10);
}

TEST_F(ConseilTest, CountsTheLandAlone) {
  Seme(13);  // 169 symbols: 5.3 percent of the map
  EXPECT_EQ(ConseilDiametre(w.Contexte(), 1), std::nullopt);
  EXPECT_EQ(ConseilDiametre(w.Contexte(), 0.5), 20);  // 10.6 percent of the land; of 20 km 8.6
}

TEST_F(ConseilTest, AdvisesTheLeastWhereNoneIsSmallEnough) {
  Seme(150);
  EXPECT_EQ(ConseilDiametre(w.Contexte(), 0.5), 3);
}

TEST_F(ConseilTest, CountsGroundUnderSeveralSymbolsOnce) {
  w.OuvrePlate(0, 0, 10, 10);
  w.Remplit(std::vector<test::MapWorld::Row>(5000, {{5.0}, {5.0}}));
  EXPECT_EQ(ConseilDiametre(w.Contexte(), 1), std::nullopt);
}

TEST_F(ConseilTest, LeavesOutRowsBesideTheMap) {
  Seme(30);
  w.OuvrePlate(20, 20, 30, 30);
  EXPECT_EQ(ConseilDiametre(w.Contexte(), 1), std::nullopt);
}

TEST_F(ConseilTest, SaysNothingWithoutRowsOrProjection) {
  w.OuvrePlate(0, 0, 10, 10);
  EXPECT_EQ(ConseilDiametre(w.Contexte(), 1), std::nullopt);
  Seme(30);
  w.carte.CodeProjection = 0;
  EXPECT_EQ(ConseilDiametre(w.Contexte(), 1), std::nullopt);
  EXPECT_TRUE(w.dialogues.boxes.empty());
  EXPECT_EQ(w.sound.bips, 0);
}

}  // namespace
}  // namespace talpena
