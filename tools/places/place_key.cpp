#include "places/place_key.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace talpena {
namespace {

struct PlainLetter {
  char32_t letter;
  std::string_view plain;
};

/// Letters that are no others with an accent, as those write them who lack them.
constexpr PlainLetter plainLetters[] = {
    {U'Æ', "AE"}, {U'Ð', "D"}, {U'Ø', "O"}, {U'Þ', "TH"}, {U'ß', "SS"}, {U'Đ', "D"},
    {U'Ħ', "H"},  {U'Ł', "L"}, {U'Ŋ', "N"}, {U'Œ', "OE"}, {U'Ŧ', "T"},  {U'Ə', "A"},
};

std::string_view Simple(char32_t capital) {
  const auto* found =
      std::find_if(std::begin(plainLetters), std::end(plainLetters),
                   [&](const PlainLetter& candidate) { return candidate.letter == capital; });
  return found == std::end(plainLetters) ? std::string_view{} : found->plain;
}

bool EstDeCle(char32_t c) { return (c >= U'A' && c <= U'Z') || (c >= U'0' && c <= U'9'); }

const icu::Normalizer2& Decomposition() {
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* nfkd = icu::Normalizer2::getNFKDInstance(status);
  if (U_FAILURE(status)) throw std::runtime_error("no data of letters");
  return *nfkd;
}

}  // namespace

std::string CleDeLieu(std::string_view nameUtf8) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::UnicodeString apart = Decomposition().normalize(
      icu::UnicodeString::fromUTF8({nameUtf8.data(), static_cast<int32_t>(nameUtf8.size())}),
      status);
  std::string key;
  for (int32_t i = 0; i < apart.length(); i = apart.moveIndex32(i, 1)) {
    const auto capital = static_cast<char32_t>(u_toupper(apart.char32At(i)));
    if (EstDeCle(capital)) {
      key += static_cast<char>(capital);
    } else {
      key += Simple(capital);
    }
  }
  return key;
}

}  // namespace talpena
