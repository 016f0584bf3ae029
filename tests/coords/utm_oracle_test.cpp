// UTM against PROJ's exact Transverse Mercator on the same ellipsoids.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "common/numbers.h"
#include "coords/proj_oracle.h"
#include "coords/utm.h"

namespace talpena {
namespace {

using test::Point;
using test::PointsAuHasard;

struct OracleEllipsoid {
  const char* name;
  double a, inverseF;
};

constexpr OracleEllipsoid oracleEllipsoids[] = {
    {"WGS 84", 6378137, 298.257223563},
    {"International 1924", 6378388, 297},
    {"Clarke 1866", 6378206.4, 294.9786982139058},
    {"Clarke 1880", 6378249.145, 293.465},
    {"Bessel 1841", 6377397.155, 299.1528128},
    {"Everest 1830", 6377276.345, 300.8017},
};

/// PROJ's sixty zones of one hemisphere.
class Zones {
 public:
  Zones(const OracleEllipsoid& e, bool south) {
    for (int zone = 1; zone <= 60; ++zone) {
      oracles_.push_back(std::make_unique<test::ProjOracle>(
          "+proj=utm +zone=" + std::to_string(zone) + (south ? " +south" : "") + " +a=" + Str(e.a) +
          " +rf=" + Str(e.inverseF)));
    }
  }
  const test::ProjOracle& operator[](int zone) const {
    return *oracles_[static_cast<std::size_t>(zone - 1)];
  }

 private:
  std::vector<std::unique_ptr<test::ProjOracle>> oracles_;
};

/// Greatest distance to PROJ, metres.
struct Departure {
  double forward = 0, inverse = 0;
};

/// @param zoneOf  zone that a point is taken in, from its longitude in degrees
template <typename ZoneOf>
Departure Mesure(const OracleEllipsoid& e, const std::vector<Point>& points, bool south,
                 ZoneOf zoneOf) {
  const Zones zones(e, south);
  EXPECT_TRUE(zones[1].Valide());
  const UtmSeries series(e.a, 1 / e.inverseF);
  Departure worst;
  for (const Point& p : points) {
    const double phi = p.latitude * DegUtm, lambda = p.longitude * DegUtm;
    auto zone = static_cast<std::int16_t>(zoneOf(p.longitude));
    double northing = 0, easting = 0;
    LatLonVersUtm(series, phi, lambda, zone, northing, easting, 1);
    const PJ_COORD plane = zones[zone].Avant(lambda, phi);
    worst.forward =
        std::max(worst.forward, std::hypot(northing - plane.xy.y, easting - plane.xy.x));

    double latitude = 0, longitude = 0, given = south ? -plane.xy.y : plane.xy.y;
    UtmVersLatLon(series, latitude, longitude, zone, given, plane.xy.x);
    worst.inverse = std::max(
        worst.inverse, e.a * std::hypot(latitude - phi, (longitude - lambda) * std::cos(phi)));
  }
  return worst;
}

int OwnZone(double longitude) { return static_cast<int>(std::floor(longitude / 6)) + 31; }

// The series end with the eighth power of the distance from the central meridian: what they
// leave up to three degrees from it is 3 micrometres.
TEST(UtmOracle, LiesWithinAHundredthOfAMillimetreOfProj) {
  for (const OracleEllipsoid& e : oracleEllipsoids) {
    for (const bool south : {false, true}) {
      const auto points =
          south ? PointsAuHasard(-80, 0, -180, 180) : PointsAuHasard(0, 84, -180, 180);
      const Departure d = Mesure(e, points, south, OwnZone);
      EXPECT_LT(d.forward, 1e-5) << e.name;
      EXPECT_LT(d.inverse, 1e-5) << e.name;
    }
  }
}

// The fields of Norway and Svalbard reach six degrees from their meridians.
TEST(UtmOracle, LiesWithinAMillimetreOfProjInTheWideFields) {
  const Departure norway =
      Mesure(oracleEllipsoids[1], PointsAuHasard(56, 64, 3, 12), false, [](double) { return 32; });
  EXPECT_LT(norway.forward, 1e-3);
  EXPECT_LT(norway.inverse, 1e-3);
  const auto zoneOfSvalbard = [](double longitude) {
    return 31 + 2 * static_cast<int>((longitude + 3) / 12);
  };
  const Departure svalbard =
      Mesure(oracleEllipsoids[1], PointsAuHasard(72, 84, 0, 42), false, zoneOfSvalbard);
  EXPECT_LT(svalbard.forward, 1e-3);
  EXPECT_LT(svalbard.inverse, 1e-3);
}

// A point may be given in the zone beside its own, up to nine degrees from the meridian: there
// the end of the series shows, and no more may be expected of it.
TEST(UtmOracle, LiesWithinTwoCentimetresOfProjInTheNextZone) {
  const Departure d = Mesure(oracleEllipsoids[1], PointsAuHasard(-80, 0, -174, 174), true,
                             [](double longitude) { return std::min(60, OwnZone(longitude) + 1); });
  EXPECT_LT(d.forward, 0.02);
  EXPECT_LT(d.inverse, 0.02);
  EXPECT_GT(d.forward, 0.001);
  EXPECT_GT(d.inverse, 0.001);
}

}  // namespace
}  // namespace talpena
