// Faults of the arithmetic are raised, and nothing hangs on them.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <vector>

#include "common/talpena_error.h"
#include "maps/map_projection.h"
#include "maps/some_map.h"

namespace talpena {
namespace {

using test::CarteDe;
using test::Inverse;
using test::Projette;

constexpr float infinite = std::numeric_limits<float>::infinity();
const float notANumber = std::nanf("");

/// Number of the error that a call raises, 0 for none.
int Erreur(const std::function<void()>& call) {
  try {
    call();
    return 0;
  } catch (const TalpenaError& e) {
    return e.number();
  }
}

TEST(ProjectionFaults, RaiseTheDivisionAtTheAntipodeOfTheStereographic) {
  MapState carte = CarteDe(3);
  StereoInit(carte, 0);
  carte.MeridienCentral = 0;
  float X = 7, Y = 8;
  EXPECT_EQ(Erreur([&] { Project(carte, 0, radian(180), X, Y); }), ErrorNumber::DivisionByZero);
  EXPECT_EQ(X, 7);
  EXPECT_EQ(Y, 8);
}

TEST(ProjectionFaults, RaiseTheDivisionAtNoHeightOfTheConic) {
  const MapState carte = CarteDe(1);
  EXPECT_EQ(Erreur([&] { Inverse(carte, 100, 0); }), ErrorNumber::DivisionByZero);
  EXPECT_EQ(Erreur([&] { Inverse(carte, 0, 0); }), ErrorNumber::DivisionByZero);
}

// pi/2 in 32 bits lies beyond both poles.
TEST(ProjectionFaults, RaiseThePowerOfANegativeAtThePoleOfTheConic) {
  const MapState carte = CarteDe(1);
  EXPECT_EQ(Erreur([&] { Projette(carte, 90, 10); }), ErrorNumber::InvalidCall);
  EXPECT_EQ(Erreur([&] { Projette(carte, 95, 10); }), ErrorNumber::InvalidCall);
  EXPECT_EQ(Erreur([&] { Projette(carte, 89.99F, 10); }), 0);
  EXPECT_EQ(Erreur([&] { Projette(carte, -90, 10); }), ErrorNumber::InvalidCall);
  EXPECT_EQ(Erreur([&] { Projette(carte, -89.99F, 10); }), 0);
}

TEST(ProjectionFaults, RaiseEqualParallelsInTheSetUp) {
  MapState carte;
  for (const float parallel : {45.0F, 0.0F, -30.0F}) {
    EXPECT_EQ(Erreur([&] { DefConstantes(carte, parallel, parallel); }),
              ErrorNumber::DivisionByZero);
  }
}

TEST(ProjectionFaults, RaiseParallelsThatMakeNoCone) {
  MapState carte;
  EXPECT_EQ(Erreur([&] { DefConstantes(carte, 90, 40); }), ErrorNumber::InvalidCall);
  EXPECT_EQ(Erreur([&] { DefConstantes(carte, 40, 120); }), ErrorNumber::InvalidCall);
  EXPECT_EQ(Erreur([&] { DefConstantes(carte, notANumber, 40); }), ErrorNumber::Overflow);
  EXPECT_EQ(Erreur([&] { DefConstantes(carte, 40, infinite); }), ErrorNumber::Overflow);
  EXPECT_NE(Erreur([&] { DefConstantes(carte, 40, -40); }), 0);  // n is 0
}

TEST(ProjectionFaults, RaiseOverflowWhereAFloatEnds) {
  EXPECT_EQ(Erreur([&] { Projette(CarteDe(5), 0, 3e38F); }), ErrorNumber::Overflow);
  EXPECT_EQ(Erreur([&] { Inverse(CarteDe(5), 1e37F, 0); }), ErrorNumber::Overflow);
  EXPECT_EQ(Erreur([&] { Inverse(CarteDe(2), 0, -1e6F); }), ErrorNumber::Overflow);
  EXPECT_EQ(Erreur([&] { radian(infinite); }), ErrorNumber::Overflow);
  EXPECT_EQ(Erreur([&] { Log10(-1); }), ErrorNumber::InvalidCall);
  EXPECT_EQ(Erreur([&] { Log10(0); }), ErrorNumber::Overflow);
}

TEST(ProjectionFaults, RaiseWhatIsNoNumberInEveryCode) {
  for (const MapProjection& projection : Projections()) {
    const int code = projection.code;
    SCOPED_TRACE(code);
    const MapState carte = CarteDe(code);
    float a = 1, b = 2;
    for (const float bad : {notANumber, infinite, -infinite}) {
      EXPECT_EQ(Erreur([&] { Project(carte, bad, 0, a, b); }), ErrorNumber::Overflow);
      EXPECT_EQ(Erreur([&] { Project(carte, 0, bad, a, b); }), ErrorNumber::Overflow);
      EXPECT_EQ(Erreur([&] { ProjectionInverse(carte, bad, 1, a, b); }), ErrorNumber::Overflow);
      EXPECT_EQ(Erreur([&] { ProjectionInverse(carte, 1, bad, a, b); }), ErrorNumber::Overflow);
    }
    EXPECT_EQ(a, 1);
    EXPECT_EQ(b, 2);
  }
}

TEST(ProjectionFaults, MarkThePointsOfABatch) {
  const MapState carte = CarteDe(1);
  const std::vector<float> lat{0.9F, notANumber, 0.8F, 1.7F}, lon{0, 0, infinite, 0};
  std::vector<float> X(4, 1), Y(4, 2);
  ProjectPoints(carte, lat, lon, X, Y);
  EXPECT_LT(X[0], 1e4F);
  for (const std::size_t i : {1U, 2U, 3U}) {
    EXPECT_EQ(X[i], HORS_CARTE);
    EXPECT_EQ(Y[i], HORS_CARTE);
  }
}

/// Whatever comes in, finite numbers come out, or an error.
void Eprouve(const MapState& carte, float u, float v) {
  float a = 0, b = 0;
  if (Erreur([&] { Project(carte, u, v, a, b); }) == 0) {
    EXPECT_TRUE(std::isfinite(a) && std::isfinite(b)) << u << ' ' << v;
  }
  a = b = 0;
  if (Erreur([&] { ProjectionInverse(carte, u, v, a, b); }) == 0) {
    EXPECT_TRUE(std::isfinite(a) && std::isfinite(b)) << u << ' ' << v;
  }
}

TEST(ProjectionFaults, EndForEveryPosition) {
  const std::vector<float> odd{0.0F,  -0.0F,      1e-45F,      -1e-30F,  1e-5F,
                               -1,    1.5707964F, -1.5707964F, 3.15F,    6378,
                               -6379, 12756.776F, -1e5F,       1e10F,    -1e20F,
                               1e30F, 3e38F,      -3e38F,      infinite, notANumber};
  for (const MapProjection& projection : Projections()) {
    const int code = projection.code;
    SCOPED_TRACE(code);
    const MapState carte = CarteDe(code);
    for (const float u : odd) {
      for (const float v : odd) Eprouve(carte, u, v);
    }
  }
}

TEST(ProjectionFaults, EndForOddConstants) {
  std::mt19937 random(5);
  std::uniform_real_distribution<float> parallel(-100, 100), place(-20000, 20000);
  std::uniform_real_distribution<float> exponent(-30, 30);
  for (int i = 0; i < 3000; ++i) {
    MapState carte = test::LimitesEurope(1);
    carte.Parallele1 = parallel(random);
    carte.Parallele2 = parallel(random);
    if (Erreur([&] { InitProjection(carte); }) != 0) {
      carte.lambert = {0.08F, 0.04F, std::exp(exponent(random)), std::exp(exponent(random))};
    }
    Eprouve(carte, place(random), place(random));
  }
}

// The iteration rests before its limit: a hundred thousand positions come back where they were.
TEST(ProjectionFaults, LetTheConicRestEverywhere) {
  const MapState carte = CarteDe(1);
  std::mt19937 random(6);
  std::uniform_real_distribution<float> latitude(-1.3F, 1.55F), longitude(-1.8F, 1.8F);
  float worst = 0;
  for (int i = 0; i < 100000; ++i) {
    const float lat = latitude(random);
    float X = 0, Y = 0, back = 0, lon = 0;
    Project(carte, lat, longitude(random), X, Y);
    ProjectionInverse(carte, X, Y, back, lon);
    worst = std::max(worst, std::abs(back - lat));
  }
  EXPECT_LT(worst, 6e-7F);  // radians
}

}  // namespace
}  // namespace talpena
