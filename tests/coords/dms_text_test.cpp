#include "coords/dms_text.h"

#include <gtest/gtest.h>

namespace talpena {
namespace {

TEST(TexteDms, SplitsDegrees) {
  EXPECT_EQ(TexteDms(50.425), "50°25'30.0''");
  EXPECT_EQ(TexteDms(0), "0°0'00.0''");
  EXPECT_EQ(TexteDms(-3.92), "-3°55'12.0''");
  EXPECT_EQ(TexteDms(179.999), "179°59'56.4''");
}

TEST(TexteDms, LosesTheSignBelowOneDegree) {
  EXPECT_EQ(TexteDms(-0.5), "0°30'00.0''");
  EXPECT_EQ(TexteDms(0.5), "0°30'00.0''");
}

// The minutes are split before the seconds are rounded.
TEST(TexteDms, MayWriteSixtySeconds) { EXPECT_EQ(TexteDms(10 + 59.99 / 3600), "10°0'60.0''"); }

TEST(TexteDmsSigne, ShowsOneMinusAndBlanks) {
  EXPECT_EQ(TexteDmsSigne(50.425), "50° 25' 30.0''");
  EXPECT_EQ(TexteDmsSigne(-3.92), "-3° 55' 12.0''");
  EXPECT_EQ(TexteDmsSigne(-0.5), "-0° 30' 00.0''");
  EXPECT_EQ(TexteDmsSigne(0), "0° 0' 00.0''");
}

TEST(DegresVersDms, HoldsTheAngleInSinglePrecision) {
  const float minutes = 50.123456789F * 60;
  const DmsParts parts = DegresVersDms(minutes, 50.123456789);
  EXPECT_EQ(parts.degrees, 50);
  EXPECT_EQ(parts.minutes, 7);
  EXPECT_NEAR(static_cast<double>(parts.seconds), 24.44, 0.02);
}

TEST(DegresVersDms, TakesTheSignOfTheSource) {
  EXPECT_EQ(DegresVersDms(-605, -10).degrees, -10);
  EXPECT_EQ(DegresVersDms(-605, 10).degrees, 10);
  EXPECT_EQ(DegresVersDms(-605, -10).minutes, 5);
}

}  // namespace
}  // namespace talpena
