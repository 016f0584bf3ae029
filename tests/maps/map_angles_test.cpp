#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

#include "common/talpena_error.h"
#include "maps/projection.h"

namespace talpena {
namespace {

TEST(MapAngles, ConvertWithElevenDigitsOfPi) {
  EXPECT_EQ(radian(180), static_cast<float>(3.1415926535));
  EXPECT_EQ(radian(90), static_cast<float>(1.57079632675));
  EXPECT_EQ(radian(-12.5F), static_cast<float>(3.1415926535 / 180 * -12.5));
  EXPECT_EQ(Degre(1), static_cast<float>(180 / 3.1415926535));
  EXPECT_EQ(Degre(radian(45)), 45);
}

TEST(MapAngles, Log10OfPowers) {
  EXPECT_EQ(Log10(1), 0);
  EXPECT_EQ(Log10(1000), 3);
  EXPECT_EQ(Log10(0.5F), static_cast<float>(std::log(0.5) / std::log(10.0)));
}

// No half turn at the ends: the inverses rely on it.
TEST(MapAngles, ArcSinusOfOneIsNothing) {
  EXPECT_EQ(ArcSinus(1), 0);
  EXPECT_EQ(ArcSinus(-1), 0);
  EXPECT_EQ(ArcSinus(1.5F), 0);
  EXPECT_EQ(ArcSinus(0), 0);
  EXPECT_NEAR(ArcSinus(0.5F), 0.5235988, 1e-7);
  EXPECT_NEAR(ArcSinus(-0.999F), std::asin(-0.999), 1e-6);
}

TEST(MapAngles, ATN2RunsFromMinusAQuarterToThreeQuartersOfATurn) {
  EXPECT_NEAR(ATN2(1, -1), std::atan(-1.0) + 3.1415926535, 2e-7);
  EXPECT_NEAR(ATN2(1, -1), 3 * 3.1415926535 / 4, 2e-7);
  EXPECT_EQ(ATN2(-1, 0), static_cast<float>(-1.57079632675));
  EXPECT_EQ(ATN2(1, 0), 1.5707964F);
  EXPECT_EQ(ATN2(0, 0), 1.5707964F);
  EXPECT_NEAR(ATN2(-1, -1), 5 * 3.1415926535 / 4, 3e-7);  // not -3/4
  EXPECT_NEAR(ATN2(-1, 1), -3.1415926535 / 4, 1e-7);
  EXPECT_EQ(ATN2(0, -1), static_cast<float>(3.1415926535));
}

TEST(MapAngles, ADJLZ0KeepsWithinPiAndAHundredth) {
  EXPECT_EQ(ADJLZ0(0), 0);
  EXPECT_EQ(ADJLZ0(3.15F), 3.15F);  // within the hundredth
  EXPECT_EQ(ADJLZ0(-3.15F), -3.15F);
  EXPECT_EQ(ADJLZ0(3.16F), static_cast<float>(3.16F - 6.283185307));
  EXPECT_EQ(ADJLZ0(-3.16F), static_cast<float>(-3.16F + 6.283185307));
  EXPECT_NEAR(ADJLZ0(radian(200)), radian(-160), 1e-6);
  EXPECT_NEAR(ADJLZ0(100 * 6.2831853F + 1), 1, 1e-3);
}

TEST(MapAngles, ADJLZ0EndsForEveryNumber) {
  for (const float lon : {1e5F, -1e7F, 1e8F, 1e20F, -3e38F}) {
    SCOPED_TRACE(lon);
    EXPECT_LE(std::abs(ADJLZ0(lon)), 3.1415927F + 0.01F);
  }
  constexpr float endless = std::numeric_limits<float>::infinity();
  for (const float lon : {endless, -endless, std::nanf("")}) {
    EXPECT_THROW(ADJLZ0(lon), TalpenaError);
  }
}

}  // namespace
}  // namespace talpena
