#include "store/deg_line_writer.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include "common/numbers.h"

namespace talpena {
namespace {

std::string Ligne(const DegLine& line) {
  std::string bytes;
  std::vector<LackingCharacters> lacking;
  EcritLigne(bytes, line, lacking);
  EXPECT_TRUE(lacking.empty());
  return bytes;
}

std::string Cadre(std::string text) {
  CadreCoord(text);
  return text;
}

std::string Blanchit(std::string text, std::size_t position) {
  BlanchitZeros(text, position);
  return text;
}

TEST(CadreCoord, BlanksTheZerosBehindTheSign) {
  EXPECT_EQ(Cadre("+04.50000"), "+ 4.50000");
  EXPECT_EQ(Cadre("+00.00000"), "+ 0.00000");
  EXPECT_EQ(Cadre("-12.50000"), "-12.50000");
  EXPECT_EQ(Cadre(" 003.25000"), "   3.25000");
  EXPECT_EQ(Cadre("-000.00001"), "-  0.00001");
  EXPECT_EQ(Cadre(" 030.00000"), "  30.00000");
}

TEST(CadreCoord, TurnsTheFirstCommaIntoAPoint) {
  EXPECT_EQ(Cadre("+04,50000"), "+ 4.50000");
  EXPECT_EQ(Cadre("+00,00000"), "+ 0.00000");
}

TEST(CadreCoord, LeavesTextsWithoutAPlaceToStop) {
  EXPECT_EQ(Cadre("+000"), "+000");
  EXPECT_EQ(Cadre("+"), "+");
  EXPECT_EQ(Cadre(""), "");
}

TEST(BlanchitZeros, StopsAtTheFirstOtherCharacter) {
  EXPECT_EQ(Blanchit("00120", 1), "  120");
  EXPECT_EQ(Blanchit("00000", 1), "     ");
  EXPECT_EQ(Blanchit("-00012", 1), "-00012");
  EXPECT_EQ(Blanchit("00120", 2), "0 120");
}

TEST(DegLineWriter, NoBreakOfAValueComesIntoTheLine) {
  const std::string line = Ligne({.period = 1,
                                  .date = "19\r\n98",
                                  .sex = "\r",
                                  .datum = "EU\nR",
                                  .original = "deg\r50\n4",
                                  .comment = "one\rtwo\r\nthree\nfour"});
  EXPECT_EQ(line.substr(31), "19 98      EU R deg 50 4                one\ntwo\nthree\nfour\r\n");
}

TEST(BlanchitZeros, RunsOnlyBeforeTheLastCharacter) {
  EXPECT_EQ(Blanchit("00000", 5), "00000");
  EXPECT_EQ(Blanchit("0", 1), "0");
  EXPECT_EQ(Blanchit("", 1), "");
}

TEST(DegLineWriter, PutsEachValueInItsColumns) {
  EXPECT_EQ(Ligne({.period = 3,
                   .latitude = 50.5F,
                   .longitude = 4.25F,
                   .n1 = 12,
                   .n2 = 345,
                   .date = "1998/07/04",
                   .sex = "F",
                   .datum = "WGS84",
                   .original = "utm 31 U FS 1234 5678",
                   .comment = "Dourbes//remark"}),
            "3K+50.50000   4.25000   12  3451998/07/04FWGS84"
            "utm 31 U FS 1234 5678   Dourbes//remark\r\n");
}

TEST(DegLineWriter, FillsEmptyColumnsWithBlanks) {
  EXPECT_EQ(Ligne({}),
            "0K+ 0.00000   0.00000    0    0" + std::string(10 + 1 + 5 + 24, ' ') + "\r\n");
}

TEST(DegLineWriter, PadsADateThatIsTooShort) {
  EXPECT_EQ(Ligne({.date = "1998", .sex = "M"}).substr(31, 11), "1998      M");
}

TEST(DegLineWriter, LongNumbersShiftTheColumnsBehind) {
  EXPECT_EQ(Ligne({.period = 12, .n1 = 123456, .n2 = -7, .date = "1998/07/04"}).substr(0, 45),
            "12K+ 0.00000   0.00000123456-000071998/07/04 ");
  EXPECT_EQ(Ligne({.period = -1}).substr(0, 3), "-1K");
  EXPECT_EQ(Ligne({.n1 = std::numeric_limits<std::int32_t>::min()}).substr(21, 11), "-2147483648");
}

TEST(DegLineWriter, WritesNumbersAsTheMaskGives) {
  for (const std::int32_t n : {0, 1, 9, 10, 99, 100, 12345, 99999, 100000, -1, -99999, -100000}) {
    std::string expected = Format(n, "00000");
    BlanchitZeros(expected, 1);
    if (expected == "     ") expected = "    0";
    EXPECT_EQ(Ligne({.n1 = n}).substr(21, expected.size()), expected) << n;
  }
}

struct MaskCase {
  float value;
  const char* latitude;
  const char* longitude;
};

TEST(DegLineWriter, CoordinatesOfKnownValues) {
  const MaskCase cases[] = {
      {0.0F, "+ 0.00000", "   0.00000"},
      {-0.0F, "+ 0.00000", "   0.00000"},
      {4.5F, "+ 4.50000", "   4.50000"},
      {-12.5F, "-12.50000", "- 12.50000"},
      {3.25F, "+ 3.25000", "   3.25000"},
      {-0.000001F, "+ 0.00000", "   0.00000"},
      {0.0000152587890625F, "+ 0.00002", "   0.00002"},
      {-89.99999F, "-89.99999", "- 89.99999"},
      {9.999999F, "+10.00000", "  10.00000"},
      {179.99998F, "+179.99998", " 179.99998"},
      {-180.0F, "-180.00000", "-180.00000"},
      {1234.5F, "+1234.50000", " 1234.50000"},
  };
  for (const MaskCase& c : cases) {
    SCOPED_TRACE(c.value);
    const std::string line = Ligne({.latitude = c.value, .longitude = c.value});
    EXPECT_EQ(line.substr(2, std::string(c.latitude).size()), c.latitude);
    EXPECT_EQ(line.substr(2 + std::string(c.latitude).size(), std::string(c.longitude).size()),
              c.longitude);
  }
}

/// The columns of a coordinate as Format and CadreCoord write them.
std::string ParMasque(float value) {
  std::string latitude = Format(static_cast<double>(value), "+00.00000;-00.00000");
  std::string longitude = Format(static_cast<double>(value), " 000.00000;-000.00000");
  CadreCoord(latitude);
  CadreCoord(longitude);
  return latitude + longitude;
}

void VerifieMasque(float value) {
  const std::string expected = ParMasque(value);
  ASSERT_EQ(Ligne({.latitude = value, .longitude = value}).substr(2, expected.size()), expected)
      << std::bit_cast<std::uint32_t>(value);
}

TEST(DegLineWriter, CoordinatesAreWhatTheMaskGives) {
  std::mt19937 random(20110303);  // any bits: subnormals, halves, huge values
  for (int i = 0; i < 100000; ++i) {
    const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    if (std::isfinite(value)) VerifieMasque(value);
  }
  std::uniform_real_distribution<float> degrees(-180, 180);
  for (int i = 0; i < 200000; ++i) VerifieMasque(degrees(random));
  // Exact halves of the last place: multiples of 1/64 of a unit that a float holds.
  for (int i = -6400000; i < 6400000; i += 641) VerifieMasque(static_cast<float>(i) / 65536.0F);
}

TEST(DegLineWriter, WritesTextsInCodePage1252) {
  EXPECT_EQ(Ligne({.sex = "\xC3\xA9",
                   .original = "deg 5\xC2\xB0",
                   .comment = "\xE2\x82\xAC Localit\xC3\xA9"}),
            "0K+ 0.00000   0.00000    0    0          \xE9     deg 5\xB0                  \x80 "
            "Localit\xE9\r\n");
}

TEST(DegLineWriter, OneCharacterIsOneColumn) {
  const std::string line = Ligne({.date = "\xC3\xA9t\xC3\xA9 1998", .sex = "W"});
  EXPECT_EQ(line.substr(31, 11), "\xE9t\xE9 1998  W");
}

TEST(DegLineWriter, NamesCharactersThatTheCodePageLacks) {
  std::string bytes;
  std::vector<LackingCharacters> lacking;
  EcritLigne(bytes, {.original = "\xCE\xB1", .comment = "\xC5\x81\xC3\xB3\x64\xC5\xBA \xC5\x81"},
             lacking);
  ASSERT_EQ(lacking.size(), 2U);
  EXPECT_EQ(lacking[0].column, "ORIGINAL");
  EXPECT_EQ(lacking[0].characters, "\"\xCE\xB1\"");
  EXPECT_EQ(lacking[1].column, "COMMENT");
  EXPECT_EQ(lacking[1].characters, "\"\xC5\x81\", \"\xC5\xBA\"");
  EXPECT_EQ(bytes.substr(47, 24), "?                       ");
  EXPECT_EQ(bytes.substr(71),
            "?\xF3"
            "d? ?\r\n");
}

TEST(DegLineWriter, KeepsLineFeedsOfARemark) {
  EXPECT_EQ(Ligne({.comment = "/a\nb"}).substr(71), "/a\nb\r\n");
}

struct PeriodCase {
  int nbPivots;
  int pivot1;
  int pivot2;
  const char* line;
};

TEST(LignePeriodes, NamesThePeriodsByTheirYears) {
  const PeriodCase cases[] = {
      {0, 1950, 1980, " 0000 - 2011   0 - 0   0 - 0"},
      {1, 1950, 1980, " 0000 - 1949   1950 - 2011   0 - 0"},
      {2, 1950, 1980, " 0000 - 1949   1950 - 1979   1980 - 2011"},
      {1, 0, 0, " 0000 - -0001   0000 - 2011   0 - 0"},
      {2, -32768, 32767, " 0000 - -32769   -32768 - 32766   32767 - 2011"},
  };
  for (const PeriodCase& c : cases) {
    EXPECT_EQ(LignePeriodes(c.nbPivots, c.pivot1, c.pivot2, 2011), c.line);
  }
}

TEST(LignePeriodes, IsAbsentForAnyOtherNumberOfPivots) {
  EXPECT_FALSE(LignePeriodes(3, 1950, 1980, 2011).has_value());
  EXPECT_FALSE(LignePeriodes(-1, 1950, 1980, 2011).has_value());
}

}  // namespace
}  // namespace talpena
