// Digits of coordinates and whole numbers, as the masks give them.
#include "common/decimal_columns.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>

#include "common/numbers.h"

namespace talpena {
namespace {

// The masks of the text export; those with blanks are held by DegLineWriter.
constexpr DegreeColumns latitudeColumns{"+00.00000;-00.00000", 2};
constexpr DegreeColumns longitudeColumns{"+000.00000;-000.00000", 3};

void VerifieMasque(float value) {
  for (const DegreeColumns& columns : {latitudeColumns, longitudeColumns}) {
    std::string text = "before ";
    AjouteDegres(text, value, columns);
    ASSERT_EQ(text, "before " + Format(static_cast<double>(value), columns.mask)) << value;
  }
}

TEST(DecimalColumns, DegreesAreWhatTheMaskGives) {
  std::mt19937 random(20110303);  // any bits: subnormals, halves, huge values
  for (int i = 0; i < 30000; ++i) {
    VerifieMasque(std::bit_cast<float>(static_cast<std::uint32_t>(random())));
  }
  std::uniform_real_distribution<float> degrees(-180, 180);
  for (int i = 0; i < 60000; ++i) VerifieMasque(degrees(random));
  // Exact halves of the last place: multiples of 1/64 of a unit that a float holds.
  for (int i = -6400000; i < 6400000; i += 3203) VerifieMasque(static_cast<float>(i) / 65536.0F);
}

TEST(DecimalColumns, WholeNumbersAreWhatTheMaskGives) {
  std::mt19937_64 random(20110303);
  for (int i = 0; i < 20000; ++i) {
    const auto value = static_cast<std::int32_t>(random()) >> (random() % 32);
    std::string text;
    AjouteEntier(text, value, 5);
    ASSERT_EQ(text, Format(value, "00000"));
    text.clear();
    AjouteEntier(text, value);
    ASSERT_EQ(text, Format(value, "0"));
  }
}

}  // namespace
}  // namespace talpena
