// MGRS on WGS84 against GeographicLib.
#include <gtest/gtest.h>

#include <GeographicLib/MGRS.hpp>
#include <GeographicLib/UTMUPS.hpp>
#include <cmath>
#include <string>
#include <vector>

#include "coords/mgrs.h"
#include "coords/proj_oracle.h"

namespace talpena {
namespace {

using GeographicLib::MGRS;
using GeographicLib::UTMUPS;
using test::Point;
using test::PointsAuHasard;

constexpr double wgsA = 6378137, wgsF = 1 / 298.257223563;
constexpr std::int16_t wgs84 = 21;

struct Position {
  int zone = 0;
  bool north = false;
  double easting = 0, northing = 0;
};

Position Exacte(Point p) {
  Position e;
  UTMUPS::Forward(p.latitude, p.longitude, e.zone, e.north, e.easting, e.northing);
  return e;
}

/// The oracle's text of whole metres, with a blank for the nought of a zone below 10.
std::string Texte(const Position& e, double easting, double northing, double latitude) {
  std::string text;
  MGRS::Forward(e.zone, e.north, easting, northing, latitude, 5, text);
  if (text[0] == '0') text[0] = ' ';
  return text;
}

/// True next to half a metre, where the two positions may be rounded apart.
bool PresDuDemi(double metres) { return std::abs(metres - std::floor(metres) - 0.5) < 1e-3; }

struct Count {
  int compared = 0, truncatedAlike = 0;
};

/// Holds each reference against the oracle's for the rounded position. The oracle truncates
/// itself, so that its own text of the point is another one three times out of four.
Count Compare(const std::vector<Point>& points) {
  Count count;
  for (const Point& p : points) {
    const Position e = Exacte(p);
    std::int16_t zone = 0;
    double northing = 0, easting = 0;
    std::string mgrs;
    LatLonVersMgrs(wgsA, wgsF, p.latitude * DegUtm, p.longitude * DegUtm, zone, northing, easting,
                   mgrs, wgs84);
    EXPECT_EQ(zone, e.zone) << p.latitude << ' ' << p.longitude;
    EXPECT_NEAR(easting, e.easting, 1e-4) << p.latitude << ' ' << p.longitude;
    EXPECT_NEAR(northing, e.northing, 1e-4) << p.latitude << ' ' << p.longitude;
    if (PresDuDemi(e.easting) || PresDuDemi(e.northing)) continue;
    EXPECT_EQ(mgrs, Texte(e, std::round(e.easting), std::round(e.northing), p.latitude));
    ++count.compared;
    if (mgrs == Texte(e, e.easting, e.northing, p.latitude)) ++count.truncatedAlike;
  }
  return count;
}

TEST(MgrsOracle, WritesTheReferencesOfGeographicLibRounded) {
  const Count world = Compare(PointsAuHasard(-80, 84, -180, 180));
  EXPECT_GT(world.compared, 9900);
  EXPECT_NEAR(world.truncatedAlike, world.compared / 4.0, world.compared / 40.0);
}

TEST(MgrsOracle, AgreesOnNorwayAndSvalbard) {
  EXPECT_GT(Compare(PointsAuHasard(56, 84, -1, 43)).compared, 9900);
}

TEST(MgrsOracle, ReadsTheReferencesOfGeographicLib) {
  for (const auto& points : {PointsAuHasard(-80, 84, -180, 180), PointsAuHasard(56, 84, 0, 42)}) {
    for (const Point& p : points) {
      const Position e = Exacte(p);
      std::string mgrs;
      MGRS::Forward(e.zone, e.north, e.easting, e.northing, p.latitude, 5, mgrs);
      int oracleZone = 0, precision = 0;
      bool north = false;
      double x = 0, y = 0, latitude = 0, longitude = 0;
      MGRS::Reverse(mgrs, oracleZone, north, x, y, precision, false);  // the south-west corner
      UTMUPS::Reverse(oracleZone, north, x, y, latitude, longitude);

      const std::string given = mgrs.size() < 15 ? "0" + mgrs : mgrs;
      std::string text = given;
      std::int16_t zone = 0;
      double phi = 0, lambda = 0, northing = 0, easting = 0;
      int error = 0;
      MgrsVersLatLon(text, wgs84, wgsA, wgsF, phi, lambda, zone, northing, easting, error);
      ASSERT_EQ(zone, oracleZone) << given;
      ASSERT_EQ(easting, x) << given;
      ASSERT_EQ(northing, y) << given;
      const double metres =
          wgsA * std::hypot(phi - latitude * DegUtm, std::cos(phi) * (lambda - longitude * DegUtm));
      ASSERT_LT(metres, 1e-3) << given;
      // The corner of a cell that a limit cuts may lie up to a metre outside, as allowed.
      ASSERT_EQ(error, 0) << given;
    }
  }
}

// The one wanted departure in the choice of zones.
TEST(MgrsOracle, Puts180DegreesInZone60WhereOthersHave1) {
  EXPECT_EQ(Exacte({10, 180}).zone, 1);
  EXPECT_EQ(ZoneMgrs(10 * DegUtm, 180 * DegUtm), 60);
}

// Limits of Svalbard's zones belong to the western zone, elsewhere to the eastern one.
TEST(MgrsOracle, PutsTheLimitsOfSvalbardInTheWesternZone) {
  for (const double limit : {9.0, 21.0, 33.0}) {
    EXPECT_EQ(ZoneMgrs(75 * DegUtm, limit * DegUtm) + 2, Exacte({75, limit}).zone) << limit;
  }
}

}  // namespace
}  // namespace talpena
