// The projections against PROJ on the same figure: where they differ, it is by what 32 bits hold.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "common/numbers.h"
#include "coords/proj_oracle.h"
#include "maps/map_projection.h"
#include "maps/some_map.h"

namespace talpena {
namespace {

using test::CarteDe;
using test::LatLon;
using test::LimitesEurope;
using test::Plane;
using test::Point;
using test::ProjOracle;
using test::Xy;

/// A box of places in degrees.
struct Area {
  double south, north, west, east;
};

/// What a projection is in the words of PROJ, and how far ours may lie from it.
struct OracleCase {
  const char* name;
  int code;
  std::string proj;  ///< without the figure and the central meridian
  double xScale, yScale;
  Area area;
  double forwardM;       ///< metres
  double inverseM;       ///< metres on the ground; 0: the code has no inverse of its own
  double tilt = 40;      ///< ParallelePrincipal
  double meridian = 10;  ///< MeridienCentralDeg
};

double Degres(double radians) { return proj_todeg(radians); }

std::string Figure(const OracleCase& c) {
  return c.code == 1 ? " +a=6378388 +b=6356911.9461279465" : " +R=6378388";
}

MapState CarteDuCas(const OracleCase& c) {
  MapState carte = LimitesEurope(c.code);
  carte.ParallelePrincipal = static_cast<float>(c.tilt);
  carte.MeridienCentralDeg = static_cast<float>(c.meridian);
  test::Prepare(carte);
  return carte;
}

// The tolerances are what 32 bits hold. A place at the rim of the world is kept to half a metre as
// a longitude, to a metre as metres and to a metre as kilometres; the inverse reads it and adds as
// much. The cone constant of close parallels comes out of differences of 32-bit logarithms, which
// is 20 m at 15,000 km. Inverting by the arc sine loses digits towards the limb of a globe. The
// arc tangent of the conic's inverse serves half a turn of the cone, 117 degrees to either side.
std::vector<OracleCase> Cases() {
  const double k7 = std::cos(0.523598776), k8 = std::cos(0.785398163);
  const double k9 = std::cos(proj_torad(40.0));
  const Area world{-89, 89, -169, 189}, europe{25, 75, -30, 50}, mercator{-78.9, 78.9, -169, 189};
  const Area globe{5, 75, -25, 45}, south{-70, 10, 100, 179}, cone{-60, 89, -100, 120};
  const auto gall = [k8](double k) { return std::pair{k / k8, (1 + k) / (1 + k8)}; };
  const std::string lcc = "+proj=lcc +lat_1=40 +lat_2=60 +lat_0=90";
  const std::string miller = "+proj=eqc +lat_ts=" + Str(Degres(0.8813913));
  const std::string stere = "+proj=stere +lat_0=" + Str(Degres(radian(20)));
  return {
      {"conformal conic", 1, lcc, 1, 1, europe, 3, 4},
      {"conformal conic, the world", 1, lcc, 1, 1, cone, 20, 20},
      {"Mercator", 2, "+proj=merc", 1, 1, mercator, 2.5, 3},
      {"stereographic", 3, stere, 1, 1, europe, 1, 3},
      {"sinusoidal", 4, "+proj=sinu", 1, 1, world, 2.5, 4},
      {"plate carree", 5, "+proj=eqc", 1, 1, world, 2.5, 3},
      {"equirectangular", 6, miller, 1, 1, world, 2.5, 3},
      {"cylinder of 30 degrees", 7, "+proj=gall", gall(k7).first, gall(k7).second, world, 2.5, 3},
      {"cylinder of 45 degrees", 8, "+proj=gall", gall(k8).first, gall(k8).second, world, 2.5, 3},
      {"cylinder of 40 degrees", 9, "+proj=gall", gall(k9).first, gall(k9).second, world, 2.5, 3},
      {"orthographic north", 11, "+proj=ortho +lat_0=90", 1, 1, {1, 89, -169, 189}, 1, 0},
      {"orthographic south", 12, "+proj=ortho +lat_0=-90", 1, 1, {-89, -1, -169, 189}, 1, 0},
      {"orthographic oblique", 13, "+proj=ortho +lat_0=40", 1, 1, globe, 1, 3},
      {"orthographic of the south", 13, "+proj=ortho +lat_0=-30", 1, 1, south, 1, 3, -30, 140},
  };
}

/// Distance on the ground of two near places in radians.
double Ecart(LatLon a, double lat, double lon) {
  const double east = std::remainder(a.lon - lon, 2 * M_PI) * std::cos(lat);
  return 6378388.0 * std::hypot(a.lat - lat, east);
}

ProjOracle Oracle(const OracleCase& c, const MapState& carte) {
  return ProjOracle(c.proj + Figure(c) + " +lon_0=" + Str(Degres(carte.MeridienCentral)) +
                    " +over");
}

TEST(ProjectionOracle, HasACaseForEveryProjection) {
  std::vector<int> codes{10};  // which is no projection of the earth: see AgreesToTheEastInCode10
  for (const OracleCase& c : Cases()) codes.push_back(c.code);
  for (const MapProjection& projection : Projections()) {
    EXPECT_NE(std::find(codes.begin(), codes.end(), projection.code), codes.end())
        << projection.code;
  }
}

TEST(ProjectionOracle, AgreesForward) {
  for (const OracleCase& c : Cases()) {
    SCOPED_TRACE(c.name);
    const MapState carte = CarteDuCas(c);
    const ProjOracle oracle = Oracle(c, carte);
    ASSERT_TRUE(oracle.Valide());
    double worst = 0;
    for (const Point& p :
         test::PointsAuHasard(c.area.south, c.area.north, c.area.west, c.area.east)) {
      const float lat = radian(static_cast<float>(p.latitude)),
                  lon = radian(static_cast<float>(p.longitude));
      const PJ_COORD there = oracle.Avant(lon, lat);
      Xy ours;
      Project(carte, lat, lon, ours.X, ours.Y);
      worst = std::max(worst, std::hypot(ours.X * 1000.0 - there.xy.x * c.xScale,
                                         ours.Y * 1000.0 - there.xy.y * c.yScale));
    }
    EXPECT_LT(worst, c.forwardM);
  }
}

TEST(ProjectionOracle, AgreesInTheInverse) {
  for (const OracleCase& c : Cases()) {
    if (c.inverseM == 0) continue;
    SCOPED_TRACE(c.name);
    const MapState carte = CarteDuCas(c);
    const ProjOracle oracle = Oracle(c, carte);
    double worst = 0;
    const Area& a = c.area;
    for (const Point& p : test::PointsAuHasard(a.south, a.north, a.west, a.east, 10000, 11)) {
      const double lat = proj_torad(p.latitude), lon = proj_torad(p.longitude);
      const PJ_COORD plane = oracle.Avant(lon, lat);
      LatLon ours;
      ProjectionInverse(carte, static_cast<float>(plane.xy.x * c.xScale / 1000),
                        static_cast<float>(plane.xy.y * c.yScale / 1000), ours.lat, ours.lon);
      worst = std::max(worst, Ecart(ours, lat, lon));
    }
    EXPECT_LT(worst, c.inverseM);
  }
}

// The centre of code 10 has no sine and no cosine: east is right, north is missing.
TEST(ProjectionOracle, AgreesToTheEastInCode10) {
  const MapState carte = CarteDe(10);
  const ProjOracle oracle("+proj=ortho +lat_0=0 +R=6378388 +lon_0=" +
                          Str(Degres(carte.MeridienCentral)));
  for (const Point& p : test::PointsAuHasard(-80, 80, -70, 90, 1000)) {
    const float lat = radian(static_cast<float>(p.latitude)),
                lon = radian(static_cast<float>(p.longitude));
    Xy ours;
    Project(carte, lat, lon, ours.X, ours.Y);
    EXPECT_NEAR(ours.X * 1000.0, oracle.Avant(lon, lat).xy.x, 1);
    EXPECT_EQ(ours.Y, 0);
  }
}

// A map from 30 to 70 north is drawn around 20 north, not around 50: its middle lies far up.
TEST(ProjectionOracle, KeepsTheStereographicCentreFromTheMean) {
  const MapState carte = CarteDe(3);
  const auto north = [](double centre) {
    const ProjOracle oracle("+proj=stere +R=6378388 +lon_0=10 +lat_0=" + Str(centre));
    return oracle.Projette({50, 10}).y / 1000;
  };
  const double ours = test::Projette(carte, 50, 10).Y;
  EXPECT_NEAR(ours, north(20), 0.002);
  EXPECT_GT(ours - north(50), 3000);
}

}  // namespace
}  // namespace talpena
