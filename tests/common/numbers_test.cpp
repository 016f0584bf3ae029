#include "common/numbers.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "common/talpena_error.h"

namespace talpena {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

/// Expects a call to raise Overflow.
template <typename Call>
void ExpectOverflow(Call call) {
  try {
    call();
    ADD_FAILURE() << "no overflow";
  } catch (const TalpenaError& e) {
    EXPECT_EQ(e.number(), ErrorNumber::Overflow);
    EXPECT_EQ(e.description(), "Overflow");
  }
}

struct ValCase {
  const char* text;
  double value;
};

// clang-format off
constexpr ValCase valCases[] = {
    // Nothing to read.
    {"", 0}, {" ", 0}, {"abc", 0}, {"K12", 0}, {"+", 0}, {"-", 0}, {".", 0}, {"+.", 0}, {"-.", 0},
    {"E5", 0}, {".E5", 0}, {"--1", 0}, {"+-1", 0}, {"\xC3\xA9", 0}, {"_1", 0}, {"$5", 0},
    // Whole numbers and points.
    {"0", 0}, {"7", 7}, {"0007", 7}, {"-12", -12}, {"+12", 12}, {"5.", 5}, {".5", 0.5},
    {"-.5", -0.5}, {"4.25", 4.25}, {"+04.50000", 4.5}, {"-003.56963", -3.56963},
    // Blanks, tabs and line feeds anywhere.
    {"+ 4.50000", 4.5}, {"-  5.77569", -5.77569}, {"  1", 1}, {"1 234", 1234}, {"1 2 . 3 4", 12.34},
    {" - 1", -1}, {"\t-\n1", -1}, {"1\n2", 12}, {"1 E 2", 100}, {"1E - 2", 0.01}, {" . 5", 0.5},
    // Other white space is no blank.
    {"1\r2", 1}, {"\r1", 0}, {"1\v2", 1}, {"1\xC2\xA0" "2", 1},
    // The first character that cannot continue ends the number.
    {"12abc", 12}, {"1.2.3", 1.2}, {"1-2", 1}, {"1+2", 1}, {"50,5", 50}, {"3'000", 3}, {"1/2", 1},
    {"1e", 1}, {"1E+", 1}, {"1E-", 1}, {"1Ex", 1}, {"1E+x", 1}, {"1EE2", 1}, {"1E2E3", 100},
    {"0x10", 0}, {"&H10", 0}, {"1_000", 1}, {"5%", 5},
    // Exponents, with either letter in either case.
    {"1E2", 100}, {"1e2", 100}, {"1D2", 100}, {"1d2", 100}, {"1E+2", 100}, {"1E-2", 0.01},
    {"1D-2", 0.01}, {"1.5E3", 1500}, {".5E1", 5}, {"5.E1", 50}, {"-1E2", -100}, {"1E002", 100},
    {"1E2.5", 100},
    // Words that the C library would take for numbers.
    {"inf", 0}, {"nan", 0}, {"infinity", 0}, {"-inf", 0}, {"0x1p3", 0},
    // Too small to tell from 0; still in range.
    {"1E-400", 0}, {"-1E-400", 0}, {"1E-99999999999999999999", 0}, {"0E99999999999999999999", 0},
    {"1.7976931348623157E308", 1.7976931348623157e308}, {"4.9E-324", 4.9e-324},
    {"0.0000000000000000000000000000000001E34", 1},
};
// clang-format on

TEST(Val, ReadsTheLeadingNumber) {
  for (const ValCase& c : valCases) EXPECT_EQ(Val(c.text), c.value) << '"' << c.text << '"';
}

TEST(Val, PassesOverNulAndStopsThere) {
  EXPECT_EQ(Val(std::string_view("12\0003", 4)), 12);
  EXPECT_EQ(Val(std::string_view("\00012", 3)), 0);
}

TEST(Val, ReadsLongTexts) {
  EXPECT_EQ(Val(std::string(100000, ' ') + "7"), 7);
  EXPECT_EQ(Val(std::string(100000, '0') + "7"), 7);
  EXPECT_EQ(Val("7." + std::string(100000, '0') + "1"), 7);
  EXPECT_EQ(Val("0." + std::string(999, '0') + "1E1000"), 1);
  EXPECT_EQ(Val(std::string(100000, 'x')), 0);
}

TEST(Val, RaisesOverflowBeyondTheRangeOfADouble) {
  const std::string digits(400, '9');
  const std::vector<std::string> texts = {
      "1E309", "-1E309",     "1D400",        "1E99999999999999999999",
      digits,  "-" + digits, digits + "E-5", "1.8E308 and more"};
  for (const std::string& text : texts) {
    SCOPED_TRACE(text);
    ExpectOverflow([&] { Val(text); });
  }
}

/// The value of a text that is one number from end to end.
std::optional<double> WholeNumber(std::string text) {
  if (text.find_first_not_of("0123456789+-.EeDd") != std::string::npos) return std::nullopt;
  for (char& c : text) c = c == 'D' || c == 'd' ? 'e' : c;
  if (text.starts_with('+')) text.erase(0, 1);
  double value = 0;
  const auto end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return value;
}

/// What Val reads, found another way: without blanks, the longest beginning that is a number.
double ReferenceVal(const std::string& text) {
  std::string packed;
  for (const char c : text) {
    if (c != ' ' && c != '\t' && c != '\n') packed += c;
  }
  if (packed.starts_with("+-")) return 0;
  for (; !packed.empty(); packed.pop_back()) {
    if (const auto value = WholeNumber(packed)) return *value;
  }
  return 0;
}

TEST(Val, AgreesWithTheGrammarOnRandomTexts) {
  constexpr std::string_view alphabet = "0123456789012345 \t\n+-..,EeDdKx'\r";
  std::mt19937 random(20240611);
  std::uniform_int_distribution<std::size_t> letter(0, alphabet.size() - 1);
  std::uniform_int_distribution<std::size_t> length(0, 12);
  for (int i = 0; i < 20000; ++i) {
    std::string text;
    for (std::size_t n = length(random); n > 0; --n) text += alphabet[letter(random)];
    double value = 0;
    try {
      value = Val(text);
    } catch (const TalpenaError& e) {
      EXPECT_EQ(e.number(), ErrorNumber::Overflow) << text;
      EXPECT_NE(text.find_first_of("EeDd"), std::string::npos) << text;  // nothing else is so long
      continue;
    }
    // Exponents that leave the range on the low side read as 0; the reference refuses them.
    if (value == 0 && text.find_first_of("EeDd") != std::string::npos) continue;
    EXPECT_EQ(value, ReferenceVal(text)) << text;
  }
}

TEST(Val, IsZeroWhereTheGrammarFindsNothing) {
  constexpr std::string_view alphabet = "+-.EeDd ,x";
  std::mt19937 random(7);
  std::uniform_int_distribution<std::size_t> letter(0, alphabet.size() - 1);
  for (int i = 0; i < 2000; ++i) {
    std::string text;
    for (int n = 0; n < 8; ++n) text += alphabet[letter(random)];
    EXPECT_EQ(Val(text), 0) << text;
  }
}

struct NumericCase {
  const char* text;
  bool numeric;
};

TEST(EstNumerique, WantsTheWholeTextToBeOneNumber) {
  constexpr NumericCase cases[] = {
      {"12", true},     {" 12 ", true},   {"-12.5", true},       {"-12,5", true}, {"1E5", true},
      {"1,5D-3", true}, {".5", true},     {"5.", true},          {"+ 4.5", true}, {"0", true},
      {"", false},      {" ", false},     {"abc", false},        {"12a", false},  {"1,2,3", false},
      {"1.2,3", false}, {"1.2.3", false}, {"1E", false},         {"-", false},    {".", false},
      {",", false},     {"12 km", false}, {"1998/07/14", false}, {"nan", false},  {"0x1", false},
  };
  for (const NumericCase& c : cases) EXPECT_EQ(EstNumerique(c.text), c.numeric) << c.text;
}

struct StrCase {
  double value;
  const char* text;
};

TEST(Str, WritesTheShortestDecimal) {
  constexpr StrCase cases[] = {
      {0, "0"},
      {-0.0, "0"},
      {1, "1"},
      {-1, "-1"},
      {0.5, "0.5"},
      {-0.25, "-0.25"},
      {50.85, "50.85"},
      {0.1, "0.1"},
      {1.0 / 3, "0.3333333333333333"},
      {616000, "616000"},
      {5564000.5, "5564000.5"},
      {1e14, "100000000000000"},
      {999999999999999, "999999999999999"},
      {1e15, "1E+15"},
      {-1e15, "-1E+15"},
      {1e20, "1E+20"},
      {1.5e300, "1.5E+300"},
      {0.00001, "0.00001"},
      {1.25e-5, "0.0000125"},
      {1e-6, "1E-06"},
      {-1.5e-300, "-1.5E-300"},
  };
  for (const StrCase& c : cases) EXPECT_EQ(Str(c.value), c.text);
}

TEST(StrSimple, HasSevenDigitsAtMost) {
  EXPECT_EQ(StrSimple(57.033161F), "57.03316");
  EXPECT_EQ(StrSimple(-3.7496240F), "-3.749624");
  EXPECT_EQ(StrSimple(50.85F), "50.85");
  EXPECT_EQ(StrSimple(1.9999998F), "2");
  EXPECT_EQ(StrSimple(16777216.0F), "16777220");
  EXPECT_EQ(StrSimple(0.0F), "0");
  EXPECT_EQ(StrSimple(-0.000001234567F), "-1.234567E-06");
}

TEST(Str, WritesSinglesByTheirOwnPrecision) {
  EXPECT_EQ(Str(50.85F), "50.85");
  EXPECT_EQ(Str(0.1F), "0.1");
  EXPECT_EQ(Str(-3.56963F), "-3.56963");
  EXPECT_EQ(Str(16777216.0F), "16777216");
  EXPECT_EQ(Str(0.0F), "0");
  EXPECT_EQ(Str(3.4028235E38F), "3.4028235E+38");
  EXPECT_EQ(Str(static_cast<double>(0.1F)), "0.10000000149011612");
}

TEST(Str, WritesWholeNumbers) {
  EXPECT_EQ(Str(std::int64_t{0}), "0");
  EXPECT_EQ(Str(std::int64_t{1234567}), "1234567");
  EXPECT_EQ(Str(std::int64_t{-32768}), "-32768");
  EXPECT_EQ(Str(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
  EXPECT_EQ(Str(std::numeric_limits<std::int64_t>::max()), "9223372036854775807");
}

template <typename Float>
Float Read(const std::string& text) {
  Float value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

/// Number of digits of a decimal, zeros at its two ends left out.
int SignificantDigits(const std::string& text) {
  std::string digits;
  for (const char c : text.substr(0, text.find('E'))) {
    if (c >= '0' && c <= '9') digits += c;
  }
  digits.erase(0, digits.find_first_not_of('0'));
  digits.erase(digits.find_last_not_of('0') + 1);
  return static_cast<int>(digits.size());
}

/// True when a decimal with one significant digit less than `text` has reads back as `value`.
template <typename Float>
bool IsTooLong(const std::string& text, Float value) {
  const int digits = SignificantDigits(text);
  if (digits < 2) return false;
  char buffer[64];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value,
                                 std::chars_format::scientific, digits - 2)
                       .ptr;
  return Read<Float>(std::string(buffer, end)) == value;
}

template <typename Float, typename Bits>
void ExpectRoundTrips(double exactBelow) {
  std::mt19937_64 random(1);
  for (int i = 0; i < 20000; ++i) {
    const auto value = std::bit_cast<Float>(static_cast<Bits>(random()));
    if (!std::isfinite(value) || value == 0) continue;
    const std::string text = Str(value);
    SCOPED_TRACE(text);
    EXPECT_EQ(Read<Float>(text), value);
    EXPECT_EQ(static_cast<Float>(Val(text)), value);
    EXPECT_EQ(text.find_first_not_of("0123456789+-.E"), std::string::npos);
    EXPECT_EQ(text.front() == '-', std::signbit(value));
    const double magnitude = std::fabs(static_cast<double>(value));
    EXPECT_EQ(text.find('E') == std::string::npos, magnitude >= 1e-5 && magnitude < 1e15);
    // Beyond its precision a whole number is written with all its digits.
    if (magnitude < exactBelow || magnitude >= 1e15) {
      EXPECT_FALSE(IsTooLong(text, value));
    }
  }
}

TEST(Str, ReadsBackAsTheSameValue) {
  ExpectRoundTrips<double, std::uint64_t>(9007199254740992.0);
  ExpectRoundTrips<float, std::uint32_t>(16777216.0);
}

TEST(Str, ReadsBackCoordinates) {
  std::mt19937 random(2);
  std::uniform_real_distribution<float> degrees(-180, 180);
  for (int i = 0; i < 20000; ++i) {
    const float value = degrees(random);
    const std::string text = Str(value);
    EXPECT_EQ(static_cast<float>(Val(text)), value) << text;
    EXPECT_FALSE(IsTooLong(text, value)) << text;
  }
}

struct WholeCase {
  double value;
  double floor;
  double truncated;
};

TEST(IntAndFix, DifferBelowZero) {
  constexpr WholeCase cases[] = {
      {0, 0, 0},        {1, 1, 1},        {1.9, 1, 1},  {-0.1, -1, 0},
      {-1, -1, -1},     {-1.5, -2, -1},   {-2, -2, -2}, {1e300, 1e300, 1e300},
      {0.999999, 0, 0}, {-1e-300, -1, 0}, {2.5, 2, 2},  {-1e300, -1e300, -1e300},
  };
  for (const WholeCase& c : cases) {
    EXPECT_EQ(Int(c.value), c.floor) << c.value;
    EXPECT_EQ(Fix(c.value), c.truncated) << c.value;
  }
}

struct RoundCase {
  double value;
  int rounded;
};

constexpr RoundCase roundCases[] = {
    {0, 0},
    {-0.0, 0},
    {0.4, 0},
    {0.5, 0},
    {0.6, 1},
    {1.5, 2},
    {2.5, 2},
    {3.5, 4},
    {-0.5, 0},
    {-0.6, -1},
    {-1.5, -2},
    {-2.5, -2},
    {-3.5, -4},
    {1950.6, 1951},
    {1950.5, 1950},
    {1951.5, 1952},
    {0.49999999999999994, 0},
    {0.50000000000000011, 1},
    {32766.5, 32766},
    {32767, 32767},
    {32767.49, 32767},
    {-32768, -32768},
    {-32768.5, -32768},
};

TEST(Arrondi, RoundsHalvesToEven) {
  for (const RoundCase& c : roundCases) {
    EXPECT_EQ(Arrondi16(c.value), c.rounded) << c.value;
    EXPECT_EQ(Arrondi32(c.value), c.rounded) << c.value;
  }
  EXPECT_EQ(Arrondi32(2147483646.5), 2147483646);
  EXPECT_EQ(Arrondi32(2147483647.4999995), 2147483647);
  EXPECT_EQ(Arrondi32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
}

TEST(Arrondi, RaisesOverflowBeyondItsBits) {
  for (const double value : {32767.5, 32768.0, -32768.51, -32769.0, 40000.0, 1e10, 1e300, -1e300,
                             Infinity, -Infinity, NotANumber}) {
    SCOPED_TRACE(value);
    ExpectOverflow([&] { Arrondi16(value); });
  }
  for (const double value : {2147483647.5, 2147483648.0, -2147483648.51, -2147483649.0, 1e300,
                             Infinity, -Infinity, NotANumber}) {
    SCOPED_TRACE(value);
    ExpectOverflow([&] { Arrondi32(value); });
  }
}

TEST(Arrondi, IsTheNearestAndEvenOnATie) {
  std::mt19937 random(3);
  std::uniform_int_distribution<int> sixteenths(-32767 * 16, 32766 * 16);
  for (int i = 0; i < 20000; ++i) {
    const double value = sixteenths(random) / 16.0;
    const double distance = std::fabs(Arrondi16(value) - value);
    EXPECT_LE(distance, 0.5) << value;
    if (distance == 0.5) {
      EXPECT_EQ(Arrondi16(value) % 2, 0) << value;
    }
    EXPECT_EQ(Arrondi32(value), Arrondi16(value)) << value;
  }
}

TEST(EnSimple, GivesTheNearestSingle) {
  EXPECT_EQ(EnSimple(50.85), 50.85F);
  EXPECT_EQ(EnSimple(0.1), 0.1F);
  EXPECT_EQ(EnSimple(-0.0), 0.0F);
  EXPECT_EQ(EnSimple(16777217), 16777216.0F);  // halfway, to even
  EXPECT_EQ(EnSimple(16777219), 16777220.0F);
  EXPECT_EQ(EnSimple(1e-50), 0.0F);
  EXPECT_EQ(EnSimple(3.4028234663852886e38), std::numeric_limits<float>::max());
}

TEST(EnSimple, RaisesOverflowBeyondTheRangeOfASingle) {
  for (const double value : {3.5e38, -3.5e38, 1e300, Infinity, -Infinity, NotANumber}) {
    SCOPED_TRACE(value);
    ExpectOverflow([&] { EnSimple(value); });
  }
}

}  // namespace
}  // namespace talpena
