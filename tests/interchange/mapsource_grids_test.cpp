// Positions on the grids of references, from the text to the point of the row.
#include <gtest/gtest.h>

#include <GeographicLib/MGRS.hpp>
#include <GeographicLib/UTMUPS.hpp>

#include "coords/datum.h"
#include "coords/systems.h"
#include "interchange/waypoint_world.h"

namespace talpena {
namespace {

using test::Lines;
using test::Metres;
using test::WaypointWorld;

/// The points of the rows that a text of one waypoint gives.
Lines Import(std::string_view grid, std::string_view datum, const std::string& position) {
  WaypointWorld world;
  world.ImporteMapSource("Grid\t" + std::string(grid) + "\nDatum\t" + std::string(datum) +
                         "\n\nHeader\tName\tDescription\tType\tPosition\n\nWaypoint\tA\tB\tU\t" +
                         position + "\n");
  return world.Points();
}

void ExpectPoint(const Lines& points, double latitude, double longitude, double metres) {
  ASSERT_EQ(points.size(), 1U);
  const Lines point = Decoupe(points[0], ' ');
  EXPECT_LT(Metres(Val(point[0]), Val(point[1]), latitude, longitude), metres) << points[0];
}

struct Town {
  const char* name;
  double latitude, longitude;
};

// Expected: GeographicLib, cells of a metre.
TEST(MapSourceGrids, GiveThePointOfAReferenceInMgrs) {
  constexpr Town towns[] = {{"Brussels", 50.846667, 4.3525},
                            {"Fiji", -17.7134, 178.065},
                            {"Anchorage", 61.2175, -149.8584},
                            {"Ushuaia", -54.801912, -68.302951}};
  for (const Town& town : towns) {
    SCOPED_TRACE(town.name);
    int zone = 0;
    bool north = false;
    double x = 0, y = 0;
    std::string reference;
    GeographicLib::UTMUPS::Forward(town.latitude, town.longitude, zone, north, x, y);
    GeographicLib::MGRS::Forward(zone, north, x, y, town.latitude, 5, reference);
    ExpectPoint(Import("MGRS", "WGS 84", reference), town.latitude, town.longitude, 2);
    if (reference.front() == '0') reference.erase(0, 1);
    ExpectPoint(Import("MGRS", "WGS 84", reference), town.latitude, town.longitude, 2);
  }
}

/// "IO 15800 34600" of a point on WGS84.
std::string Reference(CoordSystem system, const Town& town) {
  WaypointWorld world;
  const std::int16_t datum = DatumDuSysteme(world.state, system);
  double latitude = 0, longitude = 0;
  ConvertitDatum(world.state.Catalogue, town.latitude, town.longitude, 0, latitude, longitude,
                 world.state.Catalogue.DatumWgs84, datum);
  ChoisitEllipsoide(world.state.Catalogue, datum);
  return InfoDe(system).ecrit(world.state, system, latitude, longitude);
}

TEST(MapSourceGrids, GiveThePointOfABritishOrIrishReference) {
  constexpr Town britain[] = {{"Bath", 51.381389, -2.356667}, {"Orkney", 58.984722, -2.958889}};
  constexpr Town ireland[] = {{"Dublin", 53.349722, -6.260278}, {"Galway", 53.271944, -9.048889}};
  for (const Town& town : britain) {
    ExpectPoint(
        Import("British National Grid", "Ord Srvy Grt Britn", Reference(CoordSystem::Bng, town)),
        town.latitude, town.longitude, 3);
  }
  for (const Town& town : ireland) {
    ExpectPoint(Import("Irish National Grid", "Ireland 1965", Reference(CoordSystem::Itm, town)),
                town.latitude, town.longitude, 3);
  }
}

}  // namespace
}  // namespace talpena
