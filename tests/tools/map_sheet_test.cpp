#include "carto/map_sheet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>

#include "carto/map_drawing.h"

namespace talpena {
namespace {

Ring Degres(double west, double south, double east, double north) {
  return {{west, south}, {east, south}, {east, north}, {west, north}};
}

/// A world in a projection, on any meridian.
MapRow Monde(int code, float meridian) {
  return {"m", "", Detail::World, code, 0, 80, -80, meridian + 180, meridian - 180,
          0,   0,  meridian,      15};
}

TEST(MapSheet, CutsAtTheMeridianOppositeTheMiddle) {
  const MapSheet sheet(Monde(5, 150));  // cut at 30 W
  const Surface placed = sheet.PlaceSurface({Degres(-40, -10, -10, 10)});
  ASSERT_EQ(placed.size(), 2U);
  const double halfTurn = sheet.Cadre().right;
  for (const Ring& ring : placed) {
    const Frame frame = CadreDe(ring);
    EXPECT_LT(frame.right - frame.left, halfTurn / 5) << "a streak across the map";
  }
  EXPECT_NEAR(Aire(placed), Aire(sheet.PlaceSurface({Degres(100, -10, 130, 10)})), 10);
}

TEST(MapSheet, JoinsWhatTheDataCutAt180Degrees) {
  const MapSheet sheet(Monde(5, 150));
  const Surface placed =
      sheet.PlaceSurface({Degres(170, -10, 180, 10), Degres(-180, -10, -170, 10)});
  ASSERT_EQ(placed.size(), 2U);
  EXPECT_NEAR(CadreDe(placed[0]).right, CadreDe(placed[1]).left, 0.01);
}

TEST(MapSheet, CutsLinesThere) {
  const MapSheet sheet(Monde(4, 150));
  const auto lines = sheet.PlaceLignes({{{-80, 0}, {20, 0}}});
  ASSERT_EQ(lines.size(), 2U);
  for (const Line& line : lines) {
    for (std::size_t i = 1; i < line.size(); ++i)
      EXPECT_LT(std::abs(line[i].x - line[i - 1].x), 150);  // a degree of the equator is 111 km
  }
}

TEST(MapSheet, KeepsHoles) {
  const Surface land{Degres(0, 30, 40, 60), Degres(15, 40, 25, 50)};
  for (const char* name : {"europe", "globe", "world_sinusoidal", "mediterranean", "north_pole"}) {
    for (const MapRow& row : Catalogue()) {
      if (std::string(row.name) != name) continue;
      const MapSheet sheet(row);
      const Surface placed = sheet.PlaceSurface(land);
      EXPECT_FALSE(EstDedans(placed, sheet.Projette({20, 44}))) << name;
      EXPECT_TRUE(EstDedans(placed, sheet.Projette({12, 44}))) << name;
      EXPECT_TRUE(EstDedans(placed, sheet.Projette({30, 41}))) << name;
    }
  }
}

TEST(MapSheet, KeepsEverythingInsideItsBox) {
  const Surface earth{Degres(-180, -90, 180, 90)};
  for (const MapRow& row : Catalogue()) {
    const MapSheet sheet(row);
    const Frame box = sheet.Cadre();
    for (const Ring& ring : sheet.PlaceSurface(earth)) {
      for (const PlanePoint p : ring) {
        ASSERT_TRUE(p.x >= box.left && p.x <= box.right) << row.name;
        ASSERT_TRUE(p.y >= box.bottom && p.y <= box.top) << row.name;
      }
    }
  }
}

TEST(MapSheet, HasWaterAllOverTheBoxOfAMapWithoutALimb) {
  for (const MapRow& row : Catalogue()) {
    const MapSheet sheet(row);
    if (!sheet.Limbe().empty()) continue;
    const Frame box = sheet.Cadre();
    EXPECT_NEAR(Aire(sheet.Terre()) / ((box.right - box.left) * (box.top - box.bottom)), 1, 1e-6)
        << row.name;
  }
}

TEST(MapSheet, HasADiscOfWaterOnAGlobe) {
  for (const MapRow& row : Catalogue()) {
    if (row.code != 13) continue;
    const double radius = 6378.388;
    EXPECT_NEAR(Aire(MapSheet(row).Terre()), 3.14159 * radius * radius, 3e4) << row.name;
  }
}

TEST(Catalogue, HasAMapForEveryProjection) {
  std::set<int> codes;
  for (const MapRow& row : Catalogue()) codes.insert(row.code);
  EXPECT_EQ(codes.size(), 13U);
  EXPECT_EQ(*codes.begin(), 1);
  EXPECT_EQ(*codes.rbegin(), 13);
}

TEST(Catalogue, NamesEveryMapOnce) {
  std::set<std::string> names;
  for (const MapRow& row : Catalogue()) EXPECT_TRUE(names.insert(row.name).second) << row.name;
}

// No longitude of a row is ever moved by a full turn; a globe needs none.
TEST(Catalogue, StaysWithin180DegreesButOnGlobes) {
  for (const MapRow& row : Catalogue()) {
    EXPECT_GE(row.west, -180) << row.name;
    EXPECT_LE(row.east, row.code == 13 ? farthestEast : 180) << row.name;
    EXPECT_LT(row.west, row.east) << row.name;
    EXPECT_LT(row.south, row.north) << row.name;
  }
}

// A record of a line layer is drawn when it lies inside the limits; behind the globe it would be a
// streak.
TEST(Catalogue, HasLimitsOnTheNearSideOfGlobes) {
  for (const MapRow& row : Catalogue()) {
    if (row.code != 13) continue;
    const Horizon horizon(row.parallel, row.meridian, 90);
    for (double lat = row.south - 1; lat <= std::min(row.north + 1, 90.0F); lat += 1) {
      for (double lon = row.west; lon <= row.east; lon += 1)
        ASSERT_TRUE(horizon.Voit({lon, lat})) << row.name << ' ' << lat << ' ' << lon;
    }
  }
}

TEST(TailleImage, HasTheProportionsOfTheBoxWithinAPixel) {
  for (const MapRow& row : Catalogue()) {
    const MapSheet sheet(row);
    const MapState& state = sheet.Etat();
    const PictureSize size = TailleImage(state);
    EXPECT_LE(size.width, 1440);
    EXPECT_LE(size.height, 960);
    EXPECT_NEAR(size.width * static_cast<double>(state.HauteurKm) / state.LargeurKm, size.height, 1)
        << row.name;
  }
}

}  // namespace
}  // namespace talpena
