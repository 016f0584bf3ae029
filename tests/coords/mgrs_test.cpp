#include "coords/mgrs.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "common/talpena_error.h"
#include "coords/datum.h"
#include "coords/mgrs_calls.h"
#include "coords/test_catalogue.h"

namespace talpena {
namespace {

using namespace mgrstest;

// The letter sets.

struct SetCase {
  std::int16_t zone, ellipsoid;
  int low, high;
  double falseNorthing;
  int error;
};

// TM 8358.1: columns A to H, J to R, S to Z by turns; rows of even zones five letters on, those of
// the second group ten and fifteen.
// clang-format off
constexpr SetCase sets[] = {
    { 1, wgs84,       1,  8,       0, 0}, { 2, wgs84,      10, 18, 1500000, 0},
    { 3, wgs84,      19, 26,       0, 0}, { 4, wgs84,       1,  8, 1500000, 0},
    { 5, wgs84,      10, 18,       0, 0}, { 6, wgs84,      19, 26, 1500000, 0},
    { 7, wgs84,       1,  8,       0, 0}, {60, wgs84,      19, 26, 1500000, 0},
    {31, bessel,      1,  8, 1000000, 0}, {32, bessel,     10, 18,  500000, 0},
    {31, 6,           1,  8, 1000000, 0}, {32, 22,         10, 18,  500000, 0},
    // Clarke 1866 in and out of the zones of the Philippines.
    {30, clarke1866, 19, 26,  500000, 0}, {46, clarke1866,  1,  8,  500000, 0},
    {47, clarke1866, 10, 18,       0, 0}, {50, clarke1866, 10, 18, 1500000, 0},
    {55, clarke1866,  1,  8,       0, 0}, {56, clarke1866, 10, 18,  500000, 0},
    {50, bessel,     10, 18,  500000, 0},
    // Ellipsoids without MGRS are set as the first group.
    {31, 24,          1,  8,       0, 1}, {32, 0,          10, 18, 1500000, 1},
    {31, -1,          1,  8,       0, 1}, {31, 32767,       1,  8,       0, 1},
    // Zones that do not exist have a set all the same.
    { 0, wgs84,      19, 26, 1500000, 0}, {-1, wgs84,      10, 18,       0, 0}};
// clang-format on

TEST(JeuLettres, GivesColumnsAndFalseNorthing) {
  for (const SetCase& s : sets) {
    int low = 0, high = 0, error = -1;
    double falseNorthing = -1;
    JeuLettres(s.zone, low, high, falseNorthing, s.ellipsoid, error);
    EXPECT_EQ(low, s.low) << s.zone << ' ' << s.ellipsoid;
    EXPECT_EQ(high, s.high) << s.zone << ' ' << s.ellipsoid;
    EXPECT_EQ(falseNorthing, s.falseNorthing) << s.zone << ' ' << s.ellipsoid;
    EXPECT_EQ(error, s.error) << s.zone << ' ' << s.ellipsoid;
  }
}

TEST(JeuLettres, KnowsTheGroupOfEveryEllipsoidOfTheCatalogue) {
  const std::string second = " 4 5 6 22 ", first = " 1 2 3 7 8 10 12 15 17 18 19 20 21 23 ";
  for (std::int16_t id = -2; id < 40; ++id) {
    int low = 0, high = 0, error = -1;
    double falseNorthing = -1;
    JeuLettres(31, low, high, falseNorthing, id, error);
    const std::string word = " " + std::to_string(id) + " ";
    const bool inSecond = second.find(word) != std::string::npos;
    EXPECT_EQ(falseNorthing, inSecond ? 1000000 : 0) << id;
    EXPECT_EQ(error, inSecond || first.find(word) != std::string::npos ? 0 : 1) << id;
  }
}

// Bands and fields.

struct BandCase {
  double latitude;  // degrees
  char letter;
};

constexpr BandCase bandCases[] = {
    {-80, 'C'},  {-79.9, 'C'}, {-72.1, 'C'}, {-71.99, 'D'}, {-40.1, 'G'}, {-40, 'H'}, {-32.1, 'H'},
    {-32, 'J'},  {-8, 'M'},    {-1e-9, 'M'}, {0, 'N'},      {7.9, 'N'},   {8, 'P'},   {56.01, 'V'},
    {63.9, 'V'}, {64, 'W'},    {72, 'X'},    {80, 'X'},     {84, 'X'},    {-81, 'C'}, {88, 'X'}};

TEST(LimitesBande, FindsTheLetterOfALatitude) {
  for (const BandCase& b : bandCases) {
    int letter = 0;
    double south = 0, north = 0, east = 0, west = 0;
    LimitesBande(letter, b.latitude * deg, 1, south, north, east, west);
    EXPECT_EQ(letter, b.letter - 'A' + 1) << b.latitude;
  }
}

TEST(LimitesBande, PutsWholeDegreesOnTheSideOfZero) {
  // Stored degrees come with a pi of ten digits; the equator itself is northern.
  for (std::size_t i = 0; i < bands.size(); ++i) {
    const int southDegrees = 8 * static_cast<int>(i) - 80;
    int letter = 0;
    double south = 0, north = 0, east = 0, west = 0;
    LimitesBande(letter, EnRadians(southDegrees), 1, south, north, east, west);
    const std::size_t expected = southDegrees > 0 ? i - 1 : i;
    EXPECT_EQ(letter, bands[expected] - 'A' + 1) << southDegrees;
  }
}

TEST(LimitesBande, GivesBandsOf8DegreesAndAtLast12) {
  for (std::size_t i = 0; i < bands.size(); ++i) {
    int letter = bands[i] - 'A' + 1;
    double south = 0, north = 0, east = 0, west = 0;
    LimitesBande(letter, 99, 10, south, north, east, west);
    EXPECT_EQ(letter, bands[i] - 'A' + 1);
    EXPECT_NEAR(south / deg, 8 * static_cast<int>(i) - 80, 1e-12);
    EXPECT_NEAR((north - south) / deg, bands[i] == 'X' ? 12 : 8, 1e-12);
    EXPECT_NEAR(west / deg, -126, 1e-12);
    EXPECT_NEAR(east / deg, -120, 1e-12);
  }
}

struct FieldCase {
  char letter;
  std::int16_t zone;
  double west, east;  // degrees
};

constexpr FieldCase fieldCases[] = {
    {'V', 30, -6, 0}, {'V', 31, 0, 3},  {'V', 32, 3, 12},  {'V', 33, 12, 18}, {'X', 30, -6, 0},
    {'X', 31, 0, 9},  {'X', 33, 9, 21}, {'X', 35, 21, 33}, {'X', 37, 33, 42}, {'X', 38, 42, 48},
    {'U', 31, 0, 6},  {'U', 32, 6, 12}, {'W', 31, 0, 6},   {'W', 32, 6, 12},  {'W', 33, 12, 18}};

TEST(LimitesBande, KnowsNorwayAndSvalbard) {
  for (const FieldCase& f : fieldCases) {
    int letter = f.letter - 'A' + 1;
    double south = 0, north = 0, east = 0, west = 0;
    LimitesBande(letter, 0, f.zone, south, north, east, west);
    EXPECT_NEAR(west / deg, f.west, 1e-12) << f.letter << f.zone;
    EXPECT_NEAR(east / deg, f.east, 1e-12) << f.letter << f.zone;
  }
}

struct ZoneCase {
  double latitude, longitude;  // degrees
  std::int16_t zone;
};

constexpr ZoneCase zoneCases[] = {
    // Norway: 3 degrees lies in zone 32, 2.9 stays in 31.
    {60, 3, 32},
    {60, 2.9, 31},
    {60, 5.9, 32},
    {60, 0, 31},
    {60, 11.9, 32},
    {60, 12, 33},
    {55.9, 5, 31},
    {56.1, 5, 32},
    {63.9, 5, 32},
    {64.1, 5, 31},
    {64, 5, 32},
    {60, -0.1, 30},
    // Svalbard, whose limits belong to the western field.
    {73, 0, 31},
    {73, 8.9, 31},
    {73, 9, 31},
    {73, 9.1, 33},
    {73, 21, 33},
    {73, 21.1, 35},
    {73, 33, 35},
    {73, 33.1, 37},
    {73, 41.9, 37},
    {73, 42, 38},
    {73, -0.1, 30},
    {84, 20, 33},
    {71.9, 20, 34},
    {71.9, 8, 32},
    {71.9, 32, 36},
    // The others.
    {-60, 5, 31},
    {0, 180, 60},
    {0, -180, 1},
    {73, 180, 60}};

TEST(ZoneMgrs, KnowsNorwayAndSvalbard) {
  for (const ZoneCase& z : zoneCases) {
    EXPECT_EQ(ZoneMgrs(z.latitude * deg, z.longitude * deg), z.zone)
        << z.latitude << ' ' << z.longitude;
    EXPECT_EQ(Ecrit(z.latitude * deg, z.longitude * deg).zone, z.zone)
        << z.latitude << ' ' << z.longitude;
  }
}

TEST(ZoneMgrs, KnowsNoEvenZoneOnTheEdgeOfBandX) {
  for (const double beyond : {-1e-9, -4e-10, -1e-12, 0.0, 1e-12, 4e-10, 1e-9}) {
    for (double longitude = 0.5; longitude < 42; ++longitude) {
      const std::string mgrs = Ecrit(72 * deg + beyond, longitude * deg).mgrs;
      if (mgrs[2] == 'X') {
        EXPECT_NE((mgrs[1] - '0') % 2, 0) << mgrs;
      }
      EXPECT_EQ(Lit(mgrs).error, 0) << mgrs;
    }
  }
}

TEST(ZoneMgrs, AllowsForThreeMillimetresAt56Degrees) {
  EXPECT_EQ(ZoneMgrs(56 * deg + 4.8e-10, 5 * deg), 31);
  EXPECT_EQ(ZoneMgrs(56 * deg + 4.9e-10, 5 * deg), 32);
}

// Writing.

struct ReferenceCase {
  const char* name;
  double latitude, longitude;  // degrees
  const char* mgrs;
};

// Baghdad: the manual page of GeographicLib's GeoConvert has 38SMB4414084706 for 444140.54 and
// 3684706.36; here the easting is rounded. The others follow from the definition of the grid.
constexpr ReferenceCase references[] = {
    {"Baghdad", 33.3, 44.4, "38SMB4414184706"},
    {"equator on a meridian", 0, 3, "31NEA0000000000"},
    {"equator, even zone", 0, 9, "32NNF0000000000"},
    {"one digit", 0, -177, " 1NEA0000000000"},
    {"a millimetre south", -1e-8, 3, "31MEA0000000000"},
    {"a metre south", -1e-5, 3, "31MEV0000099999"},
};

TEST(LatLonVersMgrs, WritesKnownReferences) {
  for (const ReferenceCase& r : references) {
    SCOPED_TRACE(r.name);
    EXPECT_EQ(Ecrit(r.latitude * deg, r.longitude * deg).mgrs, r.mgrs);
  }
}

TEST(LatLonVersMgrs, KeepsFullMetresBesideTheRoundedText) {
  const Written w = Ecrit(33.3 * deg, 44.4 * deg);
  EXPECT_NEAR(w.easting, 444140.54, 0.006);
  EXPECT_NEAR(w.northing, 3684706.36, 0.006);
}

TEST(LatLonVersMgrs, WritesALeadingBlankBelowZone10) {
  for (int zone = 1; zone <= 12; ++zone) {
    const std::string mgrs = Ecrit(0.1, MeridienCentral(zone)).mgrs;
    const std::string expected = (zone < 10 ? " " : "") + std::to_string(zone);
    EXPECT_EQ(mgrs.substr(0, 2), expected);
    EXPECT_EQ(mgrs.size(), 15U);
  }
}

TEST(LatLonVersMgrs, RefusesThePolarRegions) {
  // 84 degrees themselves and 3 mm beyond are admitted.
  EXPECT_EQ(Ecrit(84 * deg, 0.1).mgrs[2], 'X');
  EXPECT_EQ(Ecrit(84 * deg + 4.8e-10, 0.1).mgrs[2], 'X');
  EXPECT_EQ(Ecrit(-80 * deg, 0.1).mgrs[2], 'C');
  EXPECT_EQ(Ecrit(-80 * deg - 4.8e-10, 0.1).mgrs[2], 'C');
  EXPECT_EQ(Ecrit(EnRadians(84), 0.1).mgrs[2], 'X');
  EXPECT_EQ(Ecrit(EnRadians(-80), 0.1).mgrs[2], 'C');
  for (const double latitude : {84 * deg + 4.9e-10, 89 * deg, 1e300}) {
    const Written w = Ecrit(latitude, 0.1);
    EXPECT_EQ(w.mgrs, "N  POLAR REGION");
    EXPECT_EQ(w.zone, 0);
    EXPECT_EQ(w.northing, 0);
    EXPECT_EQ(w.easting, 0);
  }
  for (const double latitude : {-80 * deg - 4.9e-10, -89 * deg, -1e300}) {
    const Written w = Ecrit(latitude, 0.1);
    EXPECT_EQ(w.mgrs, "S  POLAR REGION");
    EXPECT_EQ(w.zone, 0);
    EXPECT_EQ(w.northing, 0);
    EXPECT_EQ(w.easting, 0);
  }
}

TEST(LatLonVersMgrs, RefusesEllipsoidsWithoutMgrsButGivesUtm) {
  for (const std::int16_t id : withoutMgrs) {
    const Written w = Ecrit(33.3 * deg, 44.4 * deg, id);
    EXPECT_EQ(w.mgrs, "MGRS  NOT VALID") << id;
    EXPECT_NEAR(w.easting, 444140.54, 0.006);
  }
}

TEST(LatLonVersMgrs, RaisesWhatHasNoNumbers) {
  EXPECT_THROW(Ecrit(std::nan(""), 0), TalpenaError);
  EXPECT_THROW(Ecrit(0, std::nan("")), TalpenaError);
  EXPECT_THROW(Ecrit(0.5, 1e300), TalpenaError);
}

std::string DeUtm(double latitude, std::int16_t zone, double northing, double easting,
                  double f = wgsF, std::int16_t ellipsoid = wgs84) {
  std::string mgrs = "before";
  UtmVersMgrs(wgsA, f, latitude * deg, 0, zone, northing, easting, mgrs, ellipsoid);
  return mgrs;
}

TEST(UtmVersMgrs, RoundsHalvesAwayFromZero) {
  EXPECT_EQ(DeUtm(45, 31, 4983000.4999, 412345.4999), "31TDK1234583000");
  EXPECT_EQ(DeUtm(45, 31, 4983000.5, 412345.5), "31TDK1234683001");
  EXPECT_EQ(DeUtm(45, 31, 4999999.5, 499999.5), "31TEL0000000000");
}

TEST(UtmVersMgrs, LeavesTenMillionAsItIs) {
  // Just south of the equator: the rounded northing is that of the equator, and its row is too.
  EXPECT_EQ(DeUtm(-1e-9, 31, 9999999.9, 500000), "31MEA0000000000");
  EXPECT_EQ(DeUtm(-1e-9, 31, 10000000, 500000), "31MEA0000000000");
  const Read r = Lit("31MEA0000000000");
  EXPECT_EQ(r.error, 0);
  EXPECT_NEAR(r.latitude, 0, 1e-15);
  EXPECT_EQ(r.northing, 10000000);
}

TEST(UtmVersMgrs, KeepsTheEastLimitOf31VInItsSquare) {
  EXPECT_EQ(DeUtm(60, 31, 6651411, 500000), "31VDG9999951411");
  EXPECT_EQ(DeUtm(60, 31, 6651411, 500001), "31VEG0000151411");
  EXPECT_EQ(DeUtm(50, 31, 5538630, 500000), "31UER0000038630");
  EXPECT_EQ(DeUtm(60, 33, 6651411, 500000), "33VWG0000051411");
}

TEST(UtmVersMgrs, AnswersEveryFaultWithOneText) {
  constexpr double endless = std::numeric_limits<double>::infinity();
  for (const double odd : {std::nan(""), endless, -endless, 1e300, -1e300, 1e12, -1e9}) {
    EXPECT_EQ(DeUtm(45, 31, odd, 412345), "   UTM ERROR") << odd;
    EXPECT_EQ(DeUtm(45, 31, 4983000, odd), "   UTM ERROR") << odd;
  }
  for (const double latitude : {std::nan(""), endless, -1e9}) {
    EXPECT_EQ(DeUtm(latitude, 31, 4983000, 412345), "   UTM ERROR") << latitude;
  }
  EXPECT_EQ(DeUtm(45, 31, 4983000, 3000000), "   UTM ERROR");  // no letter so far east
  EXPECT_EQ(DeUtm(45, 31, 4983000, 412345, 0), "   UTM ERROR");
  EXPECT_EQ(DeUtm(45, 31, 4983000, 412345, wgsF, 24), "MGRS  NOT VALID");
}

TEST(UtmVersMgrs, WritesTheEndOfAnyZoneNumber) {
  EXPECT_EQ(DeUtm(45, 123, 4983000, 412345).substr(0, 2), "23");
  EXPECT_EQ(DeUtm(45, 0, 4983000, 412345).substr(0, 2), " 0");
  EXPECT_EQ(DeUtm(45, -5, 4983000, 412345).substr(0, 2), "-5");
  EXPECT_EQ(DeUtm(45, -32768, 4983000, 412345).substr(0, 2), "68");
}

// Reading.

TEST(MgrsVersLatLon, ReadsKnownReferences) {
  for (const ReferenceCase& r : references) {
    SCOPED_TRACE(r.name);
    const Read read = Lit(r.mgrs);
    EXPECT_EQ(read.error, 0);
    EXPECT_EQ(read.mgrs, r.mgrs);
    EXPECT_NEAR(read.latitude, r.latitude * deg, 1.2e-7);
    EXPECT_NEAR(read.longitude, r.longitude * deg, 1.2e-7);
  }
}

TEST(MgrsVersLatLon, TakesABlankOrANoughtBeforeOneDigit) {
  const Read blank = Lit(" 5QKB0000000000"), nought = Lit("05QKB0000000000");
  EXPECT_EQ(blank.zone, 5);
  EXPECT_EQ(nought.zone, 5);
  EXPECT_EQ(blank.latitude, nought.latitude);
  EXPECT_EQ(blank.longitude, nought.longitude);
  EXPECT_EQ(blank.error, nought.error);
}

TEST(MgrsVersLatLon, GivesPositiveNorthingsInTheSouth) {
  const std::string mgrs = Ecrit(-33.86 * deg, 151.21 * deg).mgrs;  // Sydney
  const Read r = Lit(mgrs);
  EXPECT_EQ(mgrs.substr(0, 3), "56H");
  EXPECT_EQ(r.error, 0);
  EXPECT_GT(r.northing, 6000000);
  EXPECT_NEAR(r.latitude, -33.86 * deg, 1.2e-7);
}

TEST(MgrsVersLatLon, ReadsTheFirstRowsNorthOfTheEquator) {
  // Rows F to V of even zones lie from 0 to 0.9 degrees north on.
  const Written kampala = Ecrit(0.3476 * deg, 32.5825 * deg);
  EXPECT_EQ(kampala.mgrs.substr(0, 5), "36NVF");
  for (const std::int16_t ellipsoid : {wgs84, clarke1866, bessel}) {
    for (int zone = 1; zone <= 60; ++zone) {
      for (double latitude = 0; latitude < 0.95; latitude += 0.05) {
        const double lambda = MeridienCentral(zone) + 0.01;
        const std::string mgrs = Ecrit(latitude * deg, lambda, ellipsoid).mgrs;
        const Read r = Lit(mgrs, ellipsoid);
        ASSERT_EQ(r.error, 0) << mgrs;
        ASSERT_NEAR(r.latitude, latitude * deg, 1.2e-7) << mgrs;
        ASSERT_NEAR(r.longitude, lambda, 1.2e-7) << mgrs;
      }
    }
  }
}

void AttendRefus(const Read& r, const std::string& text) {
  EXPECT_EQ(r.mgrs, text);
  EXPECT_EQ(r.error, 1);
  EXPECT_EQ(r.latitude, 0);
  EXPECT_EQ(r.longitude, 0);
  EXPECT_EQ(r.northing, 0);
  EXPECT_EQ(r.easting, 0);
}

TEST(MgrsVersLatLon, RefusesEvenZonesOfBandX) {
  for (const char* mgrs : {"32XMG1234512345", "34XDG1234512345", "36XVG1234512345"}) {
    AttendRefus(Lit(mgrs), " INVALID MGRS  ");
    AttendRefus(Lit(mgrs, 24), " INVALID MGRS  ");
    EXPECT_EQ(Lit(mgrs).zone, (mgrs[0] - '0') * 10 + mgrs[1] - '0');
  }
  EXPECT_NE(Lit("38XMG1234512345").mgrs, " INVALID MGRS  ");
}

TEST(MgrsVersLatLon, RefusesEllipsoidsWithoutMgrs) {
  for (const std::int16_t id : withoutMgrs) {
    AttendRefus(Lit("38SMB4414184706", id), " ELLIPSOID N/A  ");
  }
}

TEST(MgrsVersLatLon, KeepsWhatItComputedOutsideTheField) {
  // A column of zone 31 that lies east of it, and a row that its band does not reach.
  const Read east = Lit("31UHR9999938630");
  EXPECT_EQ(east.mgrs, " OUTSIDE RANGE ");
  EXPECT_EQ(east.error, 1);
  EXPECT_EQ(east.easting, 899999);
  EXPECT_NEAR(east.longitude / deg, 8.57, 0.01);
  EXPECT_NEAR(east.latitude / deg, 49.86, 0.01);
  const Read north = Lit("31UEE0000000000");
  EXPECT_EQ(north.mgrs, " OUTSIDE RANGE ");
  EXPECT_EQ(north.error, 1);
  EXPECT_EQ(north.northing, 6400000);
  EXPECT_NEAR(north.latitude / deg, 57.74, 0.01);
}

TEST(MgrsVersLatLon, AllowsForOneMetreBeyondTheField) {
  std::int16_t zone = 31;
  double northing = 0, easting = 0;
  LatLonVersUtm(wgsA, wgsF, 50 * deg, 6 * deg, zone, northing, easting, 1);
  const auto at = [&](double beyond) {
    std::string mgrs;
    UtmVersMgrs(wgsA, wgsF, 50 * deg, 6 * deg, 31, northing, easting + beyond, mgrs, wgs84);
    return Lit(mgrs).error;
  };
  EXPECT_EQ(at(0), 0);
  EXPECT_EQ(at(0.49), 0);
  EXPECT_EQ(at(2), 1);
}

TEST(MgrsVersLatLon, ReadsTheRowBelowTheLimitOnTheMeridian) {
  // 64 south is at 2900.6 km on the meridian of a zone, and at 2899.5 km on its limits.
  const Written w = Ecrit(-63.9999 * deg, -179.9 * deg);
  EXPECT_EQ(w.mgrs.substr(0, 5), " 1ECJ");
  EXPECT_LT(w.northing, 2900000);
  const Read r = Lit(w.mgrs);
  EXPECT_EQ(r.error, 0);
  EXPECT_NEAR(r.latitude, -63.9999 * deg, 1.2e-7);
  EXPECT_EQ(Lit(" 1EEJ0000000000").mgrs, " OUTSIDE RANGE ");  // all south of the band
}

TEST(MgrsVersLatLon, NeverAcceptsLettersThatTheZoneDoesNotUse) {
  // The arithmetic takes I for J, O for P, and W to Z for A to D, and its numbers stand.
  for (const char* mgrs : {"32UOA1234512345", "31UEI1234512345", "31UEO1234512345",
                           "31UEW1234512345", "31UEX1234512345", "31UIS1234512345",
                           "31UJS1234512345", "31UZS1234512345", "33UAS1234512345"}) {
    const Read r = Lit(mgrs);
    EXPECT_EQ(r.mgrs, " OUTSIDE RANGE ") << mgrs;
    EXPECT_EQ(r.error, 1) << mgrs;
  }
  EXPECT_EQ(Lit("31UEO1234512345").latitude, Lit("31UEP1234512345").latitude);
  EXPECT_EQ(Lit("31UEI1234512345").latitude, Lit("31UEJ1234512345").latitude);
}

TEST(MgrsVersLatLon, RefusesWhatIsNoReference) {
  for (const char* text : {"",
                           " ",
                           "31",
                           "31U",
                           "31UES",
                           "31UES12",
                           "31UES123412345",
                           "31UES1234512345 ",
                           "31UES123451234567890",
                           "00UES1234512345",
                           "61UES1234512345",
                           "99UES1234512345",
                           "  UES1234512345",
                           "-1UES1234512345",
                           "3.UES1234512345",
                           "ABUES1234512345",
                           "31IES1234512345",
                           "31OES1234512345",
                           "31AES1234512345",
                           "31BES1234512345",
                           "31YES1234512345",
                           "31ZES1234512345",
                           "31?ES1234512345",
                           "31uES1234512345",
                           "31Ues1234512345",
                           "31U1S1234512345",
                           "31UES12345 2345",
                           "31UES1E3451E345",
                           "31UES-2345-2345",
                           "31UES1234.12345",
                           "31UES12,4512345",
                           "31\xC3\x9C"
                           "ES123451234",
                           "\xFF\xFE\xFF\xFE\xFF\xFE\xFF\xFE\xFF\xFE\xFF\xFE\xFF\xFE\xFF",
                           "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3",
                           " INVALID MGRS  ",
                           " OUTSIDE RANGE ",
                           "N  POLAR REGION"}) {
    SCOPED_TRACE(text);
    AttendRefus(Lit(text), " INVALID MGRS  ");
  }
  AttendRefus(Lit(std::string(15, '\0')), " INVALID MGRS  ");
  AttendRefus(Lit(std::string(100000, '3')), " INVALID MGRS  ");
}

TEST(MgrsVersLatLon, EndsWithNumbersForAnyText) {
  std::mt19937 random(20260131);
  const std::string alphabet = "0123456789 0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabz?*.,+-E\xC3\xA9";
  std::uniform_int_distribution<std::size_t> letter(0, alphabet.size() - 1), length(0, 24);
  std::uniform_int_distribution<int> digit(0, 9), capital('A', 'Z'), id(-1, 26);
  for (int i = 0; i < 200000; ++i) {
    std::string text;
    if (i % 2 == 0) {  // in the form of a reference
      for (int j = 0; j < 15; ++j) {
        const bool capitals = j >= 2 && j <= 4;
        text += static_cast<char>(capitals ? capital(random) : '0' + digit(random));
      }
    } else {
      for (std::size_t j = length(random); j > 0; --j) text += alphabet[letter(random)];
    }
    const Read r = Lit(text, static_cast<std::int16_t>(id(random)));
    ASSERT_TRUE(std::isfinite(r.latitude) && std::isfinite(r.longitude)) << text;
    ASSERT_TRUE(std::isfinite(r.northing) && std::isfinite(r.easting)) << text;
    ASSERT_EQ(r.error, EstEchecMgrs(r.mgrs) ? 1 : 0) << text;
    if (r.error == 0) {
      ASSERT_EQ(r.mgrs, text);
      ASSERT_LE(std::abs(r.latitude), 84.001 * deg) << text;
      ASSERT_LE(std::abs(r.longitude), 180.001 * deg) << text;
    }
  }
}

TEST(EstEchecMgrs, KnowsTheTextsOfFailure) {
  for (const char* text :
       {"S  POLAR REGION", "N  POLAR REGION", " INVALID MGRS  ", " ELLIPSOID N/A  ",
        "MGRS  NOT VALID", " OUTSIDE RANGE ", "   UTM ERROR"}) {
    EXPECT_TRUE(EstEchecMgrs(text)) << text;
  }
  EXPECT_FALSE(EstEchecMgrs("38SMB4414184706"));
  EXPECT_FALSE(EstEchecMgrs(""));
}

}  // namespace
}  // namespace talpena
