// The Lambert projections against PROJ, and where stored data want them to differ from it.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "common/numbers.h"
#include "coords/lambert.h"
#include "coords/lambert_literal.h"
#include "coords/test_catalogue.h"

namespace talpena {
namespace {

using test::Metres;
using test::Plane;
using test::Point;
using test::ProjOracle;
using test::ZoneLambert;
using test::ZonesLambert;

constexpr double radian = 3.1415926535 / 180;

std::string Degres(double radians) { return Str(radians / radian); }

/// A zone's own constants in the words of PROJ. It takes k0 into rho0 as well, so what ours lacks
/// goes into its false northing.
std::string Lcc(const LambertParametres& p, const ZoneLambert& z) {
  std::string text = "+proj=lcc +a=" + Str(p.a) + " +rf=" + Str(p.fInverse) +
                     " +lat_0=" + Degres(p.phi0) + " +lon_0=" + Degres(p.lambda0) +
                     " +x_0=" + Str(p.x0) + " +y_0=" + Str(p.y0 + p.rho0 * (1 - p.k0));
  if (z.oneParallel) return text + " +lat_1=" + Degres(p.phi0) + " +k_0=" + Str(p.k0);
  return text + " +lat_1=" + Degres(p.phi1) + " +lat_2=" + Degres(p.phi2);
}

double Longueur(Plane p) { return std::hypot(p.x, p.y); }
double Ecart(Plane a, Plane b) { return Longueur({a.x - b.x, a.y - b.y}); }

struct Worst {
  double forward = 0, inverse = 0;  ///< metres
};

template <typename Forward, typename Back>
Worst Compare(const std::string& proj, const ZoneLambert& z, Forward forward, Back back) {
  const ProjOracle oracle(proj);
  EXPECT_TRUE(oracle.Valide()) << proj;
  Worst worst;
  for (const Point& point : test::PointsDe(z)) {
    const Plane plane = oracle.Projette(point);
    worst.forward = std::max(worst.forward, Ecart(forward(point), plane));
    const Point ours = back(plane);
    worst.inverse = std::max(
        worst.inverse, Metres(ours.latitude, ours.longitude, point.latitude, point.longitude));
  }
  return worst;
}

// Forward: rounding of constants that PROJ makes in other ways. Inverse: where ours stops.
TEST(LambertOracle, AgreesInEveryZone) {
  for (const ZoneLambert& z : ZonesLambert) {
    SCOPED_TRACE(z.name);
    LambertParametres p = test::Parametres(z);
    const Worst worst = Compare(
        Lcc(p, z), z, [&](Point point) { return test::Avant(p, z, point); },
        [&](Plane plane) { return test::Arriere(p, z, plane); });
    EXPECT_LT(worst.forward, 1e-4);  // metres
    EXPECT_LT(worst.inverse, 3e-3);
  }
}

// The same cone by its parallel of least scale, whose sine is n, and its scale there.
TEST(LambertOracle, AgreesInBelgium) {
  const double n = 0.7716421928, phi = std::asin(n), a = 6378388;
  const double e = test::ExcentriciteLitterale(a, 297), es = e * n;
  const double radius = a * std::cos(phi) / std::sqrt(1 - es * es) / n;
  const double k0 = 11565915.812935 * std::pow(test::TLitteral(phi, e, test::PiEntier), n) / radius;
  const std::string proj = "+proj=lcc +ellps=intl +lat_0=90 +lat_1=" + Str(proj_todeg(phi)) +
                           " +k_0=" + Str(k0) +
                           " +lon_0=" + Str(proj_todeg(0.076042943 + 0.000142043 / n)) +
                           " +x_0=150000.01256 +y_0=5400088.4378";
  const Worst worst = Compare(proj, test::Belgique, test::AvantBelge, test::ArriereBelge);
  EXPECT_LT(worst.forward, 2e-4);  // metres
  EXPECT_LT(worst.inverse, 3e-4);
}

// As it is published today, with its rotation in the meridian: the false origin has three
// decimals, and its n and scale are made from the parallels instead of given with ten digits.
TEST(LambertOracle, AgreesWithTheBelgianZoneAsPublished) {
  const Worst worst = Compare(
      "+proj=lcc +lat_1=51.16666723333333 +lat_2=49.8333339 +lat_0=90 +lon_0=4.367486666666666 "
      "+x_0=150000.013 +y_0=5400088.438 +ellps=intl",
      test::Belgique, test::AvantBelge, test::ArriereBelge);
  EXPECT_LT(worst.forward, 0.0025);  // metres
  EXPECT_LT(worst.inverse, 0.0025);
}

// ---------------------------------------------------------------------------------------------
// Where stored data want a difference. Metres, ours less the published zone's.

/// Ours less those of PROJ, at one point.
Plane Depart(const ZoneLambert& z, const std::string& proj, Point point) {
  LambertParametres p;
  const Plane ours = test::Avant(p, z, point), theirs = ProjOracle(proj).Projette(point);
  return {ours.x - theirs.x, ours.y - theirs.y};
}

std::string ZoneFrance(const std::string& rest) {
  return "+proj=lcc +a=6378249.2 +rf=293.465 " + rest;
}

// The meridian of Paris is 2.33722917 degrees; ours lies 7.17e-6 degrees west of it.
TEST(LambertOracle, KeepsTheStoredMeridian) {
  const std::string zone =
      ZoneFrance("+lat_1=45.898919 +lat_2=47.696014 +lat_0=46.8 +x_0=600000 +y_0=200000 +lon_0=");
  const Plane kept = Depart(ZonesLambert[1], zone + "2.33722917", {46.8, 3});
  EXPECT_NEAR(kept.x, 0.5473, 1e-4);
  EXPECT_NEAR(kept.y, 0.0046, 1e-4);
  EXPECT_LT(Longueur(Depart(ZonesLambert[1], zone + "2.337222", {46.8, 3})), 1e-5);
}

// The second parallel of zone 4 is 42.776633, where the published zone has 42.767663.
TEST(LambertOracle, KeepsTheStoredParallelOfZone4) {
  const std::string zone = ZoneFrance(
      "+lat_1=41.560388 +lat_0=42.165 +lon_0=2.337222 +x_0=234.358 +y_0=185861.369 +lat_2=");
  const struct {
    const char* name;
    Point point;
    double east, north;
  } places[] = {{"Bastia", {42.7, 9.45}, -1.0223, 1.9937},
                {"Ajaccio", {41.9, 8.75}, -0.3316, 1.7406},
                {"Bonifacio", {41.4, 9.2}, 0.0170, 2.0282}};
  for (const auto& place : places) {
    SCOPED_TRACE(place.name);
    const Plane kept = Depart(ZonesLambert[3], zone + "42.767663", place.point);
    EXPECT_NEAR(kept.x, place.east, 1e-4);
    EXPECT_NEAR(kept.y, place.north, 1e-4);
    EXPECT_LT(Longueur(Depart(ZonesLambert[3], zone + "42.776633", place.point)), 2e-5);
  }
}

// The published zones have k0 in rho0 too: ours lie rho0 (1 - k0) to the north, all over the zone.
TEST(LambertOracle, KeepsTheScaleOutOfRho0) {
  const struct {
    ZoneLambert zone;
    double north;
  } zones[] = {{ZonesLambert[6], 3637.4984},  {ZonesLambert[7], 4302.0999},
               {ZonesLambert[8], 3291.1847},  {ZonesLambert[9], 3637.4984},
               {ZonesLambert[10], 3291.1847}, {ZonesLambert[11], 3637.4984},
               {ZonesLambert[12], 3458.9780}, {ZonesLambert[13], 0}};
  for (const auto& [z, north] : zones) {
    SCOPED_TRACE(z.name);
    LambertParametres p = test::Parametres(z);
    LambertParametres published = p;
    published.y0 = p.y0 - p.rho0 * (1 - p.k0);
    for (const Point corner : {Point{z.south, z.west}, Point{z.north, z.east}}) {
      const Plane kept = Depart(z, Lcc(published, z), corner);
      EXPECT_NEAR(kept.x, 0, 1e-4);
      EXPECT_NEAR(kept.y, north, 2e-4);
    }
  }
}

}  // namespace
}  // namespace talpena
