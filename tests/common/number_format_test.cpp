#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <random>
#include <string>

#include "common/numbers.h"

namespace talpena {
namespace {

struct FormatCase {
  double value;
  const char* mask;
  const char* text;
};

// clang-format off
constexpr FormatCase formatCases[] = {
    // Whole numbers: more digits than places are never cut.
    {0, "0", "0"}, {7, "0", "7"}, {12, "0", "12"}, {-3, "0", "-3"}, {0.4, "0", "0"},
    {0, "00", "00"}, {7, "00", "07"}, {123, "00", "123"}, {59.6, "00", "60"},
    {1950, "0000", "1950"}, {7, "0000", "0007"}, {0, "0000", "0000"}, {-1, "0000", "-0001"},
    {3, "00000", "00003"}, {0, "00000", "00000"}, {123456, "00000", "123456"},
    {-12, "00000", "-00012"}, {-123456, "00000", "-123456"},
    // Latitudes and longitudes as files hold them.
    {4.5, "+00.00000;-00.00000", "+04.50000"}, {-12.5, "+00.00000;-00.00000", "-12.50000"},
    {0, "+00.00000;-00.00000", "+00.00000"}, {50.85045, "+00.00000;-00.00000", "+50.85045"},
    {123.5, "+00.00000;-00.00000", "+123.50000"}, {-0.5, "+00.00000;-00.00000", "-00.50000"},
    {3.25, " 000.00000;-000.00000", " 003.25000"}, {-3.25, " 000.00000;-000.00000", "-003.25000"},
    {0, " 000.00000;-000.00000", " 000.00000"}, {180, " 000.00000;-000.00000", " 180.00000"},
    {3.9212, "+000.00000;-000.00000", "+003.92120"},
    {-12.5, "+000.00000;-000.00000", "-012.50000"}, {0, "+000.00000;-000.00000", "+000.00000"},
    // Places written only when needed; the point always.
    {0.5, "+##.#####;-##.#####", "+.5"}, {50, "+##.#####;-##.#####", "+50."},
    {-0.5, "+##.#####;-##.#####", "-.5"}, {0, "+##.#####;-##.#####", "+."},
    {50.1, "+##.#####;-##.#####", "+50.1"}, {50.123456, "+##.#####;-##.#####", "+50.12346"},
    {-50.00001, "+##.#####;-##.#####", "-50.00001"}, {123.5, "+##.#####;-##.#####", "+123.5"},
    {3.5, "+###.#####;-###.#####", "+3.5"}, {-179.99999, "+###.#####;-###.#####", "-179.99999"},
    {180, "+###.#####;-###.#####", "+180."},
    {12.345, "+##.##;-##.##", "+12.35"}, {-12.344, "+##.##;-##.##", "-12.34"},
    {12.3456, "+###.##;-##.###", "+12.35"}, {-12.3456, "+###.##;-##.###", "-12.346"},
    {0.5, "######.##", ".5"}, {12, "######.##", "12."}, {1234567.891, "######.##", "1234567.89"},
    {-2.5, "######.##", "-2.5"}, {0, "######.##", "."},
    {12345678, "########", "12345678"}, {10064000, "########", "10064000"}, {0, "########", ""},
    // Seconds, with two apostrophes as literals; the cursor's degrees.
    {5.25, "00.0''", "05.3''"}, {59.97, "00.0''", "60.0''"}, {0, "00.0''", "00.0''"},
    {50.8504, "00.000", "50.850"}, {-3.5, "00.000", "-03.500"}, {4.35, "00.00000", "04.35000"},
    // Sections: two, three, left empty; what rounds to zero is zero, without a sign.
    {5, "0;(0)", "5"}, {-5, "0;(0)", "(5)"}, {0, "0;(0)", "0"}, {0, "0;-0;none", "none"},
    {5, "0;-0;none", "5"}, {-5, "0;-0;none", "-5"}, {-5, "0;;none", "-5"}, {0, "0;-0;", "0"},
    {-0.000001, "+00.00000;-00.00000", "+00.00000"}, {-0.4, "0", "0"}, {0.4, "0;-0;none", "none"},
    {-0.0, "+00.00000;-00.00000", "+00.00000"}, {-0.000004, "+##.#####;-##.#####", "+."},
    // Literals: other characters, and all that is quoted.
    {7, "E=0 m", "E=7 m"}, {7, "\"0#.;\"0", "0#.;7"}, {7, "0\" ; \"", "7 ; "}, {7, "", ""},
    {7, "text", "text"}, {-7, "text", "-text"}, {1.5, "0.0.0", "1.50."},
    // A place before a forced one is forced, as is one before it behind the point.
    {1, "0##", "001"}, {1, "#0#", "01"}, {1.5, "0.##0", "1.500"}, {1.5, "0.0##", "1.5"},
    {1, "0.0##", "1.0"},
    // Whole part of many digits.
    {1e20, "0", "100000000000000000000"}, {9007199254740994, "0", "9007199254740994"},
};
// clang-format on

TEST(Format, FillsItsMask) {
  for (const FormatCase& c : formatCases) {
    EXPECT_EQ(Format(c.value, c.mask), c.text) << c.value << " by " << c.mask;
  }
}

// Ties stand on the exact binary value: 0.125 is one, 0.145 and 1.005 are not.
TEST(Format, RoundsHalvesAwayFromZeroOnTheExactValue) {
  constexpr FormatCase cases[] = {
      {0.5, "0", "1"},
      {1.5, "0", "2"},
      {2.5, "0", "3"},
      {-0.5, "0", "-1"},
      {-2.5, "0", "-3"},
      {0.125, "0.00", "0.13"},
      {0.375, "0.00", "0.38"},
      {-0.125, "0.00", "-0.13"},
      {0.145, "0.00", "0.14"},
      {1.005, "0.00", "1.00"},
      {2.675, "0.00", "2.67"},
      {1.115, "0.00", "1.11"},
      {0.25, "0.0", "0.3"},
      {0.35, "0.0", "0.3"},
      {0.45, "0.0", "0.5"},
      {9.5, "0", "10"},
      {99.96875, "0.0000", "99.9688"},
      {9.99951171875, "0.000", "10.000"},
      {0.0000152587890625, "0.000000000000000", "0.000015258789063"},
      {999.5, "+##.#####;-##.#####", "+999.5"},
      {0.499999999999999944, "0", "0"},
  };
  for (const FormatCase& c : cases) {
    EXPECT_EQ(Format(c.value, c.mask), c.text) << c.value << " by " << c.mask;
  }
}

/// The exact decimal of a magnitude cut to `decimals` places, one added when the rest is a half
/// or more.
std::string RoundedExactly(double magnitude, std::size_t decimals) {
  static char buffer[1500];
  const auto end =
      std::to_chars(buffer, buffer + sizeof buffer, magnitude, std::chars_format::fixed, 1074).ptr;
  const std::string exact(buffer, end);
  const std::size_t point = exact.find('.');
  std::string digits = "0" + exact.substr(0, point) + exact.substr(point + 1, decimals);
  if (exact[point + 1 + decimals] >= '5') {
    std::size_t i = digits.size() - 1;
    while (digits[i] == '9') digits[i--] = '0';
    ++digits[i];
  }
  std::string whole = digits.substr(0, digits.size() - decimals);
  whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size() - 1));
  return decimals == 0 ? whole : whole + '.' + digits.substr(digits.size() - decimals);
}

void ExpectRounded(double value) {
  const bool negative = value < 0;
  for (std::size_t decimals = 0; decimals <= 6; ++decimals) {
    const std::string mask = decimals == 0 ? "0" : "0." + std::string(decimals, '0');
    const std::string expected = RoundedExactly(std::fabs(value), decimals);
    const bool zero = expected.find_first_of("123456789") == std::string::npos;
    EXPECT_EQ(Format(value, mask), (negative && !zero ? "-" : "") + expected) << value << mask;
  }
}

TEST(Format, AgreesWithTheExactDecimal) {
  std::mt19937 random(4);
  std::uniform_real_distribution<double> degrees(-180, 180);
  std::uniform_int_distribution<int> numerator(-1000000, 1000000);
  for (int i = 0; i < 3000; ++i) {
    ExpectRounded(degrees(random));
    ExpectRounded(static_cast<float>(degrees(random)));
    ExpectRounded(numerator(random) / 128.0);   // often a tie
    ExpectRounded(numerator(random) / 1000.0);  // seldom one, mostly beside one
  }
  for (const double value : {1e15, 1e22, 1e300, -1e300, 1e-300, 5e-324, 0.5, 0.05, 0.005}) {
    ExpectRounded(value);
  }
}

TEST(Format, ReadsBackWithinHalfAStep) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> degrees(-180, 180);
  for (int i = 0; i < 5000; ++i) {
    const double value = degrees(random);
    for (const char* mask : {"+00.00000;-00.00000", " 000.00000;-000.00000", "+##.#####;-##.#####",
                             "+###.#####;-###.#####"}) {
      EXPECT_NEAR(Val(Format(value, mask)), value, 0.00000500001) << mask;
    }
  }
}

TEST(Format, FillsMasksLongerThanAnyNumber) {
  const std::string zeros(5000, '0');
  EXPECT_EQ(Format(0.5, "0." + zeros), "0.5" + zeros.substr(1));
  EXPECT_EQ(Format(-0.5, "0." + zeros), "-0.5" + zeros.substr(1));
  EXPECT_EQ(Format(7, zeros), zeros.substr(1) + "7");
  EXPECT_EQ(Format(0.5, "0." + std::string(5000, '#')), "0.5");
  // The smallest double has a digit in the last place that any has.
  const std::string smallest = Format(5e-324, "0." + std::string(1074, '0'));
  EXPECT_EQ(smallest.size(), 2U + 1074U);
  EXPECT_TRUE(smallest.ends_with("506419718265533447265625"));
  EXPECT_EQ(Format(1e308, "0." + zeros).size(), 309 + 1 + zeros.size());
}

TEST(Format, LeavesWhatIsNoNumberToThePlainText) {
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(Format(infinity, "0.00"), Str(infinity));
  EXPECT_EQ(Format(std::nan(""), "0.00"), Str(std::nan("")));
}

}  // namespace
}  // namespace talpena
