#include "common/field_number.h"

#include <gtest/gtest.h>

#include <bit>
#include <optional>
#include <random>
#include <string>

#include "common/numbers.h"
#include "common/talpena_error.h"
#include "common/text.h"

namespace talpena {
namespace {

template <typename Read>
std::optional<std::uint64_t> Bits(Read read) {
  try {
    return std::bit_cast<std::uint64_t>(read());
  } catch (const TalpenaError& e) {
    EXPECT_EQ(e.number(), ErrorNumber::Overflow);
    return std::nullopt;
  }
}

void CompareAVal(const std::string& field) {
  EXPECT_EQ(Bits([&] { return ValChamp(field, Comma::EndsNumber); }),
            Bits([&] { return Val(field); }))
      << '"' << field << '"';
  EXPECT_EQ(Bits([&] { return ValChamp(field, Comma::IsPoint); }),
            Bits([&] { return Val(Remplace(field, ",", ".")); }))
      << '"' << field << "\" with commas as points";
}

TEST(FieldNumber, ReadsTheFieldsOfARow) {
  EXPECT_EQ(ValChamp("+ 4.50000", Comma::IsPoint), 4.5);
  EXPECT_EQ(ValChamp("-  3,25000", Comma::IsPoint), -3.25);
  EXPECT_EQ(ValChamp("1,5", Comma::EndsNumber), 1);
  EXPECT_EQ(ValChamp("   12", Comma::EndsNumber), 12);
  EXPECT_EQ(ValChamp("", Comma::IsPoint), 0);
  EXPECT_EQ(ValChamp("K", Comma::IsPoint), 0);
}

TEST(FieldNumber, EqualsValForRandomTexts) {
  constexpr std::string_view alphabet = "00123456789.,+- \t\nEeDdxK\x80\xFF";
  std::mt19937 random(7);
  for (int run = 0; run < 400'000; ++run) {
    std::string field;
    const std::size_t length = random() % 14;
    for (std::size_t i = 0; i < length; ++i) field += alphabet[random() % alphabet.size()];
    CompareAVal(field);
    if (HasFailure()) return;
  }
}

TEST(FieldNumber, EqualsValForLongNumbers) {
  std::mt19937 random(8);
  for (int run = 0; run < 50'000; ++run) {
    std::string field;
    const std::size_t length = 10 + random() % 30;
    for (std::size_t i = 0; i < length; ++i) field += "0123456789.12345678"[random() % 19];
    CompareAVal(field);
    if (HasFailure()) return;
  }
  CompareAVal("9E999");
  CompareAVal("1E-999");
  CompareAVal("-0");
  CompareAVal(std::string(400, '9'));
}

}  // namespace
}  // namespace talpena
