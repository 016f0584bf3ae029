// Numbers in the free decimal form.
#include "common/free_decimal.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

#include "common/numbers.h"

namespace talpena {
namespace {

// clang-format off
struct SingleCase { float value; const char* text; };

constexpr SingleCase singleCases[] = {
    {0.0F, " 0"},                      {-0.0F, " 0"},
    {1.0F, " 1"},                      {-1.0F, "-1"},
    {0.5F, " .5"},                     {-0.5F, "-.5"},
    {50.0F, " 50"},                    {800.0F, " 800"},
    {550.0F, " 550"},                  {10.25F, " 10.25"},
    {-123.75F, "-123.75"},             {0.1F, " .1"},
    {0.3F, " .3"},                     {1.1F, " 1.1"},
    {299.99999F, " 300"},              {99.99999F, " 99.99999"},
    {123.456789F, " 123.4568"},        {1234567.0F, " 1234567"},
    {1234567.5F, " 1234568"},          // exact half: to even
    {1234568.5F, " 1234568"},
    {9999999.0F, " 9999999"},          {9999999.5F, " 1E+07"},  // as a float it is 10,000,000
    {10000000.0F, " 1E+07"},           {-10000000.0F, "-1E+07"},
    {12345678.0F, " 1.234568E+07"},    {16777216.0F, " 1.677722E+07"},
    {0.01F, " .01"},                   {0.001234567F, " .001234567"},
    {1E-06F, " .000001"},              {1E-07F, " .0000001"},
    {9.999999E-08F, " 9.999999E-08"},  {1E-08F, " 1E-08"},
    {-2.5E-09F, "-2.5E-09"},           {1E-13F, " 1E-13"},
    {3.4E+38F, " 3.4E+38"},            {-3.4E+38F, "-3.4E+38"},
    {1E+20F, " 1E+20"},                {1.17549435E-38F, " 1.175494E-38"},
    {1E-45F, " 1.401298E-45"},         {.99999995F, " .9999999"},
    {.99999999F, " 1"},                {100000.0F, " 100000"},
};

struct DoubleCase { double value; const char* text; };

constexpr DoubleCase doubleCases[] = {
    {0.0, " 0"},                       {-0.0, " 0"},
    {1.0, " 1"},                       {0.5, " .5"},
    {128 / 255.0, " .501960784313725"},{1 / 255.0, " .00392156862745098"},
    {254 / 255.0, " .996078431372549"},{2 / 3.0, " .666666666666667"},
    {-1 / 3.0, "-.333333333333333"},   {42.0, " 42"},
    {42.5, " 42.5"},                   {-3.0, "-3"},
    {9999999.5, " 9999999.5"},         {123456789012345.0, " 123456789012345"},
    {999999999999999.0, " 999999999999999"}, {1E+15, " 1E+15"},
    {1E-15, " .000000000000001"},      {1E-16, " 1E-16"},
    {1234567890123456789.0, " 1.23456789012346E+18"},
    {1E+300, " 1E+300"},               {-1E-300, "-1E-300"},
};
// clang-format on

TEST(FreeDecimal, WritesSingles) {
  for (const SingleCase& c : singleCases) EXPECT_EQ(FormeLibre(c.value), c.text) << c.value;
}

TEST(FreeDecimal, WritesDoubles) {
  for (const DoubleCase& c : doubleCases) EXPECT_EQ(FormeLibre(c.value), c.text) << c.value;
}

TEST(FreeDecimal, WritesNothingButDigitsForWhatIsNoNumber) {
  EXPECT_EQ(FormeLibre(std::numeric_limits<float>::infinity()), " 0");
  EXPECT_EQ(FormeLibre(std::numeric_limits<double>::quiet_NaN()), " 0");
}

TEST(FreeDecimal, AppendsToWhatIsThere) {
  std::string text = "x";
  AjouteFormeLibre(text, -2.5F);
  AjouteFormeLibre(text, 0.25F);
  AjouteFormeLibre(text, 3E-9F);
  EXPECT_EQ(text, "x-2.5 .25 3E-09");
}

/// Seven digits by the library's exact rounding, brought into the form.
std::string ParBibliotheque(float value) {
  char buffer[64];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, std::abs(value),
                                 std::chars_format::scientific, 6)
                       .ptr;
  const std::string all(buffer, end);
  const int exponent = std::stoi(all.substr(all.find('e') + 1));
  std::string digits = all.substr(0, 1) + all.substr(2, 6);
  digits.erase(digits.find_last_not_of('0') + 1);
  if (digits.empty()) return " 0";
  const std::string sign = value < 0 ? "-" : " ";
  const int count = static_cast<int>(digits.size());
  if (exponent < -7 || exponent > 6) {
    std::string size = std::to_string(std::abs(exponent));
    if (size.size() < 2) size.insert(0, "0");
    return sign + digits.substr(0, 1) + (count > 1 ? "." + digits.substr(1) : "") +
           (exponent < 0 ? "E-" : "E+") + size;
  }
  if (exponent < 0) {
    return sign + "." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
  }
  const auto whole = static_cast<std::size_t>(exponent + 1);
  if (digits.size() <= whole) return sign + digits + std::string(whole - digits.size(), '0');
  return sign + digits.substr(0, whole) + "." + digits.substr(whole);
}

TEST(FreeDecimal, RoundsEveryFloatExactly) {
  std::mt19937 random(11);
  const auto check = [](float value) {
    ASSERT_EQ(FormeLibre(value), ParBibliotheque(value)) << std::bit_cast<std::uint32_t>(value);
  };
  for (int i = 0; i < 300000; ++i) {
    const float any = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    if (std::isfinite(any)) check(any);
    // What stands on a page: 1 to 1E7, where the quick way is taken.
    const auto exponent = static_cast<std::uint32_t>(127 + random() % 24);
    check(std::bit_cast<float>((exponent << 23U) | (static_cast<std::uint32_t>(random()) >> 9U)));
  }
  for (const double edge : {1.0, 10.0, 100.0, 1E3, 1E4, 1E5, 1E6, 8388608.0, 1E7, 1E-7, .1}) {
    float value = std::nextafter(static_cast<float>(edge), 0.0F);
    for (int i = 0; i < 3; ++i, value = std::nextafter(value, 1E9F)) check(value);
  }
}

/// A reader of any kind gets back what seven digits can hold.
TEST(FreeDecimal, ReadsBackWithinHalfAUnitOfTheSeventhDigit) {
  std::mt19937 random(5);
  for (int i = 0; i < 20000; ++i) {
    const float value = static_cast<float>(random() % 100000000) / 97.0F - 400000.0F;
    const std::string text = FormeLibre(value);
    const double read = Val(text);
    EXPECT_LE(std::abs(read - double{value}), 5.1E-7 * std::abs(double{value})) << text;
  }
}

}  // namespace
}  // namespace talpena
