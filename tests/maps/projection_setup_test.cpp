// Constants by code, and the box of a map.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "maps/some_map.h"

namespace talpena {
namespace {

using test::CarteDe;
using test::LimitesEurope;
using test::Projette;

float Simple(double value) { return static_cast<float>(value); }

TEST(ProjectionSetup, HasTheFactorsOfTheCylinders) {
  MapState carte;
  InitFacteurs(carte);
  EXPECT_EQ(carte.k7, Simple(std::cos(0.523598776)));
  EXPECT_EQ(carte.k8, Simple(std::cos(0.785398163)));
  EXPECT_EQ(carte.k6, Simple(6378388.0 * std::cos(0.8813913)));
  EXPECT_EQ(carte.k9, 0);  // until a map of code 9 is read
  EXPECT_EQ(CarteDe(9).k9, Simple(std::cos(radian(40))));
}

// Computed by the literal transcription that made the table of projections.
TEST(ProjectionSetup, HasTheConstantsOfTheConic) {
  const LambertConstants k = CarteDe(1).lambert;
  EXPECT_EQ(k.e, 0x1.4fd6bap-4F);
  EXPECT_EQ(k.halfE, 0x1.4fd6bap-5F);
  EXPECT_EQ(k.n, 0x1.8a4686p-1F);
  EXPECT_EQ(k.F, 0x1.5bc438p+23F);
}

TEST(ProjectionSetup, TakesTheParallelsInAnyOrder) {
  MapState carte;
  DefConstantes(carte, 60, 40);
  EXPECT_NEAR(carte.lambert.n, CarteDe(1).lambert.n, 1e-6);
  EXPECT_NEAR(carte.lambert.F, CarteDe(1).lambert.F, 20);
}

TEST(ProjectionSetup, SetsCentresByTheirOwnCodesOnly) {
  EXPECT_EQ(CarteDe(3).stereo.latitude, radian(20));
  EXPECT_EQ(CarteDe(3).stereo.sine, Simple(std::sin(radian(20))));
  EXPECT_EQ(CarteDe(3).stereo.cosine, Simple(std::cos(radian(20))));
  EXPECT_EQ(CarteDe(13).ortho.latitude, radian(40));
  EXPECT_EQ(CarteDe(13).ortho.cosine, Simple(std::cos(radian(40))));
  for (const int code : {1, 2, 4, 5, 6, 7, 8, 9, 10, 11, 12}) {
    SCOPED_TRACE(code);
    EXPECT_EQ(CarteDe(code).stereo.cosine, 0);
    EXPECT_EQ(CarteDe(code).ortho.cosine, 0);
  }
}

/// Where the box is taken from: four points in degrees.
struct BoxCase {
  int code;
  float latLeft, lonLeft, latBottom, lonBottom, latRight, lonRight, latTop, lonTop;
};

TEST(ProjectionSetup, TakesTheBoxFromFourPoints) {
  constexpr float S = 30, N = 70, W = -10, E = 30, M = 10;
  for (const BoxCase& c : {BoxCase{1, S, W, S, M, S, E, N, E}, BoxCase{3, S, W, S, M, S, E, N, E},
                           BoxCase{2, S, W, S, M, S, E, N, M}, BoxCase{5, S, W, S, M, S, E, N, M},
                           BoxCase{6, S, W, S, M, S, E, N, M}, BoxCase{7, S, W, S, M, S, E, N, M},
                           BoxCase{8, S, W, S, M, S, E, N, M}, BoxCase{9, S, W, S, M, S, E, N, M},
                           BoxCase{4, S, W, S, M, S, E, N, M}}) {
    SCOPED_TRACE(c.code);
    const MapState carte = CarteDe(c.code);
    EXPECT_EQ(carte.XGauche, Projette(carte, c.latLeft, c.lonLeft).X);
    EXPECT_EQ(carte.YBas, Projette(carte, c.latBottom, c.lonBottom).Y);
    EXPECT_EQ(carte.XDroite, Projette(carte, c.latRight, c.lonRight).X);
    EXPECT_EQ(carte.YHaut, Projette(carte, c.latTop, c.lonTop).Y);
    EXPECT_EQ(carte.LargeurKm, std::abs(carte.XDroite - carte.XGauche));
    EXPECT_EQ(carte.HauteurKm, std::abs(carte.YHaut - carte.YBas));
    EXPECT_EQ(carte.CoteKm, std::max(carte.LargeurKm, carte.HauteurKm));
    EXPECT_GT(carte.XDroite, carte.XGauche);
    EXPECT_GT(carte.YHaut, carte.YBas);
  }
}

TEST(ProjectionSetup, PutsTheMeridianInRadians) {
  EXPECT_EQ(CarteDe(5).MeridienCentral, radian(10));
  MapState carte;  // without a projection it stays
  carte.MeridienCentralDeg = 10;
  InitBoite(carte);
  EXPECT_EQ(carte.MeridienCentral, 0);
}

/// Width of a sinusoidal map 40 degrees wide, as a latitude whose row is that wide.
double RangeeDe(float south, float north) {
  MapState carte = LimitesEurope(4);
  carte.LatSud = south;
  carte.LatNord = north;
  test::Prepare(carte);
  const double width = carte.LargeurKm / (6378.388 * radian(40));
  return width > 0.9999999 ? 0 : Degre(Simple(std::acos(width)));
}

TEST(ProjectionSetup, TakesTheWidestRowOfTheSinusoidal) {
  EXPECT_NEAR(RangeeDe(30, 70), 30, 1e-3);
  EXPECT_NEAR(RangeeDe(-20, 70), 0, 1e-3);
  EXPECT_NEAR(RangeeDe(-20, 0), 0, 1e-3);
  EXPECT_NEAR(RangeeDe(0, 50), 0, 1e-3);
  EXPECT_NEAR(RangeeDe(-70, -25), 25, 1e-3);
}

TEST(ProjectionSetup, BoundsAGlobeByItsRadius) {
  for (const int code : {10, 13}) {
    const MapState carte = CarteDe(code);
    EXPECT_EQ(carte.XGauche, -6378.388F);
    EXPECT_EQ(carte.YBas, -6378.388F);
    EXPECT_EQ(carte.XDroite, 6378.388F);
    EXPECT_EQ(carte.YHaut, 6378.388F);
    EXPECT_EQ(carte.CoteKm, carte.HauteurKm);
  }
}

TEST(ProjectionSetup, BoundsAPoleByItsRim) {
  MapState north = LimitesEurope(11);
  north.LatSud = 20;
  north.LatNord = 90;
  test::Prepare(north);
  const float rim = 6378.388F * std::cos(radian(20));
  EXPECT_NEAR(north.XGauche, -rim, 0.01);
  EXPECT_NEAR(north.XDroite, rim, 0.01);
  EXPECT_NEAR(north.YBas, -rim, 0.01);
  EXPECT_NEAR(north.YHaut, rim, 0.01);
  MapState south = LimitesEurope(12);
  south.LatSud = -90;
  south.LatNord = -20;
  test::Prepare(south);
  EXPECT_NEAR(south.XGauche, -rim, 0.01);
  EXPECT_NEAR(south.XDroite, rim, 0.01);
  EXPECT_NEAR(south.YBas, -rim, 0.01);
  EXPECT_NEAR(south.YHaut, rim, 0.01);
}

TEST(ProjectionSetup, MarksThePoleOfARimThatLiesBehind) {
  const MapState carte = CarteDe(12);  // its rim would be 70 north
  EXPECT_EQ(carte.XGauche, HORS_CARTE);
  EXPECT_EQ(carte.YBas, 0);
  EXPECT_EQ(carte.LargeurKm, 0);
}

TEST(ProjectionSetup, TakesTheExtentsWithoutAProjection) {
  const MapState wide = test::CarteSansCode(100, 900, 50, -250);
  EXPECT_EQ(wide.LargeurKm, 800);
  EXPECT_EQ(wide.HauteurKm, 300);
  EXPECT_EQ(wide.CoteKm, 800);
  EXPECT_EQ(test::CarteSansCode(0, 300, 0, 300).CoteKm, 300);
  EXPECT_EQ(test::CarteSansCode(0, 300, 0, 400).CoteKm, 400);
}

TEST(ProjectionSetup, KeepsTheBoxUnderACodeThatProjectsNothing) {
  MapState carte = CarteDe(5);
  const float left = carte.XGauche;
  carte.CodeProjection = 14;
  test::Prepare(carte);
  EXPECT_EQ(carte.XGauche, left);
}

}  // namespace
}  // namespace talpena
