#include "coords/national_grids.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "common/numbers.h"
#include "common/talpena_error.h"
#include "test_catalogue.h"

namespace talpena {
namespace {

using test::Metres;

struct MetresOut {
  double easting = -1, northing = -1;
};
MetresOut British(std::string_view letters, double eastKm, double northKm) {
  MetresOut m;
  LettresVersBritish(letters, eastKm, northKm, m.easting, m.northing);
  return m;
}
MetresOut Irish(std::string_view letters, double eastKm, double northKm) {
  MetresOut m;
  LettresVersIrish(letters, northKm, eastKm, m.northing, m.easting);
  return m;
}

struct Reference {
  std::string letters = "before", east = "before", north = "before";
};
Reference Forward(Grille grid, double latitude, double longitude) {
  Reference r;
  LatLonVersGrille(grid, latitude, longitude, r.letters, r.east, r.north);
  return r;
}

MetresOut Relit(Grille grid, const Reference& r) {
  const double eastKm = Val(r.east) / 1000, northKm = Val(r.north) / 1000;
  return grid == Grille::British ? British(r.letters, eastKm, northKm)
                                 : Irish(r.letters, eastKm, northKm);
}

struct LatLon {
  double latitude = 0, longitude = 0;
};
LatLon Inverse(Grille grid, const MetresOut& m) {
  LatLon p;
  GrilleVersLatLon(grid, m.northing, m.easting, p.latitude, p.longitude);
  return p;
}

struct SquareCase {
  const char* letters;
  int eastKm, northKm;  ///< south-west corner, as printed on the grids' own maps
};

constexpr SquareCase BritishSquares[] = {
    {"SV", 0, 0},     {"SW", 100, 0},   {"TV", 500, 0},    {"TQ", 500, 100},  {"SU", 400, 100},
    {"TG", 600, 300}, {"SJ", 300, 300}, {"NY", 300, 500},  {"NT", 300, 600},  {"NN", 200, 700},
    {"NA", 0, 900},   {"OV", 500, 500}, {"HP", 400, 1200}, {"HU", 400, 1100}, {"JM", 600, 1200},
};

TEST(BritishLetters, NameTheSquaresOfTheMaps) {
  for (const SquareCase& c : BritishSquares) {
    SCOPED_TRACE(c.letters);
    const MetresOut m = British(c.letters, 34.567, 0.012);
    EXPECT_DOUBLE_EQ(m.easting, c.eastKm * 1000 + 34567 + 100000);
    EXPECT_DOUBLE_EQ(m.northing, c.northKm * 1000 + 12 + 5527063.816);
  }
}

TEST(BritishLetters, OutsideTheTablesGiveZeroAndZero) {
  for (const char* letters :
       {"", "S", "SI", "AA", "IL", "su", "S1", "1S", "ZZ", "??", "Q\xC3\x89"}) {
    SCOPED_TRACE(letters);
    const MetresOut m = British(letters, 12, 34);
    EXPECT_EQ(m.easting, 0);
    EXPECT_EQ(m.northing, 0);
  }
}

// What the lookup of a wrong letter leads to: the point that the inverse gives for 0, 0.
TEST(BritishLetters, OutsideTheTablesLeadToTheEquator) {
  const LatLon p = Inverse(Grille::British, British("??", 12, 34));
  EXPECT_NEAR(p.latitude, 0, 1e-9);
  EXPECT_NEAR(p.longitude, 358 - 4.49, 0.01);  // 500 km
}

constexpr SquareCase IrishSquares[] = {
    {"IV", 0, 0},     {"IZ", 400, 0},   {"IS", 200, 100}, {"IL", 0, 200},
    {"IO", 300, 200}, {"IJ", 300, 300}, {"IC", 200, 400}, {"IA", 0, 400},
};

TEST(IrishLetters, NameTheSquaresOfTheMaps) {
  for (const SquareCase& c : IrishSquares) {
    SCOPED_TRACE(c.letters);
    const MetresOut m = Irish(c.letters, 34.567, 0.012);
    EXPECT_DOUBLE_EQ(m.easting, c.eastKm * 1000 + 34567 + 300000);
    EXPECT_DOUBLE_EQ(m.northing, c.northKm * 1000 + 12 + 5680030.0);
  }
}

TEST(IrishLetters, OnlyTheSecondCounts) {
  const MetresOut marked = Irish("IL", 23.5, 54.5);
  for (const char* letters : {"XL", "?L", " L", "LL"}) {
    SCOPED_TRACE(letters);
    EXPECT_EQ(Irish(letters, 23.5, 54.5).easting, marked.easting);
    EXPECT_EQ(Irish(letters, 23.5, 54.5).northing, marked.northing);
  }
}

TEST(IrishLetters, UnknownOnesLeaveTheIndicesAtZero) {
  for (const char* letters : {"", "I", "II", "Il", "I?"}) {
    SCOPED_TRACE(letters);
    EXPECT_EQ(Irish(letters, 1, 2).easting, 301000);
    EXPECT_EQ(Irish(letters, 1, 2).northing, 5682030);
  }
}

TEST(IrishLetters, CountFromTheOffsetWithoutItsDecimals) {
  EXPECT_EQ(Irish("IV", 0, 0).northing, 5680030.0);
}

TEST(NationalInverse, GivesTheCentralMeridianAtEasting500000) {
  LatLon p;
  GrilleVersLatLon(Grille::British, 5800000, 500000, p.latitude, p.longitude);
  EXPECT_EQ(p.longitude, 358);
  GrilleVersLatLon(Grille::Irish, 5800000, 500000, p.latitude, p.longitude);
  EXPECT_EQ(p.longitude, 352);
}

TEST(NationalInverse, CountsLongitudesFrom352AndPast360) {
  EXPECT_NEAR(Inverse(Grille::British, British("TG", 51.409, 13.177)).longitude, 361.718, 0.001);
  EXPECT_NEAR(Inverse(Grille::Irish, Irish("IL", 50, 50)).longitude, 349.74, 0.01);
}

TEST(NationalInverse, TakesOff360Above180) {
  EXPECT_EQ(LongitudeSignee(358.5), -1.5);
  EXPECT_EQ(LongitudeSignee(361.5), 1.5);
  EXPECT_EQ(LongitudeSignee(180), 180);
  EXPECT_EQ(LongitudeSignee(-1.5), -1.5);
  EXPECT_EQ(LongitudeSignee(1.5), 1.5);
}

// The worked example of the Ordnance Survey's guide to coordinate systems in Great Britain, annex
// C: 651409.903 E 313177.270 N is 52 39 27.2531 N, 1 43 4.5177 E.
constexpr double GuideLatitude = 52 + 39 / 60.0 + 27.2531 / 3600;
constexpr double GuideLongitude = 1 + 43 / 60.0 + 4.5177 / 3600;

TEST(NationalInverse, MeetsTheGuidesExampleWithin11Cm) {
  const LatLon p = Inverse(Grille::British, British("TG", 51.409903, 13.177270));
  EXPECT_NEAR(p.latitude, 52.65757, 0.000002);
  EXPECT_NEAR(LongitudeSignee(p.longitude), 1.71792, 0.000002);
  // 252 km from the central meridian the second eccentricity costs 11 cm of latitude.
  EXPECT_NEAR(Metres(p.latitude, p.longitude, GuideLatitude, GuideLongitude), 0.106, 0.005);
}

TEST(NationalForward, MeetsTheGuidesExampleWithin2Metres) {
  const Reference r = Forward(Grille::British, GuideLatitude, GuideLongitude);
  EXPECT_EQ(r.letters, "TG");
  EXPECT_NEAR(Val(r.east), 51409.903, 2);
  EXPECT_NEAR(Val(r.north), 13177.270, 2);
  EXPECT_EQ(r.east.size(), 5U);
  EXPECT_EQ(r.north.size(), 5U);
}

// The true origin of the Irish grid, 53 30 N 8 W, is 200000 E 250000 N: in the column that "N"
// shares with "M".
TEST(NationalForward, PutsTheIrishOriginAt200000And250000) {
  const Reference r = Forward(Grille::Irish, 53.5, -8 + 1e-4);
  EXPECT_EQ(r.letters, "IN");
  EXPECT_NEAR(Val(r.east), 6.6, 1.5);
  EXPECT_NEAR(Val(r.north), 50000, 1.5);
}

TEST(NationalForward, TakesSignedAndUnsignedLongitudes) {
  for (const double longitude : {-1.5, -7.25, -0.001, -2.0}) {
    SCOPED_TRACE(longitude);
    const Reference signedOne = Forward(Grille::British, 51.25, longitude);
    const Reference unsignedOne = Forward(Grille::British, 51.25, longitude + 360);
    ASSERT_FALSE(signedOne.letters.empty());
    EXPECT_EQ(signedOne.letters, unsignedOne.letters);
    EXPECT_NEAR(Val(signedOne.east), Val(unsignedOne.east), 2);  // their 32 bits differ
    EXPECT_NEAR(Val(signedOne.north), Val(unsignedOne.north), 1);
  }
}

TEST(NationalForward, WritesFiveDigitsWithZerosInFront) {
  LatLon p = Inverse(Grille::British, British("SU", 34.5675, 0.0125));
  const Reference r = Forward(Grille::British, p.latitude, LongitudeSignee(p.longitude));
  EXPECT_EQ(r.letters, "SU");
  EXPECT_NEAR(Val(r.east), 34567, 1);
  EXPECT_NEAR(Val(r.north), 12, 1);
  EXPECT_EQ(r.north.substr(0, 3), "000");
  EXPECT_EQ(r.east.size() + r.north.size(), 10U);
}

struct OutsideCase {
  const char* name;
  Grille grid;
  double latitude, longitude;
};

constexpr double Nan = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinite = std::numeric_limits<double>::infinity();
constexpr OutsideCase OutsideCases[] = {
    {"south of SV", Grille::British, 49.5, -7.5},
    {"west of SV", Grille::British, 50, -8},
    {"north of the third row of blocks", Grille::British, 64, -2},
    {"east of the second column of blocks", Grille::British, 55, 12},
    {"west of A", Grille::Irish, 54, -11.5},
    {"east of Z", Grille::Irish, 52, -3},
    {"north of A", Grille::Irish, 56, -8},
    {"south of V", Grille::Irish, 51, -8},
    {"other side of the earth", Grille::British, 52, 178},
    {"north pole", Grille::British, 90, 0},
    {"south pole", Grille::Irish, -90, 0},
    {"degrees taken for radians twice", Grille::British, 0.91, -0.026},
    {"no number as latitude", Grille::British, Nan, -2},
    {"no number as longitude", Grille::Irish, 53, Nan},
    {"infinite", Grille::British, Infinite, -Infinite},
    {"the largest number", Grille::Irish, 1.7e308, 1.7e308},
    {"failure value", Grille::British, 999, 999},
};

TEST(NationalForward, LeavesAllTextsEmptyOutsideTheGrid) {
  for (const OutsideCase& c : OutsideCases) {
    SCOPED_TRACE(c.name);
    const Reference r = Forward(c.grid, c.latitude, c.longitude);
    EXPECT_EQ(r.letters, "");
    EXPECT_EQ(r.east, "");
    EXPECT_EQ(r.north, "");
  }
}

// Far from its meridian the series could lead anywhere; it leads nowhere into the grid.
TEST(NationalForward, FindsNoReferenceFarFromTheIslands) {
  for (const Grille grid : {Grille::British, Grille::Irish}) {
    const double meridian = grid == Grille::British ? -2 : -8;
    for (double latitude = -90; latitude <= 90; latitude += 0.25) {
      for (double away = 14; away <= 346; away += 0.5) {
        ASSERT_EQ(Forward(grid, latitude, meridian + away).letters, "") << latitude << ' ' << away;
      }
    }
  }
}

TEST(NationalInverse, RaisesOverflowForMetresOfNoPlace) {
  const struct {
    const char* name;
    double northing, easting;
  } cases[] = {
      {"so far north that no double tells metres", 1e12, 500000},
      {"as far south", -1e12, 500000},
      {"the largest northing", 1.7e308, 500000},
      {"infinite northing", Infinite, 500000},
      {"northing that is no number", Nan, 500000},
      {"easting whose powers overflow", 5800000, 1e100},
      {"infinite easting", 5800000, -Infinite},
      {"easting that is no number", 5800000, Nan},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    double latitude = -77, longitude = -77;
    int number = 0;
    try {
      GrilleVersLatLon(Grille::British, c.northing, c.easting, latitude, longitude);
    } catch (const TalpenaError& e) {
      number = e.number();
    }
    EXPECT_EQ(number, ErrorNumber::Overflow);
    EXPECT_EQ(latitude, -77);
    EXPECT_EQ(longitude, -77);
  }
}

/// Second letters of all 25 squares.
constexpr std::string_view Letters100 = "ABCDEFGHJKLMNOPQRSTUVWXYZ";

/// Leads the centre of a square through the inverse and the forward back to its reference.
void RevientAuCarre(Grille grid, const std::string& letters, double toleranceM) {
  SCOPED_TRACE(letters);
  const Reference centre{letters, "49999", "49999"};
  const MetresOut there = Relit(grid, centre);
  const LatLon p = Inverse(grid, there);
  const Reference back = Forward(grid, p.latitude, LongitudeSignee(p.longitude));
  ASSERT_EQ(back.letters, letters);
  const MetresOut again = Relit(grid, back);
  EXPECT_NEAR(again.easting, there.easting, toleranceM);
  EXPECT_NEAR(again.northing, there.northing, toleranceM);
}

// The letters reach 600 km from the central meridian, the islands only 400: beyond these the
// series of the inverse departs.
TEST(NationalRoundTrip, AllBritishLettersComeBack) {
  for (const char first : std::string_view("STNOHJ")) {
    for (const char second : Letters100) {
      const std::string letters{first, second};
      const bool farEast = British(letters, 50, 0).easting > 900000;
      RevientAuCarre(Grille::British, letters, farEast ? 4 : 2);
    }
  }
}

TEST(NationalRoundTrip, AllIrishLettersComeBack) {
  for (const char second : Letters100) RevientAuCarre(Grille::Irish, {'I', second}, 2);
}

}  // namespace
}  // namespace talpena
