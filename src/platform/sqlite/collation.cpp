#include "platform/sqlite/collation.h"

#include <unicode/uchar.h>
#include <unicode/ucol.h>
#include <unicode/ucoleitr.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <vector>

#include "platform/sqlite/errors.h"

namespace talpena::sqlite {
namespace {

constexpr std::uint16_t CommonSecondary = 0x0500;  // of a letter without an accent

void Exige(UErrorCode status) {
  if (U_FAILURE(status)) {
    throw TalpenaError(ErrorNumber::EngineFault,
                       std::string("The collation failed: ") + u_errorName(status) + ".");
  }
}

/// A number of `count` digits to the base 128, most significant first, each raised by one so
/// that no byte is zero.
void AjouteSansZero(std::uint32_t value, int count, std::string& key) {
  for (int i = count - 1; i >= 0; --i) {
    key.push_back(static_cast<char>(((value >> (7 * i)) & 0x7f) + 1));
  }
}

}  // namespace

struct Collation::Icu {
  /// One collation element: primary and secondary weight; 0 for "does not count".
  struct Element {
    std::uint32_t primary = 0;
    std::uint16_t secondary = 0;
  };

  struct CloseCollator {
    void operator()(UCollator* p) const { ucol_close(p); }
  };
  struct CloseElements {
    void operator()(UCollationElements* p) const { ucol_closeElements(p); }
  };
  std::unique_ptr<UCollator, CloseCollator> collator;
  std::unique_ptr<UCollationElements, CloseElements> iterator;
  std::vector<UChar> utf16;
  std::vector<Element> elements;
  std::array<std::uint32_t, 128> primaries{};  // of the ASCII characters
  std::vector<std::uint32_t> sorted;           // the distinct ones, ascending

  Icu() {
    UErrorCode status = U_ZERO_ERROR;
    collator.reset(ucol_open("en_US", &status));
    Exige(status);
    ucol_setStrength(collator.get(), UCOL_SECONDARY);
    static constexpr UChar empty[1] = {0};
    iterator.reset(ucol_openElements(collator.get(), empty, 0, &status));
    Exige(status);
  }

  void Convertit(std::string_view text) {
    const auto size = static_cast<std::int32_t>(
        std::min<std::size_t>(text.size(), std::numeric_limits<std::int32_t>::max() / 2));
    utf16.resize(static_cast<std::size_t>(size) + 1);  // never more units than bytes
    std::int32_t length = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strFromUTF8WithSub(utf16.data(), size + 1, &length, text.data(), size, 0xFFFD, nullptr,
                         &status);
    Exige(status);
    utf16.resize(static_cast<std::size_t>(length));
  }

  /// Fills `elements` with those of a text that has some weight.
  void Decompose(std::string_view text) {
    elements.clear();
    Convertit(text);
    UErrorCode status = U_ZERO_ERROR;
    ucol_setText(iterator.get(), utf16.data(), static_cast<std::int32_t>(utf16.size()), &status);
    Exige(status);
    for (;;) {
      const std::int32_t next = ucol_next(iterator.get(), &status);
      Exige(status);
      if (next == UCOL_NULLORDER) return;
      const auto order = static_cast<std::uint32_t>(next);
      if ((order & 0xc0) == 0xc0 && !elements.empty()) {  // low halves of the one before
        elements.back().primary |= order >> 16;
        elements.back().secondary |= static_cast<std::uint16_t>((order >> 8) & 0xff);
        continue;
      }
      elements.push_back({order & 0xffff0000u, static_cast<std::uint16_t>(order & 0xff00u)});
    }
  }
};

Collation::Collation() : icu_(std::make_unique<Icu>()) {
  for (unsigned c = 0; c < 128; ++c) {
    const char text = static_cast<char>(c);
    icu_->Decompose(std::string_view(&text, 1));
    if (icu_->elements.empty()) continue;
    icu_->primaries[c] = icu_->elements.front().primary;
    if (icu_->primaries[c] != 0) icu_->sorted.push_back(icu_->primaries[c]);
  }
  auto& sorted = icu_->sorted;
  std::sort(sorted.begin(), sorted.end());
  sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
  for (unsigned c = 0; c < 128; ++c) {
    if (icu_->primaries[c] == 0) continue;
    const auto place = std::lower_bound(sorted.begin(), sorted.end(), icu_->primaries[c]);
    weights_[c] = static_cast<unsigned char>(2 * (place - sorted.begin() + 1));
  }
}

Collation::~Collation() = default;

// False when a character beyond ASCII leaves the answer to ICU.
bool Collation::CompareAscii(std::string_view a, std::string_view b, int& result) const {
  std::size_t i = 0;
  std::size_t j = 0;
  result = 0;
  while (i < a.size() && j < b.size()) {
    if (((a[i] | b[j]) & 0x80) != 0) return false;
    const unsigned char left = Poids(a[i]);
    const unsigned char right = Poids(b[j]);
    if (left == right) {
      ++i;
      ++j;
    } else if (left == 0) {
      ++i;
    } else if (right == 0) {
      ++j;
    } else {
      result = left < right ? -1 : 1;
      break;
    }
  }
  const auto isAscii = [](char c) { return (c & 0x80) == 0; };
  // A later accent changes nothing once the letters differ, but a combining mark right behind
  // the place does, so that the whole of both texts has to be plain.
  const std::size_t restA = i;
  const std::size_t restB = j;
  if (!std::all_of(a.begin() + static_cast<std::ptrdiff_t>(restA), a.end(), isAscii)) return false;
  if (!std::all_of(b.begin() + static_cast<std::ptrdiff_t>(restB), b.end(), isAscii)) return false;
  if (result != 0) return true;
  const auto counts = [this](char c) { return Poids(c) != 0; };
  if (std::any_of(a.begin() + static_cast<std::ptrdiff_t>(i), a.end(), counts)) result = 1;
  if (std::any_of(b.begin() + static_cast<std::ptrdiff_t>(j), b.end(), counts)) result = -1;
  return true;
}

bool Collation::EstSimple(std::string_view text) const {
  return std::all_of(text.begin(), text.end(),
                     [this](char c) { return (c & 0x80) == 0 && Poids(c) != 0; });
}

int Collation::Compare(std::string_view a, std::string_view b) const {
  int result = 0;
  if (CompareAscii(a, b, result)) return result;
  UErrorCode status = U_ZERO_ERROR;
  const auto length = [](std::string_view t) {
    return static_cast<std::int32_t>(
        std::min<std::size_t>(t.size(), std::numeric_limits<std::int32_t>::max()));
  };
  return ucol_strcollUTF8(icu_->collator.get(), a.data(), length(a), b.data(), length(b), &status);
}

void Collation::AjouteCle(std::string_view text, std::string& key) const {
  const std::size_t start = key.size();
  key.resize(start + text.size());
  char* to = key.data() + start;
  for (const char c : text) {
    if ((c & 0x80) != 0) {
      key.resize(start);
      AjouteCleIcu(text, key);
      return;
    }
    *to = static_cast<char>(Poids(c));
    to += *to != 0 ? 1 : 0;
  }
  key.resize(static_cast<std::size_t>(to - key.data()));
}

// The weight of an ASCII primary is one even byte; any other takes the odd byte below the next
// ASCII one, and itself behind it.
void Collation::AjoutePrimaire(unsigned primary, std::string& key) const {
  const auto& sorted = icu_->sorted;
  const auto place = std::lower_bound(sorted.begin(), sorted.end(), primary);
  const auto rank = static_cast<int>(place - sorted.begin());
  if (place != sorted.end() && *place == primary) {
    key.push_back(static_cast<char>(2 * (rank + 1)));
    return;
  }
  key.push_back(static_cast<char>(2 * rank + 1));
  AjouteSansZero(primary, 5, key);
}

void Collation::AjouteCleIcu(std::string_view text, std::string& key) const {
  icu_->Decompose(text);
  std::size_t lastAccent = 0;  // one behind it
  std::vector<std::uint16_t> secondaries;
  for (const auto& element : icu_->elements) {
    if (element.primary != 0) AjoutePrimaire(element.primary, key);
    if (element.secondary == 0) continue;
    secondaries.push_back(element.secondary);
    if (element.secondary != CommonSecondary) lastAccent = secondaries.size();
  }
  if (lastAccent == 0) return;
  key.push_back('\0');
  for (std::size_t i = 0; i < lastAccent; ++i) AjouteSansZero(secondaries[i], 3, key);
}

char32_t SansCasse(char32_t c) {
  if (c < 128) return c >= 'A' && c <= 'Z' ? c + 32 : c;
  const UChar32 lower = u_tolower(static_cast<UChar32>(c));
  return lower < 128 ? c : static_cast<char32_t>(lower);
}

}  // namespace talpena::sqlite
