#include "coords/original.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <map>
#include <random>

#include "common/numbers.h"
#include "common/talpena_error.h"
#include "coords/original_maker.h"
#include "coords/test_catalogue.h"

namespace talpena {
namespace {

class DecodeOriginalTest : public ::testing::Test {
 protected:
  DecodeOriginalTest() { state.Catalogue = test::CatalogueDesSources(); }

  /// Decodes on the datum of a code; latitude and longitude are kept.
  void Decode(std::string_view original, std::string_view datum = "WGS84") {
    latitude = longitude = -1;
    DecodeOriginal(state, original, ChercheDatum(state.Catalogue, datum), latitude, longitude,
                   code);
  }
  void AttendEchec(std::string_view original) {
    Decode(original);
    EXPECT_EQ(latitude, 999) << original;
    EXPECT_EQ(longitude, 999) << original;
  }
  void Attend(std::string_view original, double expectedLatitude, double expectedLongitude,
              double tolerance = 1e-12, std::string_view datum = "WGS84") {
    Decode(original, datum);
    EXPECT_NEAR(latitude, expectedLatitude, tolerance) << original;
    EXPECT_NEAR(longitude, expectedLongitude, tolerance) << original;
  }

  CoordState state;
  double latitude = -1, longitude = -1;
  std::string code;
};

using DecodeOriginalDeg = DecodeOriginalTest;

TEST_F(DecodeOriginalDeg, TakesDecimalCommas) { Attend("DEG 50,5 4,25", 50.5, 4.25); }

TEST_F(DecodeOriginalDeg, IsZeroWithOneToken) { Attend("DEG 50.5", 0, 0); }

TEST_F(DecodeOriginalDeg, IsZeroWithoutNumbers) {
  Attend("DEG north east", 0, 0);
  Attend("DEG 50.5 east", 50.5, 0);
  Attend("DEG", 0, 0);
}

TEST_F(DecodeOriginalDeg, TakesWhatImportWrites) {
  Attend("DEG +50.41234 -003.92120", 50.41234, -3.9212);
}

TEST_F(DecodeOriginalTest, TheLongitudeInheritsSeconds) {
  Decode("DMS 50.1230 4.15");
  EXPECT_NEAR(latitude, 50 + 12 / 60.0 + 30 / 3600.0, 1e-13);
  EXPECT_NEAR(longitude, 4 + 15 / 60.0 + 30 / 3600.0, 1e-13);
}

TEST_F(DecodeOriginalTest, DmsStartsAtZeroInEachCall) {
  Decode("DMS 50.1230 4.1545");
  Attend("DMS 50.12 4.15", 50.2, 4.25, 1e-13);
}

TEST_F(DecodeOriginalTest, DmsTakesSignsAndCommas) {
  Attend("DMS -50,1230 -4,1545", -(50 + 12 / 60.0 + 30 / 3600.0), -(4 + 15 / 60.0 + 45 / 3600.0),
         1e-12);
  Attend("DMS -12 -4", 12, 4);  // without a point the minus counts twice
  Attend("DMS 50.1230", 0, 0);
}

TEST_F(DecodeOriginalTest, UtmTestsZoneAndEastingOnly) {
  AttendEchec("UTM 31 0 5500000");
  AttendEchec("UTM 0 500000 5500000");
  AttendEchec("UTM 500000 5500000");
  AttendEchec("UTM 99999 500000 5500000");  // no 16-bit zone
  Attend("UTM 31 500000 0", 0, 3, 1e-8);
}

TEST_F(DecodeOriginalTest, UtmReadsBothHemispheres) {
  Decode("UTM 31 500000 5000000");
  const double north = latitude;
  EXPECT_NEAR(north, 45.153477, 1e-6);
  Attend("UTM 31 500000 -5000000", -north, 3, 0.4);  // 10,000,000 - 5,000,000 from the equator
  Decode("UTM 31 500000 -10000000");
  EXPECT_NEAR(latitude, 0, 1e-9);
}

TEST_F(DecodeOriginalTest, MgrReadsEveryLength) {
  const struct {
    const char* original;
    double halfCell;  ///< metres from the corner to the centre
  } rows[] = {{"MGR 31 U ES1234567890", 0},
              {"MGR 31 U ES12346789", 4},
              {"MGR 31 U ES123678", 49},
              {"MGR 31 U ES1267", 499},
              {"MGR 31 U ES16", 4999}};
  for (const auto& row : rows) {
    Decode(row.original);
    EXPECT_NEAR(latitude, 51.16, 0.03) << row.original;
    EXPECT_NEAR(longitude, 3.18, 0.05) << row.original;
  }
  Decode("MGR 31 U ES1267");
  const double shortLatitude = latitude, shortLongitude = longitude;
  Attend("MGR 31 U ES1249967499", shortLatitude, shortLongitude, 0);
}

TEST_F(DecodeOriginalTest, MgrPutsAZeroBeforeAShortZone) {
  Decode("MGR 5 Q KB1234");
  const double oneDigit = latitude;
  Decode("MGR 05 Q KB1234");
  EXPECT_EQ(latitude, oneDigit);
  EXPECT_NE(latitude, 0);
}

TEST_F(DecodeOriginalTest, MgrNeedsThreeTokensAndAllDigits) {
  AttendEchec("MGR 31 UES1234");
  AttendEchec("MGR 31 U");
  AttendEchec("MGR");
  AttendEchec("MGR 31 U ES123");           // an odd number of digits
  AttendEchec("MGR 31 U ES");              // none
  AttendEchec("MGR 31 U ES123456789012");  // more than ten
}

// A reference whose letters are refused is no failure of 999: it counts as the point 0, 0.
TEST_F(DecodeOriginalTest, MgrIsZeroWhenItsLettersAreRefused) {
  Attend("MGR 32 X ES1234", 0, 0);
  Attend("MGR 34 X ES1234", 0, 0);
}

TEST_F(DecodeOriginalTest, GrpCountsFromParis) {
  Attend("GRP 50 0", 45, 2.337222);
  Attend("GRP 50", 0, 2.337222);
  Attend("GRP 50,5 -1,25", 50.5 * 0.9, -1.25 * 0.9 + 2.337222);
}

TEST_F(DecodeOriginalTest, GrpHoldsGradesInSinglePrecision) {
  Decode("GRP 54.39451 1.32131");
  EXPECT_EQ(latitude, static_cast<double>(54.39451F) * 0.9);
  EXPECT_NE(latitude, 54.39451 * 0.9);
}

TEST_F(DecodeOriginalTest, BngReadsLettersInAnyCase) {
  // The Ordnance Survey's worked example, 651409.903 313177.270, cut to whole metres.
  Decode("BNG TG 5140913177", "OGB-M");
  EXPECT_NEAR(latitude, 52 + 39 / 60.0 + 27.2531 / 3600, 4e-6);
  EXPECT_NEAR(longitude, 1 + 43 / 60.0 + 4.5177 / 3600, 1.5e-5);
  const double expected = latitude;
  Decode("BNG tg 5140913177", "OGB-M");
  EXPECT_EQ(latitude, expected);
}

TEST_F(DecodeOriginalTest, BngNeedsBothTokens) {
  AttendEchec("BNG SU1234");
  AttendEchec("BNG");
  AttendEchec("ITM IL2354");
}

TEST_F(DecodeOriginalTest, BngWithForeignLettersLiesNearTheEquator) {
  Decode("BNG ZZ 1234", "OGB-M");
  EXPECT_LT(std::abs(latitude), 1);
  EXPECT_LT(std::abs(longitude), 10);
}

TEST_F(DecodeOriginalTest, NationalLongitudesAreSigned) {
  Decode("BNG SU 1234", "OGB-M");
  EXPECT_NEAR(longitude, -1.82, 0.1);
  Decode("ITM IN 2354", "IRL");
  EXPECT_LT(longitude, -7);
  EXPECT_GT(longitude, -9);
}

TEST_F(DecodeOriginalTest, ItmLooksAtTheSecondLetterOnly) {
  Decode("ITM IN 2354", "IRL");
  const double expectedLatitude = latitude, expectedLongitude = longitude;
  Attend("ITM XN 2354", expectedLatitude, expectedLongitude, 0, "IRL");
}

TEST_F(DecodeOriginalTest, MetresMustNotBeZero) {
  for (const char* system : {"LMB", "LF1", "LF2", "LF3", "LF4", "LFE", "NMA", "SMA"}) {
    AttendEchec(std::string(system) + " 0 128963");
    AttendEchec(std::string(system) + " 112568 0");
    AttendEchec(std::string(system) + " 112568");
    AttendEchec(system);
    Decode(std::string(system) + " 112568,5 128963");
    EXPECT_NE(latitude, 999) << system;
  }
}

TEST_F(DecodeOriginalTest, LambertHasItsOwnEllipsoid) {
  Decode("LMB 112568 128963", "BEL72");
  const double expected = latitude;
  EXPECT_NEAR(latitude, 50.47, 0.1);
  EXPECT_NEAR(longitude, 3.85, 0.1);
  Decode("LMB 112568 128963", "NTF");
  EXPECT_EQ(latitude, expected);
}

TEST_F(DecodeOriginalTest, LambertFranceChoosesTheZoneByTheCode) {
  // The origin of each zone.
  Attend("LF1 600000 200000", 49.5, 2.337222, 2e-8, "NTF");
  Attend("LF2 600000 200000", 46.8, 2.337222, 2e-8, "NTF");
  Attend("LF3 600000 200000", 44.1, 2.337222, 2e-8, "NTF");
  Attend("LF4 234.358 185861.369", 42.165, 2.337222, 2e-8, "NTF");
  Attend("LFE 600000 2200000", 46.8, 2.337222, 2e-8, "NTF");
  AttendEchec("LF5 600000 200000");
}

TEST_F(DecodeOriginalTest, MoroccoHasTwoZones) {
  Decode("NMA 500000 300000", "MER");
  EXPECT_NEAR(longitude, -5.4, 1e-9);
  EXPECT_NEAR(latitude, 33.3, 0.1);
  Decode("SMA 500000 300000", "MER");
  EXPECT_NEAR(latitude, 29.7, 0.1);
}

TEST_F(DecodeOriginalTest, IfblReadsBehindTheCode) {
  Decode("IFB G3", "BEL72");
  const double expectedLatitude = latitude, expectedLongitude = longitude;
  EXPECT_NEAR(latitude, 50.1, 1);
  Attend("IFB G 3", expectedLatitude, expectedLongitude, 0, "BEL72");
  AttendEchec("IFB I3");
  AttendEchec("IFB N3");
  AttendEchec("IFB G33");
  AttendEchec("IFB");
}

TEST_F(DecodeOriginalTest, FailsOnAnyOtherCode) {
  for (const char* text : {"XYZ 1 2", "deg 1 2", "", "D", "DE", "   ", "\xC3\x89TE 1 2"}) {
    AttendEchec(text);
  }
}

TEST_F(DecodeOriginalTest, GivesTheFirstThreeCharactersAsCode) {
  Decode("UTM 31 500000 5000000");
  EXPECT_EQ(code, "UTM");
  Decode("XY");
  EXPECT_EQ(code, "XY");
  Decode("\xC3\x89T\xC3\x89 1 2");
  EXPECT_EQ(code, "\xC3\x89T\xC3\x89");
}

TEST_F(DecodeOriginalTest, SetsTheCurrentEllipsoid) {
  Decode("XYZ", "OGB-M");
  EXPECT_EQ(state.Catalogue.DemiGrandAxe, 6377563.396);
}

TEST_F(DecodeOriginalTest, RefusesADatumThatTheCatalogueLacks) {
  double a = 0, b = 0;
  EXPECT_THROW(DecodeOriginal(state, "DEG 1 2", 0, a, b, code), TalpenaError);
}

// Arithmetic without a result is a failure like any other.
TEST_F(DecodeOriginalTest, FailsWithoutAnErrorWhereThereIsNoResult) {
  AttendEchec("LMB 150000 5400088.4378");
  AttendEchec("DEG 1E999 0");
  AttendEchec("LMB 1E300 1E300");
  AttendEchec("UTM 31 1E300 5");
  AttendEchec("LFE 1E300 1");
  AttendEchec("NMA 1E300 1");
  AttendEchec("GRP 1E300 1");
}

// Written again, the point that was read gives the same reference; metres were cut when they were
// written, so that a hair below them costs one.
TEST(DecodeOriginal, RoundTripsEveryNotation) {
  CoordState state;
  test::PoseCatalogue(state);
  test::OriginalMaker maker(state);
  for (int i = 0; i < CoordSystemCount; ++i) {
    const auto system = static_cast<CoordSystem>(i);
    int differing = 0;
    for (int k = 0; k < 10000; ++k) {
      const std::string original = maker.Original(system);
      double latitude = 0, longitude = 0;
      std::string code;
      DecodeOriginal(state, original, DatumDuSysteme(state, system), latitude, longitude, code);
      ASSERT_NE(latitude, EchecCoord) << original;
      if (system == CoordSystem::Dms) continue;  // what is written there are degrees, packed
      const std::string again = maker.Original(system, latitude, longitude);
      if (again == original) continue;
      ++differing;
      double otherLatitude = 0, otherLongitude = 0;
      DecodeOriginal(state, again, DatumDuSysteme(state, system), otherLatitude, otherLongitude,
                     code);
      ASSERT_LT(test::Metres(latitude, longitude, otherLatitude, otherLongitude), 2.3)
          << original << ' ' << again;
    }
    if (system == CoordSystem::Mgr || system == CoordSystem::Ifb || system == CoordSystem::Deg) {
      EXPECT_EQ(differing, 0) << InfoDe(system).code;
    }
  }
}

/// The points of texts that should be the same; not EXPECT_EQ alone, since 999 is one too.
void ComparePoints(CoordState& state, CoordSystem system, const std::string& plain,
                   const std::string& other) {
  double latitude = 0, longitude = 0, otherLatitude = 0, otherLongitude = 0;
  std::string code, otherCode;
  const std::int16_t datum = DatumDuSysteme(state, system);
  DecodeOriginal(state, plain, datum, latitude, longitude, code);
  DecodeOriginal(state, other, datum, otherLatitude, otherLongitude, otherCode);
  EXPECT_EQ(otherLatitude, latitude) << plain << " | " << other;
  EXPECT_EQ(otherLongitude, longitude) << plain << " | " << other;
  EXPECT_EQ(otherCode, code);
}

TEST(DecodeOriginal, TakesNoBreakBlanksForBlanksInEveryNotation) {
  CoordState state;
  test::PoseCatalogue(state);
  test::OriginalMaker maker(state);
  for (int i = 0; i < CoordSystemCount; ++i) {
    const auto system = static_cast<CoordSystem>(i);
    for (const char* blank : {"\u00A0", "\u202F", "\u2007"}) {
      const std::string plain = maker.Original(system);
      ComparePoints(state, system, plain, Remplace(plain, " ", blank));
      ComparePoints(state, system, plain, plain + blank);
      ComparePoints(state, system, plain, plain + " " + blank + blank);
      ComparePoints(state, system, plain, blank + plain);
    }
  }
}

TEST(DecodeOriginal, CountsACharacterBeyondAsciiAsOneWithoutMeaning) {
  CoordState state;
  test::PoseCatalogue(state);
  test::OriginalMaker maker(state);
  for (int i = 0; i < CoordSystemCount; ++i) {
    const auto system = static_cast<CoordSystem>(i);
    const std::string plain = maker.Original(system);
    for (std::size_t at = 4; at < plain.size(); ++at) {
      const auto with = [&](const char* character) {
        return plain.substr(0, at) + character + plain.substr(at + 1);
      };
      ComparePoints(state, system, with("~"), with("\u00C9"));
      ComparePoints(state, system, with("~"), with("\u2103"));
    }
  }
}

TEST_F(DecodeOriginalTest, ReadsAReferenceWithANoBreakBlankBehindIt) {
  Decode("BNG NN 7468", "OGB-M");
  Attend("BNG NN 7468\u00A0", latitude, longitude, 0, "OGB-M");
  Decode("ITM IO 1234", "IRL");
  Attend("ITM IO 1234\u00A0", latitude, longitude, 0, "IRL");
  Decode("MGR 31 U ES1234");
  Attend("MGR 31 U ES1234\u00A0", latitude, longitude, 0);
}

TEST_F(DecodeOriginalTest, SaysWhetherTheArithmeticFailed) {
  const auto read = [&](const char* text) {
    return DecodeOriginal(state, text, state.Catalogue.DatumWgs84, latitude, longitude, code);
  };
  EXPECT_EQ(read("DEG 5041.234 3.9"), Lecture::Point);
  EXPECT_EQ(read("UTM 31 0 5"), Lecture::Aucun);
  EXPECT_EQ(read("XYZ 1 2"), Lecture::Aucun);
  EXPECT_EQ(read("DEG 1E999 0"), Lecture::Faute);
  EXPECT_EQ(read("LMB 150000 5400088.4378"), Lecture::Faute);
}

TEST_F(DecodeOriginalTest, EndsWithNumbersOnAnyText) {
  std::mt19937 random(20260212);
  const std::string letters = "0123456789.,+-eEdD  ABCJMNSTUXZ*?\xC3\x89\t";
  for (int i = 0; i < 200000; ++i) {
    std::string text(InfoDe(static_cast<CoordSystem>(random() % CoordSystemCount)).code);
    const std::size_t length = random() % 22;
    for (std::size_t k = 0; k < length; ++k) text += letters[random() % letters.size()];
    Decode(text);
    ASSERT_TRUE(std::isfinite(latitude) && std::isfinite(longitude)) << text;
  }
}

}  // namespace
}  // namespace talpena
