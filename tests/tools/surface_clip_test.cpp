#include "carto/surface_clip.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>

namespace talpena {
namespace {

const Frame square{0, 0, 10, 10};

Ring Boite(double left, double bottom, double right, double top) {
  return {{left, bottom}, {right, bottom}, {right, top}, {left, top}};
}

double AireDe(const Surface& surface) {
  double sum = 0;
  for (const Ring& ring : surface) sum += std::abs(Aire(ring));
  return sum;
}

/// Length of the outlines along a bound; an edge that is walked twice counts twice.
double LongueurSurX(const Surface& surface, double x) {
  double sum = 0;
  for (const Ring& ring : surface) {
    for (std::size_t i = 0; i < ring.size(); ++i) {
      const PlanePoint a = ring[i == 0 ? ring.size() - 1 : i - 1], b = ring[i];
      if (a.x == x && b.x == x) sum += std::abs(b.y - a.y);
    }
  }
  return sum;
}

TEST(RogneSurface, KeepsARingThatLiesInside) {
  const Ring ring = Boite(1, 1, 3, 4);
  EXPECT_EQ(RogneSurface({ring}, square), Surface{ring});
}

TEST(RogneSurface, LeavesNothingOfARingOutside) {
  EXPECT_TRUE(RogneSurface({Boite(11, 1, 13, 4)}, square).empty());
  EXPECT_TRUE(RogneSurface({{{-5, 12}, {5, 22}, {15, 12}}}, square).empty());
}

TEST(RogneSurface, LeavesNothingOfARingThatOnlyTouches) {
  EXPECT_TRUE(RogneSurface({Boite(-5, 2, 0, 6)}, square).empty());
}

TEST(RogneSurface, FillsTheFrameWhenTheRingGoesRoundIt) {
  EXPECT_DOUBLE_EQ(AireDe(RogneSurface({Boite(-5, -5, 15, 15)}, square)), 100);
}

TEST(RogneSurface, CutsToTheAreaThatBothShare) {
  EXPECT_DOUBLE_EQ(AireDe(RogneSurface({Boite(-5, 2, 5, 6)}, square)), 20);
  EXPECT_NEAR(AireDe(RogneSurface({{{5, 5}, {15, 5}, {5, 15}}}, square)), 25, 1e-12);
}

TEST(RogneSurface, PartsTwoArmsWithoutAnEdgeBetweenThem) {
  // A U that opens to the right, its bend left of the frame.
  const Ring u{{-5, 2}, {8, 2}, {8, 4}, {-3, 4}, {-3, 6}, {8, 6}, {8, 8}, {-5, 8}};
  const Surface cut = RogneSurface({u}, square);
  ASSERT_EQ(cut.size(), 2U);
  EXPECT_TRUE(EstDedans(cut, {4, 3}));
  EXPECT_FALSE(EstDedans(cut, {4, 5}));
  EXPECT_TRUE(EstDedans(cut, {4, 7}));
  EXPECT_DOUBLE_EQ(AireDe(cut), 32);
  EXPECT_DOUBLE_EQ(LongueurSurX(cut, 0), 4);
}

TEST(RogneSurface, LeavesNoEdgeAcrossAHole) {
  const Surface cut = RogneSurface({Boite(-5, 1, 8, 9), Boite(-3, 3, 5, 7)}, square);
  EXPECT_DOUBLE_EQ(LongueurSurX(cut, 0), 4);
  EXPECT_FALSE(EstDedans(cut, {2, 5}));
  EXPECT_TRUE(EstDedans(cut, {2, 2}));
  EXPECT_TRUE(EstDedans(cut, {6, 5}));
}

TEST(RogneSurface, LeavesNoEdgeWhereAnArmRunsAlongTheBound) {
  // The land lies left of the frame, but for one cape; its coast runs on the bound itself.
  const Ring coast{{-5, 0}, {0, 0}, {0, 4}, {3, 5}, {0, 6}, {0, 10}, {-5, 10}};
  const Surface cut = RogneSurface({coast}, square);
  ASSERT_EQ(cut.size(), 1U);
  EXPECT_DOUBLE_EQ(AireDe(cut), 3);
  EXPECT_DOUBLE_EQ(LongueurSurX(cut, 0), 2);
}

TEST(RogneSurface, CutsNeighboursThatShareAnEdge) {
  const Surface cut = RogneSurface({Boite(-5, 1, 5, 4), Boite(-5, 4, 5, 8)}, square);
  EXPECT_TRUE(EstDedans(cut, {2, 3}));
  EXPECT_TRUE(EstDedans(cut, {2, 5}));
  EXPECT_FALSE(EstDedans(cut, {2, 9}));
}

// Odd and even of a star that crosses itself: the cut changes nothing of what is inside.
TEST(RogneSurface, KeepsWhatIsInsideOfARingThatCrossesItself) {
  Ring star;
  for (int i = 0; i < 7; ++i) {
    const double angle = 2 * 3.14159265 * 3 * i / 7;
    star.push_back({5 + 8 * std::sin(angle), 5 + 8 * std::cos(angle)});
  }
  const Surface cut = RogneSurface({star}, square);
  for (double x = 0.05; x < 10; x += 0.1) {
    for (double y = 0.05; y < 10; y += 0.1)
      ASSERT_EQ(EstDedans(cut, {x, y}), EstDedans({star}, {x, y})) << x << " " << y;
  }
}

}  // namespace
}  // namespace talpena
