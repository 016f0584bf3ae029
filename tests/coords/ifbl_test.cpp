#include "coords/ifbl.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <set>
#include <string>

namespace talpena {
namespace {

constexpr double Untouched = -77;

struct Decoded {
  double x = Untouched, y = Untouched;
  std::int16_t error = 55;
};
Decoded Decode(std::string_view code) {
  Decoded d;
  IfblVersLambert(code, d.x, d.y, d.error);
  return d;
}

struct Encoded {
  std::string code = "as it was";
  std::int16_t error = 55;
};
Encoded Encode(double x, double y, int level) {
  Encoded e;
  LambertVersIfbl(x, y, e.code, e.error, level);
  return e;
}

struct CodeCase {
  const char* name;
  const char* code;
  double x, y;
};

// Computed by hand from the corner 2012, 18180 and the offsets of each character.
constexpr CodeCase CodeCases[] = {
    {"south-west rectangle", "M0", 18012, 28180},
    {"north-east rectangle", "A9", 306012, 248180},
    {"two characters", "G3", 2012 + 96000 + 16000, 18180 + 100000 + 10000},
    {"four characters", "G336", 2012 + 96000 + 20000 + 2000, 18180 + 100000 + 8000 + 2000},
    {"six characters", "G33643", 2012 + 96000 + 20000 + 2500, 18180 + 100000 + 8000 + 500},
    {"row behind the missing I", "J0", 18012, 18180 + 60000 + 10000},
    {"row before it", "H0", 18012, 18180 + 80000 + 10000},
    {"lower case", "g336", 120012, 128180},
    {"blanks around and inside", "  G 33 6 ", 120012, 128180},
    {"north-west square of 4 km", "M011", 2012 + 2000, 18180 + 16000 + 2000},
    {"south-east square of 4 km", "M058", 2012 + 28000 + 2000, 18180 + 2000},
    {"pair that is not in the table", "G33615", 2012 + 116000, 18180 + 108000},
    {"pair of letters", "G336XY", 2012 + 116000, 18180 + 108000},
    {"column that is no digit", "GX", 2012 + 16000, 128180},
    {"rows and columns that are no digits", "M0??", 2012 - 4000 + 2000, 18180 + 20000 + 2000},
    {"sign before the letters", "53", 2012 + 96000 + 16000, 18180 - 20000 + 10000},
};

TEST(IfblVersLambert, GivesTheCentreOfTheSquare) {
  for (const CodeCase& c : CodeCases) {
    SCOPED_TRACE(c.name);
    const Decoded d = Decode(c.code);
    EXPECT_EQ(d.error, 0);
    EXPECT_EQ(d.x, c.x);
    EXPECT_EQ(d.y, c.y);
  }
}

// All sixteen pairs, from the picture of quadrants inside quadrants: 1 north-west, 2 north-east,
// 3 south-west, 4 south-east, first of 2 km, then of 1 km.
TEST(IfblVersLambert, ReadsThePairAsQuadrants) {
  const auto east = [](int quadrant) { return quadrant % 2 == 0 ? 1 : 0; };
  const auto north = [](int quadrant) { return quadrant <= 2 ? 1 : 0; };
  for (int first = 1; first <= 4; ++first) {
    for (int second = 1; second <= 4; ++second) {
      const std::string code = "G336" + std::to_string(first) + std::to_string(second);
      SCOPED_TRACE(code);
      const Decoded d = Decode(code);
      EXPECT_EQ(d.x, 118012 + 2000 * east(first) + 1000 * east(second) + 500);
      EXPECT_EQ(d.y, 126180 + 2000 * north(first) + 1000 * north(second) + 500);
    }
  }
}

TEST(IfblVersLambert, RefusesAndLeavesThePointAlone) {
  for (const char* code :
       {"", " ", "G", "G33", "G3364", "G336433", "I3", "i3", "N3", "Z336", "I33643",
        "\xC3\x89"
        "3",
        "G3\xC3\xA9", "[3", "G3G3G3G3G3G3G3"}) {
    SCOPED_TRACE(code);
    const Decoded d = Decode(code);
    EXPECT_EQ(d.error, -1);
    EXPECT_EQ(d.x, Untouched);
    EXPECT_EQ(d.y, Untouched);
  }
}

TEST(IfblVersLambert, CountsCharactersAndNotBytes) {
  const Decoded d = Decode(
      "M0\xC3\xA9"
      "1");  // "é" is one character and no digit
  EXPECT_EQ(d.error, 0);
  EXPECT_EQ(d.x, 2012 + 2000);
  EXPECT_EQ(d.y, 18180 + 20000 + 2000);
}

TEST(IfblVersLambert, PassesOverNoBreakBlanks) {
  const Decoded plain = Decode("G33643"), broken = Decode("G3\u00A036\u202F43\u2007");
  EXPECT_EQ(broken.error, 0);
  EXPECT_EQ(broken.x, plain.x);
  EXPECT_EQ(broken.y, plain.y);
  EXPECT_TRUE(NommeCarreIfbl("G3\u00A036"));
}

/// Encodes and decodes the centre of every square of a size; the codes are all different.
void TournePartout(int widthM, int heightM, int level, std::size_t count) {
  std::set<std::string> codes;
  for (int y = IfblSud; y < IfblNord; y += heightM) {
    for (int x = IfblOuest; x < IfblEst; x += widthM) {
      const double centreX = x + widthM / 2.0, centreY = y + heightM / 2.0;
      const Encoded e = Encode(centreX, centreY, level);
      ASSERT_EQ(e.error, 0);
      ASSERT_EQ(e.code.size(), static_cast<std::size_t>(level));
      const Decoded d = Decode(e.code);
      ASSERT_EQ(d.error, 0) << e.code;
      ASSERT_EQ(d.x, centreX) << e.code;
      ASSERT_EQ(d.y, centreY) << e.code;
      codes.insert(e.code);
    }
  }
  EXPECT_EQ(codes.size(), count);
}

TEST(Ifbl, All76800CodesOf1KmComeBack) { TournePartout(1000, 1000, 6, 76800); }
TEST(Ifbl, All4800CodesOf4KmComeBack) { TournePartout(4000, 4000, 4, 4800); }
TEST(Ifbl, All120CodesOf32By20KmComeBack) { TournePartout(32000, 20000, 2, 120); }

TEST(LambertVersIfbl, GivesASquareItsSouthAndWestSides) {
  EXPECT_EQ(Encode(2012, 18180, 6).code, "M05133");
  EXPECT_EQ(Encode(3011.999, 19179.999, 6).code, "M05133");
  EXPECT_EQ(Encode(3012, 19180, 6).code, "M05132");
  EXPECT_EQ(Encode(322011.999, 258179.999, 6).code, "A91822");
  EXPECT_EQ(Encode(34012, 38180, 2).code, "L1");
}

TEST(LambertVersIfbl, RefusesBeyondTheBounds) {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  constexpr double infinite = std::numeric_limits<double>::infinity();
  constexpr struct {
    double x, y;
  } outside[] = {{350000, 100000}, {-0.001, 100000}, {100000, 270000}, {100000, -0.001},
                 {nan, 100000},    {100000, nan},    {infinite, 0},    {1e300, -1e300}};
  for (const auto& p : outside) {
    SCOPED_TRACE(std::to_string(p.x) + " " + std::to_string(p.y));
    const Encoded e = Encode(p.x, p.y, 6);
    EXPECT_EQ(e.error, 1);
    EXPECT_EQ(e.code, "as it was");
  }
}

struct BeyondCase {
  const char* name;
  double x, y;
  const char* code;
};

// Around the grid and inside the bounds the steps run on: whole parts, not next lower integers.
constexpr BeyondCase BeyondCases[] = {
    {"eleventh column", 349999, 100000, "H105742"},
    {"thirteenth row", 100000, 269999, "@33112"},
    {"half a kilometre south is row M", 2500, 17700, "M05133"},
    {"half a kilometre west is column 0", 1500, 18500, "M05133"},
    {"further south has no pair", 2500, 17000, "M0510"},
    {"further west has no pair", 0, 18500, "M0510"},
    {"four kilometres south", 2500, 14000, "M06133"},
    {"the origin of Lambert", 0, 0, "M0910"},
};

TEST(LambertVersIfbl, RunsOnAroundTheGrid) {
  for (const BeyondCase& c : BeyondCases) {
    SCOPED_TRACE(c.name);
    const Encoded e = Encode(c.x, c.y, 6);
    EXPECT_EQ(e.error, 0);
    EXPECT_EQ(e.code, c.code);
  }
}

TEST(LambertVersIfbl, CutsTheCodeAtItsLevel) {
  EXPECT_EQ(Encode(120512, 126680, 2).code, "G3");
  EXPECT_EQ(Encode(120512, 126680, 4).code, "G336");
  EXPECT_EQ(Encode(120512, 126680, 6).code, "G33643");
}

}  // namespace
}  // namespace talpena
