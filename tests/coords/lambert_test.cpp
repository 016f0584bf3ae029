#include "coords/lambert.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <random>

#include "common/talpena_error.h"
#include "coords/lambert_literal.h"
#include "coords/state.h"
#include "coords/test_catalogue.h"

namespace talpena {
namespace {

using test::ArriereBelge;
using test::AvantBelge;
using test::Metres;
using test::Plane;
using test::Point;
using test::ZoneLambert;
using test::ZonesLambert;

constexpr double radian = 3.1415926535 / 180;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

int NumeroDe(const std::function<void()>& body) {
  try {
    body();
  } catch (const TalpenaError& e) {
    return e.number();
  }
  return 0;
}

double Ecart(Plane a, Plane b) { return std::hypot(a.x - b.x, a.y - b.y); }

/// The longer of the two differences, radians.
double Ecart(Point a, Point b) {
  return std::max(std::abs(a.latitude - b.latitude), std::abs(a.longitude - b.longitude)) * radian;
}

// ---------------------------------------------------------------------------------------------
// Published values

// EPSG Guidance Note 7-2, the example of Lambert Conic Conformal (2SP Belgium): Belge 1972. Its
// parallels lack the 0.002 seconds that are in the constants of the projection: 4.5 cm.
TEST(LambertBelge, AgreesWithThePublishedPoint) {
  const Point point{50 + 40 / 60.0 + 46.461 / 3600, 5 + 48 / 60.0 + 26.533 / 3600};
  const Plane plane{251763.20, 153034.13};
  EXPECT_LT(Ecart(AvantBelge(point), plane), 0.05);
  const Point back = ArriereBelge(plane);
  EXPECT_LT(Metres(back.latitude, back.longitude, point.latitude, point.longitude), 0.05);
}

// IGN, note technique NT/G 71, example of algorithm ALG0003, Lambert zone I, with its meridian
// 0.04079234433 radians in place of ours. The parallels have six decimals here: 3 cm.
TEST(LambertFrance, AgreesWithThePublishedPointOfZone1) {
  LambertParametres p;
  const double turn = 180 / std::acos(-1.0);
  const Point point{0.8726646260 * turn, (0.1455120993 - 0.04079234433) * turn + MeridienParis};
  EXPECT_LT(Ecart(test::Avant(p, ZonesLambert[0], point), {1029705.0818, 272723.8510}), 0.05);
}

// Snyder, Map Projections: A Working Manual, p. 296, Lambert on the Clarke 1866 ellipsoid.
TEST(LambertFrance, AgreesWithThePublishedPointOfNorthAmerica) {
  LambertParametres p;
  EXPECT_LT(Ecart(test::Avant(p, ZonesLambert[5], {35, -75}), {1894410.9, 1564649.5}), 0.1);
}

// EPSG Guidance Note 7-2, the example of Lambert Conic Conformal (1SP): Jamaica National Grid.
TEST(LambertUnParallele, AgreesWithThePublishedPointOfJamaica) {
  LambertParametres p;
  const Point point{17 + 55 / 60.0 + 55.80 / 3600, -(76 + 56 / 60.0 + 37.26 / 3600)};
  EXPECT_LT(Ecart(test::Avant(p, ZonesLambert[13], point), {255966.58, 142493.51}), 0.02);
}

// ---------------------------------------------------------------------------------------------
// The steps

TEST(LambertBelge, FollowsTheSteps) {
  const test::BelgeLitteral literal;
  double forward = 0, inverse = 0;
  for (const Point& point : test::PointsDe(test::Belgique)) {
    const Plane plane = literal.Avant(point);
    forward = std::max(forward, Ecart(AvantBelge(point), plane));
    inverse = std::max(inverse, Ecart(ArriereBelge(plane), literal.Arriere(plane)));
  }
  EXPECT_LT(forward, 2e-8);  // metres: ten units in the last place of the radius
  EXPECT_LT(inverse, 1e-14);
}

// A turn more or less would show: it moves the latitude by 1e-11 radians and more.
TEST(LambertBelge, FollowsTheStepsFarOutsideToo) {
  const test::BelgeLitteral literal;
  for (const Point& point : test::PointsAuHasard(-60, 89.9, -170, 170)) {
    const Plane plane = literal.Avant(point);
    EXPECT_LT(Ecart(AvantBelge(point), plane), 1e-14 * std::hypot(plane.x, plane.y) + 2e-8);
    EXPECT_LT(Ecart(ArriereBelge(plane), literal.Arriere(plane)), 1e-13) << point.latitude;
  }
}

// The start is the colatitude: right at 45 degrees, where one turn is enough, wrong elsewhere.
TEST(LambertBelge, StartsAtTheColatitude) {
  const test::BelgeLitteral literal;
  int low = 99, high = 0;
  for (int i = 0; i <= 200000; ++i) {
    const Point point{44.9 + i * 1e-6, 4.5};
    const Plane plane = literal.Avant(point);
    const double t =
        test::TLitteral(point.latitude * radian, test::ExcentriciteLitterale(6378388.0, 297.0), {});
    const int turns = literal.Phi(t).turns;
    low = std::min(low, turns);
    high = std::max(high, turns);
    ASSERT_LT(Ecart(ArriereBelge(plane), literal.Arriere(plane)), 1e-13);
  }
  EXPECT_LE(low, 2);
  EXPECT_GE(high, 3);
}

TEST(Lambert, FollowsTheStepsInEveryZone) {
  for (const ZoneLambert& z : ZonesLambert) {
    SCOPED_TRACE(z.name);
    LambertParametres p = test::Parametres(z);
    const test::ConiqueLitteral literal(p, z.oneParallel);
    double forward = 0, inverse = 0;
    for (const Point& point : test::PointsDe(z)) {
      const Plane plane = literal.Avant(point);
      forward = std::max(forward, Ecart(test::Avant(p, z, point), plane));
      inverse = std::max(inverse, Ecart(test::Arriere(p, z, plane), literal.Arriere(plane)));
    }
    EXPECT_LT(forward, 1e-7);  // metres: the last places of n, through logarithms, and of radii
    EXPECT_LT(inverse, 1e-13);
  }
}

TEST(Lambert, FollowsTheStepsFarOutsideEveryZone) {
  for (const ZoneLambert& z : ZonesLambert) {
    SCOPED_TRACE(z.name);
    LambertParametres p = test::Parametres(z);
    const test::ConiqueLitteral literal(p, z.oneParallel);
    for (const Point& point : test::PointsAuHasard(-60, 85, -170, 170, 2000)) {
      const Plane plane = literal.Avant(point);
      EXPECT_LT(Ecart(test::Avant(p, z, point), plane),
                1e-13 * std::hypot(plane.x, plane.y) + 1e-7);
      EXPECT_LT(Ecart(test::Arriere(p, z, plane), literal.Arriere(plane)), 2e-13) << point.latitude;
    }
  }
}

TEST(FacteurConforme, IsThePower) {
  for (const double inverse : {297.0, 293.465, 294.9786982, 298.257223563}) {
    const double e = test::ExcentriciteLitterale(6378137, inverse);
    const FacteurConforme factor(e * e);
    for (int i = -1000; i <= 1000; ++i) {
      const double s = i / 1000.0;
      EXPECT_NEAR(factor(s), std::pow((1 - e * s) / (1 + e * s), e / 2), 5e-16) << s;
    }
  }
}

// With the eccentricity of no planet a turn near the equator leaves four fifths of the error, so
// that the latitude never rests within the turns allowed.
TEST(LambertFrance, StopsAfterElevenTurnsAtMost) {
  LambertParametres p;
  InitLambertFrance(p, 1);
  p.facteur = FacteurConforme(0.8);
  const double t = 1.1;
  const Plane plane{p.x0, p.rho0 + p.y0 - p.echelle * std::pow(t, p.n)};
  std::vector<double> turns{1.57079632675 - 2 * std::atan(t)};
  for (int i = 0; i < 12; ++i) {
    turns.push_back(1.57079632675 - 2 * std::atan(t * p.facteur(std::sin(turns.back()))));
  }
  ASSERT_GT(std::abs(turns[11] - turns[10]), 1e-07);
  ASSERT_GT(std::abs(turns[12] - turns[11]), 1e-07);
  const double phi = test::Arriere(p, ZonesLambert[0], plane).latitude * radian;
  EXPECT_NEAR(phi, turns[11], 1e-13);
}

TEST(LambertFrance, RestsAfterThreeTurnsInFrance) {
  LambertParametres p;
  InitLambertFrance(p, 5);
  const double e = std::sqrt(p.e2);
  const test::ConiqueLitteral literal(p, false);
  for (const Point& point : test::PointsDe(ZonesLambert[4])) {
    EXPECT_EQ(literal.Phi(test::TLitteral(point.latitude * radian, e, {})).turns, 3);
  }
}

// ---------------------------------------------------------------------------------------------
// Round trips

// What is left is what the turn after the last would take off: at most e2 cos(phi)^2 of the limit
// of 2.8e-8 or 1e-7 radians. In Belgium the last turn is far below the limit.
TEST(Lambert, ComesBackInEveryZone) {
  for (const Point& point : test::PointsDe(test::Belgique)) {
    const Point back = ArriereBelge(AvantBelge(point));
    EXPECT_LT(Metres(point.latitude, point.longitude, back.latitude, back.longitude), 1e-4);
  }
  for (const ZoneLambert& z : ZonesLambert) {
    SCOPED_TRACE(z.name);
    LambertParametres p;
    double worst = 0;
    for (const Point& point : test::PointsDe(z)) {
      const Point back = test::Arriere(p, z, test::Avant(p, z, point));
      worst =
          std::max(worst, Metres(point.latitude, point.longitude, back.latitude, back.longitude));
    }
    EXPECT_LT(worst, 3e-3);
  }
}

// ---------------------------------------------------------------------------------------------
// Zones

TEST(LambertBelge, HasNoAngleOnItsYAxis) {
  // theta' is 0 where x is the false easting; the longitude there carries the rotation.
  const double lambda = 0.076042943 + 0.000142043 / 0.7716421928;
  const Plane plane = AvantBelge({50, lambda / radian});
  EXPECT_NEAR(plane.x, 150000.01256, 1e-8);
  const double rho = 5400088.4378 - plane.y;
  const Point back = ArriereBelge({150000.01256, 5400088.4378 - rho});
  EXPECT_NEAR(back.longitude * radian, lambda, 1e-16);
  EXPECT_NEAR(back.latitude, 50, 1e-8);
}

TEST(LambertFrance, HasTheFalseOriginOfZone4) {
  LambertParametres p;
  const Plane origin = test::Avant(p, ZonesLambert[3], {42.165, MeridienParis});
  EXPECT_NEAR(origin.x, 234.358, 1e-8);
  EXPECT_NEAR(origin.y, 185861.369, 1e-8);
}

TEST(LambertFrance, PutsTheOriginsAtTheirFalseCoordinates) {
  struct Origin {
    int zone;
    double latitude, longitude, x, y;
  };
  // clang-format off
  constexpr Origin origins[] = {
      {1, 49.5, 2.337222, 600000, 200000},  {2, 46.8, 2.337222, 600000, 200000},
      {3, 44.1, 2.337222, 600000, 200000},  {5, 46.8, 2.337222, 600000, 2200000},
      {6, 23, -96, 0, 0}};
  // clang-format on
  LambertParametres p;
  for (const Origin& o : origins) {
    double x = 0, y = 0;
    LatLonVersLambertFrance(p, o.latitude, o.longitude, x, y, o.zone);
    EXPECT_NEAR(x, o.x, 1e-8) << o.zone;
    EXPECT_NEAR(y, o.y, 1e-8) << o.zone;
  }
}

/// Equal in every variable.
bool Pareils(const LambertParametres& a, const LambertParametres& b) {
  const auto all = [](const LambertParametres& p) {
    return std::array{
        p.a,        p.fInverse, p.phi0,         p.phi1,        p.phi2, p.lambda0, p.k0,
        p.x0,       p.y0,       p.e2,           p.n,           p.F,    p.rho0,    p.t0,
        p.rotation, p.echelle,  p.facteur(0.1), p.facteur(0.9)};
  };
  return a.zone == b.zone && all(a) == all(b);
}

TEST(LambertFrance, PartsTheExtendedZoneFromZone2ByTheFalseNorthingAlone) {
  LambertParametres two, extended;
  InitLambertFrance(two, 2);
  InitLambertFrance(extended, 5);
  EXPECT_EQ(two.phi0, 46.800000000000004 * radian);
  EXPECT_EQ(extended.y0 - two.y0, 2000000);
  LambertParametres same = extended;
  same.zone = two.zone;
  same.y0 = two.y0;
  EXPECT_TRUE(Pareils(same, two));
  for (const Point& point : test::PointsDe(ZonesLambert[4])) {
    const Plane a = test::Avant(two, ZonesLambert[1], point);
    const Plane b = test::Avant(extended, ZonesLambert[4], point);
    ASSERT_EQ(a.x, b.x);
    ASSERT_NEAR(b.y - a.y, 2000000, 1e-8);
  }
}

TEST(Lambert, KeepsTheZoneWhenAnotherIsUnknown) {
  for (const ZoneLambert& z : {ZonesLambert[2], ZonesLambert[7]}) {
    LambertParametres p;
    const Plane known = test::Avant(p, z, {44, 3});
    const Point back = test::Arriere(p, z, known);
    for (const int unknown : {0, -1, 7, 97, 100, 1 << 20}) {
      ZoneLambert other = z;
      other.zone = unknown;
      EXPECT_EQ(Ecart(test::Avant(p, other, {44, 3}), known), 0) << unknown;
      EXPECT_EQ(Ecart(test::Arriere(p, other, known), back), 0) << unknown;
      EXPECT_EQ(p.zone, z.zone);
    }
  }
  LambertParametres p;  // 98 and 99 belong to the other family alone
  InitLambertFrance(p, 3);
  InitLambertFrance(p, 98);
  EXPECT_EQ(p.zone, 3);
}

TEST(Lambert, NeedsAKnownZoneFirst) {
  for (ZoneLambert z : {ZonesLambert[0], ZonesLambert[6]}) {
    LambertParametres p;
    for (const int unknown : {0, 7, -1}) {
      z.zone = unknown;
      EXPECT_EQ(NumeroDe([&] { test::Avant(p, z, {44, 3}); }), ErrorNumber::DivisionByZero);
      EXPECT_EQ(NumeroDe([&] { test::Arriere(p, z, {1, 2}); }), ErrorNumber::DivisionByZero);
    }
    EXPECT_EQ(p.zone, 0);
  }
}

TEST(Lambert, MakesNothingAnewForTheSameZone) {
  LambertParametres p;
  InitLambertFrance(p, 1);
  p.x0 = 7;
  InitLambertFrance(p, 1);
  EXPECT_EQ(p.x0, 7);
  InitLambertFrance(p, 2);
  EXPECT_EQ(p.x0, 600000);
  LambertParametres other;
  InitLambertUnParallele(other, 2);
  EXPECT_EQ(other.x0, 500000);
  other.x0 = 7;
  InitLambertUnParallele(other, 2);
  EXPECT_EQ(other.x0, 7);
}

TEST(Lambert, LeavesNothingOfTheZoneBefore) {
  for (const ZoneLambert& before : ZonesLambert) {
    for (const ZoneLambert& z : ZonesLambert) {
      if (before.oneParallel != z.oneParallel) continue;
      LambertParametres p = test::Parametres(before);
      const LambertParametres fresh = test::Parametres(z);
      z.oneParallel ? InitLambertUnParallele(p, z.zone) : InitLambertFrance(p, z.zone);
      EXPECT_TRUE(Pareils(p, fresh)) << before.name << ' ' << z.name;
    }
  }
}

TEST(CoordState, StartsWithoutAZone) {
  const CoordState state;
  EXPECT_EQ(state.LambertFrance.zone, 0);
  EXPECT_EQ(state.LambertUnParallele.zone, 0);
}

// ---------------------------------------------------------------------------------------------
// The constants

// All digits of pi would move the Belgian point by 0.13 mm to the south.
TEST(Lambert, KeepsTheElevenDigitsOfPi) {
  const Point point{50.5, 4.5};
  const Plane kept = AvantBelge(point);
  const Plane full = test::BelgeLitteral(test::PiEntier).Avant(point);
  EXPECT_LT(Ecart(kept, test::BelgeLitteral().Avant(point)), 2e-8);
  EXPECT_NEAR(kept.x - full.x, 0, 1e-5);
  EXPECT_NEAR(kept.y - full.y, 1.264e-4, 1e-6);
}

// ---------------------------------------------------------------------------------------------
// Faults

TEST(Lambert, RefusesALatitudeBeyondThePoles) {
  LambertParametres p;
  for (const double latitude : {91.0, -91.0, 90.0000001, 200.0}) {
    Plane out{1, 2};
    EXPECT_EQ(NumeroDe([&] { LatLonVersLambertBelge(latitude, 4, out.x, out.y); }),
              ErrorNumber::InvalidCall)
        << latitude;
    EXPECT_EQ(NumeroDe([&] { LatLonVersLambertFrance(p, latitude, 4, out.x, out.y, 1); }),
              ErrorNumber::InvalidCall);
    EXPECT_EQ(NumeroDe([&] { LatLonVersLambertUnParallele(p, latitude, 4, out.x, out.y, 1); }),
              ErrorNumber::InvalidCall);
    EXPECT_EQ(out.x, 1);
    EXPECT_EQ(out.y, 2);
  }
}

TEST(Lambert, PutsThePoleAtTheApex) {
  EXPECT_NEAR(AvantBelge({90, 4}).x, 150000.01256, 1e-6);
  EXPECT_NEAR(AvantBelge({90, 4}).y, 5400088.4378, 1e-4);
  LambertParametres p;
  const Plane apex = test::Avant(p, ZonesLambert[5], {90, 100});
  EXPECT_NEAR(apex.x, 0, 1e-4);
  EXPECT_NEAR(apex.y, p.rho0, 1e-4);
  EXPECT_GT(std::abs(AvantBelge({-90, 4}).y), 1e13);  // the other pole is at infinity, nearly
}

TEST(Lambert, RefusesTheHeightOfTheApex) {
  LambertParametres p;
  InitLambertFrance(p, 6);
  for (const double x : {0.0, 1e6, -3.5}) {
    Point out{1, 2};
    EXPECT_EQ(
        NumeroDe([&] { LambertBelgeVersLatLon(x, 5400088.4378, out.latitude, out.longitude); }),
        ErrorNumber::DivisionByZero);
    EXPECT_EQ(
        NumeroDe([&] { LambertFranceVersLatLon(p, x, p.rho0, out.latitude, out.longitude, 6); }),
        ErrorNumber::DivisionByZero);
    EXPECT_EQ(out.latitude, 1);
    EXPECT_EQ(out.longitude, 2);
  }
}

TEST(Lambert, RaisesOverflowForWhatHasNoFiniteResult) {
  const Plane planes[] = {{nan, 1},       {1, nan},   {infinity, 1}, {1, infinity},
                          {-infinity, 1}, {1e300, 1}, {1, -1e200},   {nan, infinity}};
  for (const Plane& plane : planes) {
    Point out{1, 2};
    EXPECT_EQ(
        NumeroDe([&] { LambertBelgeVersLatLon(plane.x, plane.y, out.latitude, out.longitude); }),
        ErrorNumber::Overflow)
        << plane.x << ' ' << plane.y;
    EXPECT_EQ(out.latitude, 1);
    EXPECT_EQ(out.longitude, 2);
  }
  const Point points[] = {{nan, 1}, {1, nan}, {infinity, 1}, {1, -infinity}};
  LambertParametres p;
  for (const Point& point : points) {
    Plane out{1, 2};
    EXPECT_EQ(
        NumeroDe([&] { LatLonVersLambertBelge(point.latitude, point.longitude, out.x, out.y); }),
        ErrorNumber::Overflow);
    EXPECT_EQ(NumeroDe([&] {
                LatLonVersLambertFrance(p, point.latitude, point.longitude, out.x, out.y, 1);
              }),
              ErrorNumber::Overflow);
    EXPECT_EQ(out.x, 1);
    EXPECT_EQ(out.y, 2);
  }
}

// Any pair of doubles, of every size and sign: a finite point or a failure, at once.
TEST(Lambert, GivesNumbersOrFails) {
  std::mt19937_64 random(20260131);
  LambertParametres p;
  const auto any = [&] {
    const std::uint64_t bits = random();
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
  };
  int numbers = 0;
  for (int i = 0; i < 200000; ++i) {
    const double first = any(), second = any();
    double out[2]{};
    const int fault = NumeroDe([&] {
      switch (i % 4) {
        case 0:
          return LambertBelgeVersLatLon(first, second, out[0], out[1]);
        case 1:
          return LatLonVersLambertBelge(first, second, out[0], out[1]);
        case 2:
          return LambertFranceVersLatLon(p, first, second, out[0], out[1], 1 + i % 6);
        default:
          return LatLonVersLambertFrance(p, first, second, out[0], out[1], 1 + i % 6);
      }
    });
    numbers += fault == 0;
    ASSERT_TRUE(fault == 0 || fault == ErrorNumber::Overflow || fault == ErrorNumber::InvalidCall)
        << fault << ' ' << first << ' ' << second;
    ASSERT_TRUE(std::isfinite(out[0]) && std::isfinite(out[1])) << first << ' ' << second;
  }
  EXPECT_GT(numbers, 50000);
}

// ---------------------------------------------------------------------------------------------
// Paris grades

TEST(GradesParis, CountsFromParis) {
  double latitude = 0, longitude = 0;
  GradesParisVersLatLon(50, 0, latitude, longitude);
  EXPECT_EQ(latitude, 45);
  EXPECT_EQ(longitude, 2.337222);
  GradesParisVersLatLon(-100, 10, latitude, longitude);
  EXPECT_EQ(latitude, -90);
  EXPECT_EQ(longitude, 9 + 2.337222);
}

TEST(GradesParis, HoldsWhatIsReadInSinglePrecision) {
  // 54.3945 in 32 bits is 54.394500732421875; the numbers behind it are double again.
  double latitude = 0, longitude = 0;
  GradesParisVersLatLon(static_cast<float>(54.3945), static_cast<float>(1.3213), latitude,
                        longitude);
  EXPECT_EQ(latitude, 54.394500732421875 * 0.9);
  EXPECT_NEAR(latitude - 54.3945 * 0.9, 6.59e-7, 1e-9);  // 7 cm
  EXPECT_NEAR(longitude, 1.3213 * 0.9 + 2.337222, 1e-7);
  EXPECT_NE(longitude, 1.3213 * 0.9 + 2.337222);
}

TEST(GradesParis, IsNotCutOnTheWayToGrades) {
  double latitude = 0, longitude = 0;
  LatLonVersGradesParis(48.95505, 3.526392, latitude, longitude);
  EXPECT_EQ(latitude, 48.95505 / 0.9);
  EXPECT_EQ(longitude, (3.526392 - 2.337222) / 0.9);
}

// Half a unit in the last place of a 32-bit number below 64, and below 16, times 0.9.
TEST(GradesParis, ComesBackToSinglePrecision) {
  for (const Point& point : test::PointsAuHasard(41, 52, -5, 10)) {
    double latitude = 0, longitude = 0;
    LatLonVersGradesParis(point.latitude, point.longitude, latitude, longitude);
    GradesParisVersLatLon(static_cast<float>(latitude), static_cast<float>(longitude), latitude,
                          longitude);
    EXPECT_NEAR(latitude, point.latitude, 1.72e-6);
    EXPECT_NEAR(longitude, point.longitude, 4.3e-7);
  }
}

TEST(GradesParis, RaisesOverflowForWhatIsNoNumber) {
  double a = 1, b = 2;
  const auto wide = static_cast<float>(infinity);
  EXPECT_EQ(NumeroDe([&] { GradesParisVersLatLon(wide, 0, a, b); }), ErrorNumber::Overflow);
  EXPECT_EQ(NumeroDe([&] { GradesParisVersLatLon(0, static_cast<float>(nan), a, b); }),
            ErrorNumber::Overflow);
  EXPECT_EQ(NumeroDe([&] { LatLonVersGradesParis(nan, 0, a, b); }), ErrorNumber::Overflow);
  EXPECT_EQ(NumeroDe([&] { LatLonVersGradesParis(0, 1.79e308, a, b); }), ErrorNumber::Overflow);
  EXPECT_EQ(a, 1);
  EXPECT_EQ(b, 2);
}

}  // namespace
}  // namespace talpena
