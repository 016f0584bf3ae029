#include "interchange/garmin_position.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "common/msg_id_import.h"
#include "common/numbers.h"
#include "common/talpena_error.h"
#include "coords/original.h"
#include "coords/test_catalogue.h"
#include "coords/tokens.h"
#include "interchange/mapsource_text.h"

namespace talpena {
namespace {

struct PositionCase {
  const char* name;
  int grid;
  const char* position;
  const char* original;
};

// Expected: by hand, from the form of each notation; minutes as a 32-bit float.
// clang-format off
constexpr PositionCase cases[] = {
    {"degrees",                     0, "N42.43999 W71.12092",     "deg 42.43999 -71.12092"},
    {"degrees, other hemispheres",  0, "S1.5 E10",                "deg -1.5 10"},
    {"degrees in lower case",       0, "s1.5 w10",                "deg -1.5 -10"},
    {"degrees as text",             0, "N007.50 E0,25",           "deg 007.50 0,25"},
    {"degrees with more blanks",    0, "  N1.5   E2.5 ",          "deg 1.5 2.5"},
    {"a third part is not read",    0, "N1.5 E2.5 X",             "deg 1.5 2.5"},
    {"degrees beyond the column",   0, "N42.439991234 W171.120921234", "deg 42.43999 -171.120921"},
    {"minutes",                     1, "N50 29.556188732 E12 06.325848140", "deg +50.4926 +12.10543"},
    {"minutes, south and west",     1, "S64 09.453 W123 23.640",  "deg -64.15755 -123.394"},
    {"minutes in lower case",       1, "s64 09.453 w123 23.640",  "deg -64.15755 -123.394"},
    {"minutes with a comma",        1, "N50 30,5 E12 30,0",       "deg +50.50834 +12.5"},
    {"minutes, whole degrees",      1, "N50 00.000 E0 00.000",    "deg +50. +."},
    {"sixty minutes",               1, "N59 60.000 E1 00.000",    "deg +60. +1."},
    {"seconds",                     2, "N50 49 38.6 W2 03 01.1",  "dms 50.49386 -2.03011"},
    {"seconds, not padded",         2, "N50 4 8.6 W2 3 1.1",      "dms 50.04086 -2.03011"},
    {"seconds beyond the column",   2, "N50 49 38.638 W2 3 1.164", "dms 50.493864 -2.0301164"},
    {"seconds, far beyond it",      2, "S50 49 38.658 W172 30 19.96", "dms -50.49387 -172.30199"},
    {"seconds, nines",              2, "S50 49 59.996 W172 30 59.999", "dms -50.49599 -172.30599"},
    {"seconds without a fraction",  2, "S50 49 38 E172 30 19",    "dms -50.4938 172.3019"},
    {"seconds with a comma",        2, "S50 49 8,5 E172 30 19,0", "dms -50.49085 172.30190"},
    {"MGRS",                        3, "31UES1234567890",         "mgr 31 U ES1234567890"},
    {"MGRS, zone of one digit",     3, "5UES1234567890",          "mgr 5 U ES1234567890"},
    {"MGRS in lower case",          3, "31uES1234567890",         "mgr 31 u ES1234567890"},
    {"MGRS of thirteen",            3, "UES1234567890",           "mgr UE U ES1234567890"},
    {"MGRS of twelve",              3, "ES1234567890",            "mgr ES  ES1234567890"},
    {"MGRS counts characters",      3, "31ÜES1234567890",         "mgr 31 Ü ES1234567890"},
    {"UTM is not read",             4, "44 R 413954 2809536",     ""},
    {"no grid",                    -1, "N42.43999 W71.12092",     ""},
    {"British",                     5, "ST 96554 93104",          "bng ST 9655493104"},
    {"British, a short number",     5, "ST 96554  3104",          "bng ST 9655403104"},
    {"British, a short easting",    5, "st 4 93104",              "bng ST 0000493104"},
    {"Irish",                       6, "N 12345 54321",           "itm N 1234554321"},
    {"Irish, a short number",       6, "n 12345 1",               "itm N 1234500001"},
};
// clang-format on

TEST(OriginalDePosition, TurnsPositionsOfAllGridsIntoOriginal) {
  for (const PositionCase& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(OriginalDePosition(c.grid, c.position), c.original);
  }
}

int NumeroDe(int grid, const std::string& position) {
  try {
    OriginalDePosition(grid, position);
    return 0;
  } catch (const TalpenaError& e) {
    return e.number();
  }
}

TEST(OriginalDePosition, FailsForPositionsWithTooFewParts) {
  EXPECT_EQ(NumeroDe(0, "N42.43999"), ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(NumeroDe(0, "   "), ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(NumeroDe(1, "N50 29.5 E12"), ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(NumeroDe(2, "N50 29 30 E12 06"), ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(NumeroDe(5, "ST 96554"), ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(NumeroDe(6, "N1234554321"), ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(NumeroDe(3, "ES123456789"), ErrorNumber::InvalidCall);
  EXPECT_EQ(NumeroDe(1, "N1e99 0 E1 0"), ErrorNumber::Overflow);
}

// Expected: the angle itself. A part of the last digit that the column has room for, on each grid.
TEST(OriginalDePosition, NamesThePointThatWasMeant) {
  CoordState state;
  state.Catalogue = test::CatalogueDesSources();
  std::mt19937 random(5);
  std::uniform_real_distribution<double> latitude(-84, 84), longitude(-179.9, 179.9);
  const auto angle = [](double value, const char* letters, int grid) {
    const double size = std::fabs(value);
    const std::string head = letters[value < 0 ? 1 : 0] + Str(Int(size));
    const double minutes = (size - Int(size)) * 60;
    if (grid == GarminGrid::Degrees) return letters[value < 0 ? 1 : 0] + Format(size, "0.00000");
    if (grid == GarminGrid::Minutes) return head + " " + Format(minutes, "0.0000");
    return head + " " + Str(Int(minutes)) + " " + Format((minutes - Int(minutes)) * 60, "0.000");
  };
  for (int i = 0; i < 3000; ++i) {
    const double phi = latitude(random), lambda = longitude(random);
    const int grid = i % 3;
    const std::string position = angle(phi, "NS", grid) + " " + angle(lambda, "EW", grid);
    SCOPED_TRACE(position);
    std::string original = OriginalDePosition(grid, position), readable, code;
    EXPECT_LE(original.size(), 24U);
    OriginalLisible(original, readable);
    double readLatitude = 0, readLongitude = 0;
    DecodeOriginal(state, readable, state.Catalogue.DatumWgs84, readLatitude, readLongitude, code);
    const double tolerance = grid == GarminGrid::Seconds ? 0.101 / 3600 : 1.5e-5;
    EXPECT_NEAR(readLatitude, phi, tolerance);
    EXPECT_NEAR(readLongitude, lambda, tolerance);
  }
}

struct OddPositionCase {
  const char* name;
  int grid;
  const char* position;
  int doubt;
};
using namespace GarminGrid;

const OddPositionCase oddPositions[] = {
    {"degrees", Degrees, "N50.5 W4.25", 0},
    {"degrees in small letters", Degrees, "n50.5 w4.25", 0},
    {"degrees with decimal commas", Degrees, "N50,5 W4,25", 0},
    {"degrees without letters", Degrees, "50.5 4.25", MsgId::DouteHemisphere},
    {"degrees with another east", Degrees, "N50.5 O4.25", MsgId::DouteHemisphere},
    {"degrees of words", Degrees, "Near Ely", MsgId::DoutePosition},
    {"minutes read as degrees", Degrees, "N50 30.5 W4 15.2", MsgId::DouteHemisphere},
    {"minutes", Minutes, "N50 59.999 E4 15.2", 0},
    {"60 minutes, which are rounded", Minutes, "N50 60.000 E4 60", 0},
    {"75 minutes of longitude", Minutes, "N50 30.5 E4 75", MsgId::DouteMinutes},
    {"minutes that are no number", Minutes, "N50 x E4 15", MsgId::DoutePosition},
    {"degrees that are no number", Minutes, "N50 30 Ex 15", MsgId::DoutePosition},
    {"seconds", Seconds, "N50 30 59.9 E4 15 3", 0},
    {"60 seconds, which are rounded", Seconds, "N50 30 60.0 E4 15 3", 0},
    {"61 seconds", Seconds, "N50 30 61.0 E4 15 3", MsgId::DouteMinutes},
    {"61 minutes and seconds", Seconds, "N50 30 0 E4 61 3", MsgId::DouteMinutes},
    {"too few parts, which fail", Minutes, "N50 E4", 0},
    {"MGRS", Mgrs, "31UES1234512345", 0},
    {"UTM", Utm, "31 U 1 2", 0},
    {"no grid", -1, "50.5 4.25", 0},
};

TEST(GarminPosition, TellsWhatIsOddAboutDegrees) {
  for (const OddPositionCase& c : oddPositions) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(DouteDePosition(c.grid, c.position), c.doubt);
  }
}

}  // namespace
}  // namespace talpena
