// The national grids held against PROJ's Transverse Mercator on the same constants, and against
// their own steps taken literally. What departs on purpose is pinned by its value.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "common/numbers.h"
#include "coords/national_grids.h"
#include "national_grids_steps.h"
#include "proj_oracle.h"
#include "test_catalogue.h"

namespace talpena::test {
namespace {

constexpr Grille Grids[] = {Grille::British, Grille::Irish};

std::string Nombre(double value) { return Str(value); }

ProjOracle Mercator(double a, double es, double lambda0, double k, double x0, double y0) {
  return ProjOracle("+proj=tmerc +a=" + Nombre(a) + " +es=" + Nombre(es) +
                    " +lat_0=0 +lon_0=" + Nombre(lambda0 - 360) + " +k=" + Nombre(k) +
                    " +x_0=" + Nombre(x0) + " +y_0=" + Nombre(y0));
}

/// PROJ on the constants of the inverse, in its frame.
ProjOracle OracleInverse(const InverseConstants& g) {
  return Mercator(g.a, g.E2(), g.lambda0, g.k, 500000, 0);
}

/// PROJ on the constants of the forward, metres of the grid.
ProjOracle OracleDirecte(Grille grid) {
  const ForwardConstants g = ConstantesDirectes(grid);
  return Mercator(double{g.a}, double{g.e} * double{g.e}, g.lambda0, double{g.k},
                  double{g.falseEasting}, double{g.northingOffset});
}

/// Random metres of the frame of the inverse, over the squares that hold land: up to 400 km from
/// the central meridian (British), 300 km (Irish).
std::vector<Plane> MetresAuHasard(Grille grid) {
  const bool british = grid == Grille::British;
  std::mt19937 random(20260131);
  std::uniform_real_distribution<double> east(british ? 100000 : 300000, british ? 900000 : 800000);
  std::uniform_real_distribution<double> north(british ? 5527064 : 5680031,
                                               british ? 6827064 : 6180030);
  std::vector<Plane> points(10000);
  for (Plane& p : points) {
    p.x = east(random);
    p.y = north(random);
  }
  return points;
}

Point Inverse(Grille grid, Plane p) {
  Point out{};
  GrilleVersLatLon(grid, p.y, p.x, out.latitude, out.longitude);
  return out;
}

double Distance(Point a, Point b) {
  return Metres(a.latitude, a.longitude, b.latitude, b.longitude);
}

/// Corner of the grid in the frame of the inverse.
Plane Frame(Grille grid) {
  return grid == Grille::British ? Plane{100000, 5527063.816} : Plane{300000, 5680030.0};
}

double EcartAuMeridien(Plane p) { return std::fabs(p.x - 500000); }

/// How far the inverse may lie from PROJ with an eccentricity of its own or with the stored one,
/// metres, up to a distance from the central meridian.
struct Tolerance {
  double distance, consistent, stored;
};
constexpr Tolerance Tolerances[] = {
    {150000, 0.003, 0.046},
    {200000, 0.010, 0.080},
    {300000, 0.075, 0.150},
    {400000, 0.380, 0.350},
};

const Tolerance& ToleranceA(double distance) {
  const Tolerance* t = Tolerances;
  while (t->distance < distance) ++t;
  return *t;
}

// The series proper, with the second eccentricity that belongs to the axis.
TEST(NationalInverse, IsTheTransverseMercatorButForItsSecondEccentricity) {
  for (const Grille grid : Grids) {
    InverseConstants g = ConstantesInverse(grid);
    g.ePrime2 = g.E2() / (1 - g.E2());
    const ProjOracle oracle = OracleInverse(g);
    ASSERT_TRUE(oracle.Valide());
    for (const Plane& p : MetresAuHasard(grid)) {
      ASSERT_LE(Distance(InversePasAPas(g, p.y, p.x), oracle.Inverse(p)),
                ToleranceA(EcartAuMeridien(p)).consistent)
          << p.x << ' ' << p.y;
    }
  }
}

TEST(NationalInverse, AgreesWithTheTransverseMercator) {
  for (const Grille grid : Grids) {
    const ProjOracle oracle = OracleInverse(ConstantesInverse(grid));
    for (const Plane& p : MetresAuHasard(grid)) {
      ASSERT_LE(Distance(Inverse(grid, p), oracle.Inverse(p)),
                ToleranceA(EcartAuMeridien(p)).stored)
          << p.x << ' ' << p.y;
    }
  }
}

// The search for the foot stops below 0.001 m; nine digits of degrees are 0.1 mm.
TEST(NationalInverse, EqualsItsStepsToRounding) {
  constexpr double tolerance = 1e-12 * 57.3;  // degrees
  for (const Grille grid : Grids) {
    const InverseConstants g = ConstantesInverse(grid);
    for (const Plane& p : MetresAuHasard(grid)) {
      const Point steps = InversePasAPas(g, p.y, p.x);
      const Point ours = Inverse(grid, p);
      ASSERT_NEAR(ours.latitude, steps.latitude, tolerance);
      ASSERT_NEAR(ours.longitude, steps.longitude, tolerance);
    }
    // Wrong letters lead to 0, 0; and nothing forbids the southern half.
    for (const Plane p : {Plane{0, 0}, Plane{500000, -6000000}, Plane{700000, 9000000}}) {
      const Point steps = InversePasAPas(g, p.y, p.x);
      EXPECT_NEAR(Inverse(grid, p).latitude, steps.latitude, tolerance);
      EXPECT_NEAR(Inverse(grid, p).longitude, steps.longitude, tolerance);
    }
  }
}

// 0.00676817, where the axis has 0.00671533: points 300 km from the meridian lie 17 to 18 cm south.
TEST(NationalInverse, KeepsItsSecondEccentricity) {
  for (const Grille grid : Grids) {
    InverseConstants proper = ConstantesInverse(grid);
    proper.ePrime2 = proper.E2() / (1 - proper.E2());
    const Point ours = Inverse(grid, {800000, 6000000});
    const Point withProper = InversePasAPas(proper, 6000000, 800000);
    EXPECT_NEAR((ours.latitude - withProper.latitude) * 111319.49, -0.176, 0.001);
  }
}

// The Irish grid's own axis is 6377340.189 m. On the British one points leave the grid that
// Ireland is mapped on by 7 m at 200 km from the meridian and by 9 m at 250 km from the origin.
TEST(NationalInverse, PutsTheIrishGridOnTheBritishAxis) {
  const ProjOracle mapped(
      "+proj=tmerc +a=6377340.189 +b=6356034.447 +lat_0=53.5 +lon_0=-8 +k=1.000035 +x_0=200000 "
      "+y_0=250000");
  const struct {
    Plane grid, departure;
  } cases[] = {
      {{200000, 250000}, {0, -0.436}},  // the offset of the letters without its decimals
      {{400000, 250000}, {-6.997, -0.507}},
      {{0, 250000}, {6.997, -0.507}},
      {{200000, 0}, {0, 8.313}},
      {{200000, 500000}, {0, -9.186}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.grid.x) + " " + std::to_string(c.grid.y));
    Point p = Inverse(Grille::Irish, {c.grid.x + 300000, c.grid.y + 5680030});
    p.longitude = LongitudeSignee(p.longitude);
    const Plane onMap = mapped.Projette(p);
    EXPECT_NEAR(onMap.x - c.grid.x, c.departure.x, 0.005);
    EXPECT_NEAR(onMap.y - c.grid.y, c.departure.y, 0.005);
  }
}

// The scale of the inverse has more digits than the single-precision one of the forward.
TEST(NationalInverse, HasAScaleOfItsOwn) {
  const double departures[] = {0.1608, -0.2852};  // metres at 6000 km, by Grids
  for (std::size_t i = 0; i < 2; ++i) {
    const Plane foot{500000, 6000000};
    InverseConstants g = ConstantesInverse(Grids[i]);
    EXPECT_NEAR(Distance(Inverse(Grids[i], foot), OracleInverse(g).Inverse(foot)), 0, 0.003);
    g.k = double{ConstantesDirectes(Grids[i]).k};
    const double departure =
        (OracleInverse(g).Inverse(foot).latitude - Inverse(Grids[i], foot).latitude) * 111319.49;
    EXPECT_NEAR(departure, departures[i], 0.005);
  }
}

/// Metres of the reference that the forward gives a point, in the frame of the inverse; cut to
/// whole ones.
Plane Reference(Grille grid, Point p) {
  std::string letters, east, north;
  LatLonVersGrille(grid, p.latitude, p.longitude, letters, east, north);
  Plane out{};
  if (grid == Grille::British) {
    LettresVersBritish(letters, Val(east) / 1000, Val(north) / 1000, out.x, out.y);
  } else {
    LettresVersIrish(letters, Val(north) / 1000, Val(east) / 1000, out.y, out.x);
  }
  return out;
}

// 32 bits hold a longitude near 360 degrees to 1.5 m on the ground, and the texts are cut: the
// middle of the metre that they name lies within 1.6 m of the rigorous place.
TEST(NationalForward, AgreesWithTheTransverseMercatorWithinSinglePrecision) {
  for (const Grille grid : Grids) {
    const ProjOracle onEarth = OracleInverse(ConstantesInverse(grid));
    const ProjOracle oracle = OracleDirecte(grid);
    ASSERT_TRUE(oracle.Valide());
    const Plane frame =
        grid == Grille::British ? Plane{100000, 5527063.816} : Plane{300000, 5680030.0};
    for (const Plane& drawn : MetresAuHasard(grid)) {
      const Point p = onEarth.Inverse(drawn);
      const Plane expected = oracle.Projette(p);
      const Plane text = Reference(grid, p);
      if (expected.x < 3 || expected.y < 3) continue;  // on the edge there may be no text
      ASSERT_NEAR(text.x + 0.5, expected.x + frame.x, 1.6) << drawn.x << ' ' << drawn.y;
      ASSERT_NEAR(text.y + 0.5, expected.y + frame.y, 1.6) << drawn.x << ' ' << drawn.y;
    }
  }
}

// In doubles its steps are the rigorous projection: what the forward departs by is 32 bits alone.
TEST(NationalForward, IsTheTransverseMercatorInDoubles) {
  for (const Grille grid : Grids) {
    const ForwardConstants g = ConstantesDirectes(grid);
    const ProjOracle onEarth = OracleInverse(ConstantesInverse(grid));
    const ProjOracle oracle = OracleDirecte(grid);
    for (const Plane& drawn : MetresAuHasard(grid)) {
      const Point p = onEarth.Inverse(drawn);
      const Plane expected = oracle.Projette(p);
      const Plane steps = DirectePasAPas<double>(g, p.latitude, p.longitude);
      const double tolerance = EcartAuMeridien(drawn) <= 300000 ? 0.2 : 0.35;
      ASSERT_NEAR(steps.x, expected.x, tolerance);
      ASSERT_NEAR(steps.y, expected.y, tolerance);
    }
  }
}

/// Whole metres of a projected point as the forward writes them, in the frame of the letters.
Plane Coupe(Plane p) { return {std::trunc(p.x), std::trunc(p.y)}; }

TEST(NationalForward, KeepsSinglePrecision) {
  for (const Grille grid : Grids) {
    const ForwardConstants g = ConstantesDirectes(grid);
    const Plane frame =
        grid == Grille::British ? Plane{100000, 5527063.816} : Plane{300000, 5680030.0};
    int elsewhere = 0, compared = 0;
    for (const Plane& drawn : MetresAuHasard(grid)) {
      if (drawn.x < frame.x + 3 || drawn.y < frame.y + 3) continue;
      Point p = Inverse(grid, drawn);
      p.longitude = LongitudeSignee(p.longitude);
      const Plane text = Reference(grid, p);
      const Plane single = Coupe(DirectePasAPas<float>(g, p.latitude, p.longitude));
      const Plane inDoubles = Coupe(DirectePasAPas<double>(g, p.latitude, p.longitude));
      ASSERT_NEAR(text.x - frame.x, single.x, 1e-6) << drawn.x << ' ' << drawn.y;
      ASSERT_NEAR(text.y - frame.y, single.y, 1e-6) << drawn.x << ' ' << drawn.y;
      ++compared;
      if (single.x != inDoubles.x || single.y != inDoubles.y) ++elsewhere;
    }
    EXPECT_GT(compared, 9900);
    EXPECT_NEAR(elsewhere, 0.52 * compared, 300) << "texts that doubles would change";
  }
}

TEST(NationalGrids, ForwardAndInverseAgreeWithin2Metres) {
  for (const Grille grid : Grids) {
    const Plane frame = Frame(grid);
    double worst = 0;
    for (const Plane& drawn : MetresAuHasard(grid)) {
      if (drawn.x < frame.x + 3 || drawn.y < frame.y + 3) continue;  // there may be no text
      Point p = Inverse(grid, drawn);
      p.longitude = LongitudeSignee(p.longitude);
      const Plane text = Reference(grid, p);
      worst = std::max({worst, std::fabs(text.x - drawn.x), std::fabs(text.y - drawn.y)});
    }
    EXPECT_LT(worst, 2);
    EXPECT_GT(worst, 1.5);  // single precision and the cut metre do cost that much
  }
}

}  // namespace
}  // namespace talpena::test
