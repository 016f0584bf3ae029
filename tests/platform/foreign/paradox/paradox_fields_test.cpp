// Values of Paradox tables as bytes.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <string_view>

#include "platform/foreign/paradox/fields.h"

namespace talpena::paradox {
namespace {

using namespace std::literals;

Column Colonne(ParadoxType type, std::size_t bytes, std::size_t decimals = 0) {
  return {.name = "x", .type = type, .bytes = bytes, .decimals = decimals};
}

struct FixedCase {
  const char* name;
  ParadoxType type;
  std::string_view bytes;
  std::size_t decimals;
  Value value;
};

// Expected: by hand from the published descriptions. The signs of decimals were compared with
// what pxlib makes of the same bytes.
// clang-format off
const FixedCase fixedCases[] = {
    {"one",               ParadoxType::Short,         "\x80\x01"sv, 0, std::int64_t{1}},
    {"256",               ParadoxType::Short,         "\x81\x00"sv, 0, std::int64_t{256}},
    {"minus two",         ParadoxType::Short,         "\x7F\xFE"sv, 0, std::int64_t{-2}},
    {"a blank",           ParadoxType::Short,         "\x00\x00"sv, 0, std::monostate{}},
    {"a long",            ParadoxType::Long,          "\x7F\xFF\xFF\xFE"sv, 0, std::int64_t{-2}},
    {"a number given",    ParadoxType::AutoIncrement, "\x80\x00\x00\x09"sv, 0, std::int64_t{9}},
    {"1996-05-04",        ParadoxType::Date,          "\x80\x0B\x1E\xCF"sv, 0, 35189.0},
    {"0100-01-01",        ParadoxType::Date,          "\x80\x00\x8D\x40"sv, 0, -657434.0},
    {"six in the morning", ParadoxType::Time,         "\x81\x49\x97\x00"sv, 0, 0.25},
    {"100.5",             ParadoxType::Number,        "\xC0\x59\x20\x00\x00\x00\x00\x00"sv, 0, 100.5},
    {"minus 54",          ParadoxType::Number,        "\x3F\xB4\xFF\xFF\xFF\xFF\xFF\xFF"sv, 0, -54.0},
    {"zero",              ParadoxType::Number,        "\x80\x00\x00\x00\x00\x00\x00\x00"sv, 0, 0.0},
    {"a blank number",    ParadoxType::Number,        "\x00\x00\x00\x00\x00\x00\x00\x00"sv, 0, std::monostate{}},
    {"no number",         ParadoxType::Number,        "\xFF\xF8\x00\x00\x00\x00\x00\x01"sv, 0, std::monostate{}},
    {"infinity",          ParadoxType::Currency,      "\xFF\xF0\x00\x00\x00\x00\x00\x00"sv, 0, std::monostate{}},
    {"money",             ParadoxType::Currency,      "\xBF\xF8\x00\x00\x00\x00\x00\x00"sv, 0, 1.5},
    {"1996-05-04 12:00",  ParadoxType::Timestamp,     "\xC2\xCC\xA2\x4F\xAF\xC9\x00\x00"sv, 0, 35189.5},
    {"true",              ParadoxType::Logical,       "\x81"sv, 0, std::int64_t{-1}},
    {"false",             ParadoxType::Logical,       "\x80"sv, 0, std::int64_t{0}},
    {"neither",           ParadoxType::Logical,       "\x00"sv, 0, std::monostate{}},
    {"123.45",            ParadoxType::Bcd, "\xC2\0\0\0\0\0\0\0\0\0\0\0\0\0\x01\x23\x45"sv, 2, 123.45},
    {"-123.45",           ParadoxType::Bcd,
     "\x42\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFE\xDC\xBA"sv, 2, -123.45},
    {"a digit too large", ParadoxType::Bcd, "\xC2\0\0\0\0\0\0\0\0\0\0\0\0\0\x01\x2B\x45"sv, 2, std::monostate{}},
    {"all decimals",      ParadoxType::Bcd, "\xE0\x25\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"sv, 32, 0.25},
    {"decimals beyond",   ParadoxType::Bcd, "\xE0\x25\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"sv, 255, 0.25},
    {"bytes",             ParadoxType::Bytes, "\x00\x01"sv, 0, "\x00\x01"s},
    {"blank bytes",       ParadoxType::Bytes, "\x00\x00"sv, 0, std::monostate{}},
};
// clang-format on

TEST(ParadoxFields, ReadsValuesAsPublished) {
  for (const FixedCase& c : fixedCases) {
    SCOPED_TRACE(c.name);
    const Column column = Colonne(c.type, c.bytes.size(), c.decimals);
    EXPECT_EQ(ValeurFixe(column, c.bytes).Garde(), c.value);
  }
}

TEST(ParadoxFields, AnAlphaEndsAtItsFirstZero) {
  EXPECT_EQ(TexteAlpha("bee\0wasp"sv), "bee");
  EXPECT_EQ(TexteAlpha("bee  "), "bee  ");
  EXPECT_EQ(TexteAlpha("\0\0"sv), "");
}

struct ColumnCase {
  unsigned type;
  unsigned size;
  std::size_t bytes;  ///< 0: refused
};

TEST(ParadoxFields, TypesHaveTheirSizes) {
  constexpr ColumnCase cases[] = {
      {1, 1, 1},      {1, 255, 255}, {1, 0, 0},    {2, 4, 4},  {2, 5, 0},    {3, 2, 2},
      {4, 4, 4},      {5, 8, 8},     {6, 8, 8},    {6, 4, 0},  {7, 8, 0},    {8, 8, 0},
      {9, 1, 1},      {10, 1, 0},    {12, 11, 11}, {12, 9, 0}, {13, 10, 10}, {14, 20, 20},
      {16, 250, 250}, {17, 10, 0},   {20, 4, 4},   {21, 8, 8}, {22, 4, 4},   {23, 2, 17},
      {24, 7, 7},     {25, 1, 0},    {0, 1, 0}};
  for (const ColumnCase& c : cases) {
    const auto column = ColonneDe(c.type, c.size);
    EXPECT_EQ(column ? column->bytes : 0, c.bytes) << c.type << ' ' << c.size;
  }
}

TEST(ParadoxFields, EveryNumberComesBack) {
  std::mt19937_64 random(14);
  const Column column = Colonne(ParadoxType::Number, 8);
  std::string last, bytes(8, '\0');
  for (int i = 0; i < 100000; ++i) {
    const auto value = std::bit_cast<double>(random());
    if (!std::isfinite(value)) continue;
    PoseNombreReel(bytes.data(), value);
    EXPECT_EQ(ValeurFixe(column, bytes).Garde(), Value(value == 0 ? 0.0 : value));
  }
  for (const double value : {std::numeric_limits<double>::lowest(), -1e300, -54.0, -1e-300, 0.0,
                             std::numeric_limits<double>::denorm_min(), 1.0, 1e300}) {
    PoseNombreReel(bytes.data(), value);
    EXPECT_LT(last, bytes) << "bytes compare as the numbers do: " << value;
    last = bytes;
  }
}

TEST(ParadoxFields, ShortNumbersAndMomentsComeBack) {
  std::string bytes(2, '\0');
  for (int value = -32767; value <= 32767; ++value) {
    PoseCourt(bytes.data(), static_cast<std::int16_t>(value));
    ASSERT_EQ(ValeurFixe(Colonne(ParadoxType::Short, 2), bytes).integer, value);
  }
  bytes.resize(8);
  for (const double days : {premierJour, -0.25, 0.0, 0.5, 35189.75, dernierJour - 1}) {
    PoseMoment(bytes.data(), days);
    EXPECT_EQ(ValeurFixe(Colonne(ParadoxType::Timestamp, 8), bytes).real, days);
  }
}

}  // namespace
}  // namespace talpena::paradox
