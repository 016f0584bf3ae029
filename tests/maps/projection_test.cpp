// The thirteen projections: their table, their marks and what looks odd in them.
#include "maps/projection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include "common/talpena_error.h"
#include "maps/map_projection.h"
#include "maps/projection_table.h"
#include "maps/some_map.h"

namespace talpena {
namespace {

using test::CarteDe;
using test::Inverse;
using test::LatLon;
using test::Projette;
using test::Xy;

std::uint32_t Bits(float value) { return std::bit_cast<std::uint32_t>(value); }

constexpr float presqueZero = 1E-13F;

TEST(Projection, StoresEveryNumberInThirtyTwoBits) {
  for (const test::ProjectionCase& c : test::ProjectionCases) {
    SCOPED_TRACE(testing::Message()
                 << "code " << c.code << " at " << c.latitude << ' ' << c.longitude);
    const MapState carte = CarteDe(c.code);
    const Xy point = Projette(carte, c.latitude, c.longitude);
    EXPECT_EQ(point.X, c.X);
    EXPECT_EQ(point.Y, c.Y);
    if (c.X == HORS_CARTE) continue;
    if (c.code == 1 && c.Y == 0) continue;
    const LatLon back = Inverse(carte, c.X, c.Y);
    EXPECT_EQ(back.lat, c.lat);
    EXPECT_EQ(back.lon, c.lon);
  }
}

// One store more or less would show in a third of the points.
TEST(Projection, RoundsMetresAndThenKilometres) {
  const MapState carte = CarteDe(5);
  std::mt19937 random(1);
  std::uniform_real_distribution<float> angle(-1.5F, 1.5F);
  int told = 0;
  for (int i = 0; i < 10000; ++i) {
    const float lat = angle(random);
    float X = 0, Y = 0;
    Project(carte, lat, 0, X, Y);
    const auto metres = static_cast<float>(lat * 6378388.0);
    EXPECT_EQ(Y, static_cast<float>(metres / 1000.0));
    if (Y != static_cast<float>(lat * 6378388.0 / 1000)) ++told;
  }
  EXPECT_GT(told, 1000);
}

TEST(Projection, LeavesXAndYAloneWithoutAProjection) {
  for (const int code : {0, 14, -1, -32768, 32767}) {
    SCOPED_TRACE(code);
    MapState carte;
    carte.CodeProjection = static_cast<std::int16_t>(code);
    const Xy point = Projette(carte, 50, 4, {12.5F, -3});
    EXPECT_EQ(point.X, 12.5F);
    EXPECT_EQ(point.Y, -3);
    const LatLon back = Inverse(carte, 100, 200, {0.5F, 0.25F});
    EXPECT_EQ(back.lat, 0.5F);
    EXPECT_EQ(back.lon, 0.25F);
  }
}

TEST(Projection, HasTheTwoMarksInTheirBits) {
  EXPECT_EQ(Bits(HORS_CARTE), 0x7F7FC99EU);
  EXPECT_EQ(Bits(presqueZero), 0x29E12E13U);
}

/// At the equator on the central meridian, which is 0 here.
Xy Origine(int code) {
  MapState carte = test::LimitesEurope(code);
  carte.MeridienCentralDeg = 0;
  carte.ParallelePrincipal = 0;
  carte.LatNord = carte.LatSud = 0;
  InitProjection(carte);
  return Projette(carte, 0, 0, {5, 5});
}

TEST(Projection, GivesAnXToTheOriginInSomeCodes) {
  for (const int code : {2, 6, 7, 8, 9, 10, 13}) {
    SCOPED_TRACE(code);
    const Xy point = Origine(code);
    EXPECT_EQ(Bits(point.X), 0x29E12E13U);
    EXPECT_EQ(point.Y, 0);
  }
}

TEST(Projection, LeavesTheOriginAtNothingInTheOthers) {
  for (const int code : {3, 4, 5}) {
    SCOPED_TRACE(code);
    const Xy point = Origine(code);
    EXPECT_EQ(point.X, 0);
    EXPECT_EQ(point.Y, 0);
  }
}

TEST(Projection, GivesAnXOnlyWhereBothAreNothing) {
  const MapState carte = CarteDe(6);
  EXPECT_EQ(Projette(carte, 10, 10).X, 0);
  EXPECT_EQ(Projette(carte, 0, 20).Y, 0);
  EXPECT_GT(Projette(carte, 0, 20).X, 700);
}

TEST(Projection, LimitsTheLatitudeOfMercator) {
  const MapState carte = CarteDe(2);
  Xy limit;
  Project(carte, 1.37881F, 0, limit.X, limit.Y);
  EXPECT_EQ(Projette(carte, 85, 0).Y, limit.Y);
  EXPECT_EQ(Projette(carte, 90, 0).Y, limit.Y);
  EXPECT_EQ(Projette(carte, 120, 0).Y, limit.Y);
  EXPECT_LT(Projette(carte, 78.9F, 0).Y, limit.Y);
  Project(carte, -1.37881F, 0, limit.X, limit.Y);
  EXPECT_EQ(Projette(carte, -85, 0).Y, limit.Y);
  EXPECT_GT(Projette(carte, -78.9F, 0).Y, limit.Y);
}

TEST(Projection, SetsNoLimitToTheInverseOfMercator) {
  EXPECT_NEAR(Degre(Inverse(CarteDe(2), 0, 25000).lat), 87.7, 0.1);
}

TEST(Projection, CentresTheStereographicOnHalfTheDifferenceOfTheLimits) {
  const MapState carte = CarteDe(3);  // 30 to 70 north
  EXPECT_EQ(carte.stereo.latitude, radian(20));
  const Xy centre = Projette(carte, 20, 10);
  EXPECT_NEAR(centre.X, 0, 1e-4);
  EXPECT_NEAR(centre.Y, 0, 1e-3);
}

TEST(Projection, LeavesTheLongitudeOfAStereographicPointThatDoesNotTellIt) {
  MapState carte = CarteDe(3);
  StereoInit(carte, 0);
  const Xy far{0, static_cast<float>(2 * 6378.388)};  // a pole, 90 degrees from the centre
  const LatLon back = Inverse(carte, far.X, far.Y, {0.125F, 0.75F});
  EXPECT_NE(back.lat, 0.125F);
  const LatLon centre = Inverse(CarteDe(3), 0, 0, {0.125F, 0.75F});
  EXPECT_EQ(centre.lat, radian(20));
  EXPECT_EQ(centre.lon, radian(10));
}

TEST(Orthographic, ShowsAPointNinetyDegreesFromTheCentre) {
  const MapState carte = CarteDe(13);  // centre 40 north, 10 east
  const Xy limb = Projette(carte, -50, 10);
  EXPECT_NEAR(limb.X, 0, 1e-3);
  EXPECT_NEAR(limb.Y, -6378.388, 1e-3);
}

/// A point on the meridian of the centre of code 13, by the cosine of its distance.
Xy AuCosinus(double c) {
  const double distance = std::acos(c) * 180 / 3.1415926535;
  return Projette(CarteDe(13), static_cast<float>(40 - distance), 10);
}

TEST(Orthographic, HidesWhatLiesBehindTheSliverAtTheLimb) {
  EXPECT_LT(AuCosinus(-0.0099).X, 1e30F);
  for (const double c : {-0.0101, -0.02, -1.0}) {
    SCOPED_TRACE(c);
    const Xy hidden = AuCosinus(c);
    EXPECT_EQ(Bits(hidden.X), 0x7F7FC99EU);
    EXPECT_EQ(Bits(hidden.Y), 0x7F7FC99EU);
  }
}

TEST(Orthographic, HasNoHeightAndHidesNothingInCode10) {
  const MapState carte = CarteDe(10);
  for (const float latitude : {-89.0F, -30.0F, 0.0F, 45.0F}) {
    for (const float longitude : {-170.0F, 11.0F, 100.0F, 180.0F}) {
      const Xy point = Projette(carte, latitude, longitude);
      EXPECT_EQ(point.Y, 0);
      EXPECT_LT(std::abs(point.X), 6378.4F);
    }
  }
}

TEST(Orthographic, InvertsAPoleToTheCentralMeridianOfTheEquator) {
  for (const int code : {10, 11, 12}) {
    SCOPED_TRACE(code);
    const MapState carte = CarteDe(code);
    for (const Xy point : {Xy{0, 0}, Xy{100, 2000}, Xy{-3000, 17}, Xy{0, -6378}}) {
      const LatLon back = Inverse(carte, point.X, point.Y, {9, 9});
      EXPECT_EQ(back.lat, 0);
      EXPECT_EQ(back.lon, radian(10));
    }
  }
}

TEST(Orthographic, KeepsTheCentreOfTheMapBefore) {
  MapState carte = CarteDe(13);
  carte.CodeProjection = 10;
  InitProjection(carte);
  EXPECT_EQ(carte.ortho.latitude, radian(40));
  EXPECT_GT(Projette(carte, 60, 10).Y, 2000);
}

TEST(Orthographic, HidesTheOtherHemisphereOfAPoleInXAlone) {
  const Xy north = Projette(CarteDe(11), -0.5F, 30, {1, 2});
  EXPECT_EQ(north.X, HORS_CARTE);
  EXPECT_EQ(north.Y, 2);
  const Xy south = Projette(CarteDe(12), 0.5F, 30, {1, 2});
  EXPECT_EQ(south.X, HORS_CARTE);
  EXPECT_EQ(south.Y, 2);
  EXPECT_LT(Projette(CarteDe(11), 0, 30).X, 6379);
  EXPECT_LT(Projette(CarteDe(12), 0, 30).X, 6379);
}

TEST(Orthographic, ReversesYAtTheSouthPole) {
  const Xy north = Projette(CarteDe(11), 60, 40), south = Projette(CarteDe(12), -60, 40);
  EXPECT_EQ(south.X, north.X);
  EXPECT_EQ(south.Y, -north.Y);
  EXPECT_LT(north.Y, 0);
}

TEST(Orthographic, InvertsAPointOutsideTheDiscToNothing) {
  for (const int code : {10, 11, 12, 13}) {
    for (const Xy point : {Xy{6400, 0}, Xy{-5000, 5000}, Xy{1e6F, 1e6F}}) {
      const LatLon back = Inverse(CarteDe(code), point.X, point.Y, {9, 9});
      EXPECT_EQ(back.lat, 0);
      EXPECT_EQ(back.lon, 0);
    }
  }
}

TEST(Orthographic, BringsALongitudeOfTwoHundredDegreesBack) {
  MapState carte = test::LimitesEurope(13);
  carte.MeridienCentralDeg = 170;
  test::Prepare(carte);
  const Xy point = Projette(carte, 45, 200);
  const LatLon back = Inverse(carte, point.X, point.Y);
  EXPECT_NEAR(Degre(back.lon), -160, 1e-3);
  EXPECT_NEAR(Degre(back.lat), 45, 1e-3);
}

TEST(Orthographic, TakesACentreNearAPoleForThePole) {
  for (const float centre : {86.0F, -86.0F}) {
    SCOPED_TRACE(centre);
    MapState carte = test::LimitesEurope(13);
    carte.ParallelePrincipal = centre;
    test::Prepare(carte);
    const LatLon back = Inverse(carte, 1000, -1000);
    EXPECT_NEAR(Degre(back.lon), centre > 0 ? 55 : 145, 0.01);
  }
}

// A tenth of a metre around the centre, a ten-millionth of a millimetre for the stereographic.
TEST(Orthographic, TakesATenthOfAMetreForTheCentre) {
  const MapState globe = CarteDe(13), stereo = CarteDe(3);
  EXPECT_EQ(Inverse(globe, 0.00009F, 0).lon, radian(10));
  EXPECT_EQ(Inverse(globe, 0.00009F, 0).lat, radian(40));
  EXPECT_GT(Inverse(globe, 0.1F, 0).lon, radian(10));
  EXPECT_EQ(Inverse(stereo, 0, 0).lat, radian(20));
}

TEST(Projection, DrawsNoLongitudeShift) {
  MapState carte = CarteDe(5);
  const Xy before = Projette(carte, 50, 4);
  carte.DecalageLongitude = 30;
  test::Prepare(carte);
  EXPECT_EQ(Projette(carte, 50, 4).X, before.X);
  EXPECT_EQ(ChangeLongi(carte, 4), 34);
  EXPECT_EQ(ChangeLongi(carte, -40), -10);
}

TEST(ProjectPoints, EqualsProjectInEveryBit) {
  std::mt19937 random(3);
  std::uniform_real_distribution<float> latitude(-1.6F, 1.6F), longitude(-3.3F, 3.3F);
  std::vector<float> lat, lon;
  for (int i = 0; i < 5000; ++i) {
    lat.push_back(latitude(random));
    lon.push_back(longitude(random));
  }
  const int behind = static_cast<int>(Projections().size()) + 1;
  for (int code = 0; code <= behind; ++code) {
    SCOPED_TRACE(code);
    MapState carte = CarteDe(code == 0 || code == behind ? 5 : code);
    carte.CodeProjection = static_cast<std::int16_t>(code);
    std::vector<float> X(lat.size(), 3), Y(lat.size(), 4);
    ProjectPoints(carte, lat, lon, X, Y);
    int different = 0;
    for (std::size_t i = 0; i < lat.size(); ++i) {
      Xy one{3, 4};
      try {
        Project(carte, lat[i], lon[i], one.X, one.Y);
      } catch (const TalpenaError&) {
        one = {HORS_CARTE, HORS_CARTE};
      }
      if (Bits(one.X) != Bits(X[i]) || Bits(one.Y) != Bits(Y[i])) ++different;
    }
    EXPECT_EQ(different, 0);
  }
}

// What the eye sees of a click: it comes back where it was drawn.
TEST(Projection, BringsAClickBack) {
  std::mt19937 random(4);
  std::uniform_real_distribution<float> latitude(31, 69), longitude(-9, 29);
  for (const int code : {1, 2, 3, 4, 5, 6, 7, 8, 9, 13}) {
    SCOPED_TRACE(code);
    const MapState carte = CarteDe(code);
    float worst = 0;
    for (int i = 0; i < 5000; ++i) {
      const float lat = latitude(random), lon = longitude(random);
      const Xy point = Projette(carte, lat, lon);
      const LatLon back = Inverse(carte, point.X, point.Y);
      worst = std::max({worst, std::abs(Degre(back.lat) - lat), std::abs(Degre(back.lon) - lon)});
    }
    EXPECT_LT(worst, code == 13 ? 1e-4 : 3e-5);  // degrees; 3e-5 is 3 m
  }
}

}  // namespace
}  // namespace talpena
