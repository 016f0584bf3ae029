#include "platform/qt/clipping.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace talpena {
namespace {

constexpr SurfaceRect frame{0, 0, 100, 50};

struct LineCase {
  const char* name;
  SurfacePoint from, to;
  SurfacePoint cutFrom, cutTo;
  double skipped;
};

constexpr double huge = 1e38;

// clang-format off
constexpr LineCase lineCases[] = {
    {"inside",             {10, 10},     {20, 20},    {10, 10}, {20, 20},  0},
    {"on the border",      {0, 0},       {100, 50},   {0, 0},   {100, 50}, 0},
    {"across",             {-50, 25},    {150, 25},   {0, 25},  {100, 25}, 50},
    {"from above",         {40, -30},    {40, 30},    {40, 0},  {40, 30},  30},
    {"over a corner",      {-10, 10},    {20, -20},   {0, 0},   {0, 0},    std::numbers::sqrt2 * 10},
    {"a dot",              {5, 5},       {5, 5},      {5, 5},   {5, 5},    0},
    {"huge along an axis", {-huge, 7},   {huge, 7},   {0, 7},   {100, 7},  huge},
    {"huge from inside",   {20, 20},     {huge, 20},  {20, 20}, {100, 20}, 0},
};
// clang-format on

TEST(CoupeLigne, KeepsThePartInside) {
  for (const LineCase& c : lineCases) {
    SCOPED_TRACE(c.name);
    const auto part = CoupeLigne(c.from, c.to, frame);
    ASSERT_TRUE(part.has_value());
    EXPECT_NEAR(part->from.x, c.cutFrom.x, 1e-9);
    EXPECT_NEAR(part->from.y, c.cutFrom.y, 1e-9);
    EXPECT_NEAR(part->to.x, c.cutTo.x, 1e-9);
    EXPECT_NEAR(part->to.y, c.cutTo.y, 1e-9);
    EXPECT_NEAR(part->skipped, c.skipped, 1e-9 * (1 + c.skipped));
  }
}

TEST(CoupeLigne, IsEmptyForALineThatMissesAndForNoNumber) {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  constexpr double infinite = std::numeric_limits<double>::infinity();
  EXPECT_FALSE(CoupeLigne({-5, 10}, {-5, 40}, frame));
  EXPECT_FALSE(CoupeLigne({-10, 20}, {20, 60}, {0, 0, 10, 10}));
  EXPECT_FALSE(CoupeLigne({200, 60}, {200, 60}, frame));
  EXPECT_FALSE(CoupeLigne({nan, 10}, {20, 20}, frame));
  EXPECT_FALSE(CoupeLigne({10, 10}, {20, infinite}, frame));
}

double Area(const std::vector<SurfacePoint>& points) {
  double twice = 0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const SurfacePoint a = points[i], b = points[(i + 1) % points.size()];
    twice += a.x * b.y - b.x * a.y;
  }
  return std::abs(twice) / 2;
}

TEST(CoupePolygone, KeepsTheAreaInside) {
  EXPECT_DOUBLE_EQ(Area(CoupePolygone({{10, 10}, {20, 10}, {20, 20}, {10, 20}}, frame)), 100);
  EXPECT_DOUBLE_EQ(Area(CoupePolygone({{-10, -10}, {20, -10}, {20, 20}, {-10, 20}}, frame)), 400);
  EXPECT_NEAR(Area(CoupePolygone({{-1e9, -1e9}, {1e9, -1e9}, {1e9, 1e9}, {-1e9, 1e9}}, frame)),
              5000, 1e-3);
  EXPECT_DOUBLE_EQ(Area(CoupePolygone({{0, 50}, {50, 0}, {100, 50}, {50, 100}}, frame)), 2500);
}

TEST(CoupePolygone, LosesWhatLiesOutsideAndWhatIsNoNumber) {
  EXPECT_TRUE(CoupePolygone({{110, 10}, {120, 10}, {120, 20}}, frame).empty());
  EXPECT_TRUE(CoupePolygone({}, frame).empty());
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_DOUBLE_EQ(Area(CoupePolygone({{10, 10}, {nan, 5}, {20, 10}, {20, 20}}, frame)), 50);
}

}  // namespace
}  // namespace talpena
