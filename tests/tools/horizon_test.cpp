#include "carto/horizon.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace talpena {
namespace {

constexpr double radians = std::numbers::pi / 180;

/// As the eye sees a place on a globe of radius 1.
PlanePoint Vu(PlanePoint p, double latitude, double longitude) {
  const double lat = p.y * radians, dl = (p.x - longitude) * radians, phi = latitude * radians;
  return {std::cos(lat) * std::sin(dl),
          std::cos(phi) * std::sin(lat) - std::sin(phi) * std::cos(lat) * std::cos(dl)};
}

Surface SurLeGlobe(const Surface& lonLat, double latitude, double longitude) {
  Surface seen;
  for (const Ring& ring : Horizon(latitude, longitude, 90).Rogne(lonLat)) {
    seen.emplace_back();
    for (const PlanePoint p : ring) seen.back().push_back(Vu(p, latitude, longitude));
  }
  return seen;
}

Ring Rectangle(double west, double south, double east, double north) {
  return {{west, south}, {east, south}, {east, north}, {west, north}};
}

/// Every place on a lattice lies in the surface on the globe if it does on the earth.
void AttendMemesLieux(const Surface& lonLat, double latitude, double longitude) {
  const Horizon horizon(latitude, longitude, 90);
  const Surface seen = SurLeGlobe(lonLat, latitude, longitude);
  for (double lat = -87.3; lat < 90; lat += 7.1) {
    for (double lon = -178.7; lon < 180; lon += 9.3) {
      if (!Horizon(latitude, longitude, 88).Voit({lon, lat})) continue;
      EXPECT_EQ(EstDedans(seen, Vu({lon, lat}, latitude, longitude)), EstDedans(lonLat, {lon, lat}))
          << "at " << lat << ' ' << lon << " on the globe of " << latitude << ' ' << longitude;
    }
  }
}

TEST(Horizon, ShowsHalfAGlobe) {
  const Horizon horizon(0, 0, 90);
  EXPECT_TRUE(horizon.Voit({89.9, 0}));
  EXPECT_FALSE(horizon.Voit({90.1, 0}));
  EXPECT_TRUE(horizon.Voit({0, 89}));
}

TEST(Horizon, CutsASquareAtTheLimb) {
  const Surface seen = SurLeGlobe({Rectangle(60, -10, 120, 10)}, 0, 0);
  ASSERT_EQ(seen.size(), 1U);
  // From x = sin 60 cos lat to the limb, between y = -sin 10 and y = sin 10.
  double area = 0;
  for (double y = -1; y <= 1; y += 1e-4) {
    if (std::abs(y) <= std::sin(10 * radians))
      area += std::sqrt(1 - y * y) * (1 - std::sin(60 * radians)) * 1e-4;
  }
  EXPECT_NEAR(std::abs(Aire(seen.front())), area, 1e-4);
}

TEST(Horizon, LeavesNothingOfWhatLiesBehind) {
  EXPECT_TRUE(SurLeGlobe({Rectangle(150, 20, 170, 30)}, 0, 0).empty());
}

// The ring round the point opposite the centre would otherwise fill the whole disc.
TEST(Horizon, FillsNothingForAnIslandRoundTheOppositePoint) {
  const Surface seen = SurLeGlobe({Rectangle(165, -10, 175, 10)}, 0, -10);
  EXPECT_FALSE(EstDedans(seen, {0, 0}));
  EXPECT_FALSE(EstDedans(seen, {0.9, 0.1}));
}

TEST(Horizon, FillsTheDiscWhenOnlyAHoleIsBehind) {
  const Surface all{Rectangle(-180, -90, 180, 90), Rectangle(165, -10, 175, 10)};
  const Surface seen = SurLeGlobe(all, 0, -10);
  EXPECT_TRUE(EstDedans(seen, {0, 0}));
  EXPECT_TRUE(EstDedans(seen, {0.9, 0.1}));
}

TEST(Horizon, KeepsInsideAndOutsideOnEveryGlobe) {
  const Surface shapes[] = {
      {Rectangle(-180, -90, 180, -65)},                                // round a pole
      {Rectangle(150, -20, 180, 40), Rectangle(-180, -20, -140, 40)},  // across 180 degrees
      {Rectangle(-100, -50, 120, 60), Rectangle(-20, -10, 30, 25)},    // with a hole
      {{{-170, 10}, {-20, -70}, {40, 80}, {170, 50}, {60, -30}}},
  };
  for (const Surface& shape : shapes) {
    for (const PlanePoint centre :
         {PlanePoint{0, 0}, {33, 52}, {171, -41}, {-95, 18}, {0.5, 90}, {0.5, -90}})
      AttendMemesLieux(shape, centre.y, centre.x);
  }
}

TEST(Horizon, ClosesAlongTheLimbAndNotAcrossTheDisc) {
  for (const Ring& ring : SurLeGlobe({Rectangle(20, -80, 200, 80)}, 0, 0)) {
    for (std::size_t i = 1; i < ring.size(); ++i)
      EXPECT_LT(std::hypot(ring[i].x - ring[i - 1].x, ring[i].y - ring[i - 1].y), 0.03);
  }
}

TEST(Horizon, EndsALineOnTheLimb) {
  const auto parts = Horizon(0, 0, 90).RogneLigne({{-120, 0}, {120, 0}});
  ASSERT_EQ(parts.size(), 1U);
  EXPECT_NEAR(parts.front().front().x, -90, 1e-9);
  EXPECT_NEAR(parts.front().back().x, 90, 1e-9);
}

TEST(Horizon, SplitsALineThatGoesBehindAndComesBack) {
  const auto parts = Horizon(0, 0, 90).RogneLigne({{60, 0}, {100, 0}, {100, 10}, {60, 10}});
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_NEAR(parts[0].back().x, 90, 1e-9);
  EXPECT_NEAR(parts[1].back().y, 10, 1e-9);
}

TEST(Horizon, HasACircleForItsEdge) {
  for (const PlanePoint p : Horizon(30, 15, 120).Bord()) {
    const double c =
        std::sin(30 * radians) * std::sin(p.y * radians) +
        std::cos(30 * radians) * std::cos(p.y * radians) * std::cos((p.x - 15) * radians);
    EXPECT_NEAR(c, -0.5, 1e-9);
  }
}

}  // namespace
}  // namespace talpena
