#include "carto/plane_geometry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace talpena {
namespace {

const Frame unit{0, 0, 10, 10};

Ring Rectangle(double left, double bottom, double right, double top) {
  return {{left, bottom}, {right, bottom}, {right, top}, {left, top}};
}

TEST(RogneLigne, GivesThePartsInside) {
  const auto parts = RogneLigne({{-5, 5}, {5, 5}, {5, 15}, {7, 15}, {7, 5}}, unit);
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_EQ(parts[0], (Line{{0, 5}, {5, 5}, {5, 10}}));
  EXPECT_EQ(parts[1], (Line{{7, 10}, {7, 5}}));
}

TEST(RogneLigne, KeepsALineThatRunsOutAndInAtOnePointInTwoParts) {
  EXPECT_EQ(RogneLigne({{5, 5}, {15, 5}, {5, 6}}, unit).size(), 2U);
}

TEST(RogneLigne, LeavesOutWhatOnlyTouches) {
  EXPECT_TRUE(RogneLigne({{-5, 5}, {5, 15}}, unit).empty());
}

TEST(Densifie, PutsNoMoreThanAStepBetweenPoints) {
  const Line dense = Densifie({{0, 0}, {2.5, 0}, {2.5, 0.5}}, 1);
  ASSERT_EQ(dense.size(), 5U);
  EXPECT_NEAR(dense[1].x, 2.5 / 3, 1e-12);
  EXPECT_EQ(dense.back(), (PlanePoint{2.5, 0.5}));
}

TEST(Simplifie, KeepsEveryPointWithinTheTolerance) {
  Line wave;
  for (int i = 0; i <= 400; ++i) wave.push_back({i * 0.05, std::sin(i * 0.05)});
  const Line thin = Simplifie(wave, 0.05);
  EXPECT_LT(thin.size(), 40U);
  EXPECT_EQ(thin.front(), wave.front());
  EXPECT_EQ(thin.back(), wave.back());
  for (const PlanePoint p : wave) {
    double nearest = 1e9;
    for (std::size_t i = 1; i < thin.size(); ++i) {
      const double t = (p.x - thin[i - 1].x) / (thin[i].x - thin[i - 1].x);
      if (t < 0 || t > 1) continue;
      nearest = std::min(nearest, std::abs(p.y - thin[i - 1].y - t * (thin[i].y - thin[i - 1].y)));
    }
    EXPECT_LT(nearest, 0.08) << p.x;  // measured upright, the wave climbs at 45 degrees
  }
}

TEST(Simplifie, DoesNotCollapseAClosedLine) {
  EXPECT_EQ(Simplifie(Ferme(Rectangle(0, 0, 5, 5)), 0.1).size(), 5U);
}

TEST(EstDedans, TakesAHoleOut) {
  const Surface ring{Rectangle(0, 0, 10, 10), Rectangle(4, 4, 6, 6)};
  EXPECT_TRUE(EstDedans(ring, {2, 5}));
  EXPECT_FALSE(EstDedans(ring, {5, 5}));
  EXPECT_FALSE(EstDedans(ring, {12, 5}));
}

}  // namespace
}  // namespace talpena
