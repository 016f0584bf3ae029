// Number masks.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>
#include <vector>

#include "common/numbers.h"

namespace talpena {
namespace {

/// One section of a mask taken apart.
struct Section {
  std::string prefix;    ///< literals before the first digit place
  std::string suffix;    ///< literals behind the last
  std::string integer;   ///< places "0" and "#" before the point
  std::string decimals;  ///< places behind it
  bool point = false;
  bool places = false;  ///< has any digit place
};

/// The sections between semicolons; quoted semicolons are literal.
std::vector<std::string_view> Sections(std::string_view mask) {
  std::vector<std::string_view> sections;
  bool quoted = false;
  std::size_t start = 0;
  for (std::size_t i = 0; i < mask.size(); ++i) {
    if (mask[i] == '"') quoted = !quoted;
    if (mask[i] == ';' && !quoted) {
      sections.push_back(mask.substr(start, i - start));
      start = i + 1;
    }
  }
  sections.push_back(mask.substr(start));
  return sections;
}

Section Analyse(std::string_view mask) {
  Section s;
  bool quoted = false;
  for (const char c : mask) {
    if (c == '"') {
      quoted = !quoted;
    } else if (!quoted && (c == '0' || c == '#')) {
      s.places = true;
      (s.point ? s.decimals : s.integer) += c;
    } else if (!quoted && c == '.' && !s.point) {
      s.point = true;
    } else {
      (s.places || s.point ? s.suffix : s.prefix) += c;
    }
  }
  return s;
}

/// No double has more decimals than this; what a mask asks beyond them is zeros.
constexpr int MostDecimals = 1074;
constexpr std::size_t LongestNumber = 1400;  ///< characters of a double with all of them

/// True when the magnitude lies exactly between two numbers of `decimals` places.
bool EstDemi(double magnitude, int decimals) {
  const double scaled = std::ldexp(magnitude, decimals + 1);
  if (scaled != std::floor(scaled)) return false;
  char buffer[LongestNumber];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, magnitude,
                                 std::chars_format::fixed, decimals + 1)
                       .ptr;
  return end[-1] == '5';
}

void AjouteUnite(std::string& digits) {
  for (std::size_t i = digits.size(); i-- > 0;) {
    if (digits[i] == '.') continue;
    if (digits[i] != '9') {
      ++digits[i];
      return;
    }
    digits[i] = '0';
  }
  digits.insert(digits.begin(), '1');
}

/// The magnitude with the decimals of a section, halves away from zero on its exact value.
std::string Chiffres(double magnitude, const Section& section) {
  const int decimals =
      static_cast<int>(std::min(section.decimals.size(), std::size_t{MostDecimals}));
  char buffer[LongestNumber];
  const bool half = EstDemi(magnitude, decimals);
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, magnitude,
                                 std::chars_format::fixed, decimals + (half ? 1 : 0))
                       .ptr;
  std::string digits(buffer, end);
  if (half) {
    digits.pop_back();
    if (!digits.empty() && digits.back() == '.') digits.pop_back();
    AjouteUnite(digits);
  }
  return digits;
}

bool EstZero(const std::string& digits) {
  return digits.find_first_of("123456789") == std::string::npos;
}

/// Digits before the point in their places: a "0" writes its zero, a "#" does not.
std::string Entiers(const std::string& places, std::string digits) {
  digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
  const std::size_t firstZero = places.find('0');
  const std::size_t forced = firstZero == std::string::npos ? 0 : places.size() - firstZero;
  if (digits.size() < forced) digits.insert(0, forced - digits.size(), '0');
  return digits;
}

/// Digits behind the point: zeros at the end are written in "0" places, and only there.
std::string Decimales(const std::string& places, std::string digits) {
  const std::size_t lastZero = places.rfind('0');
  const std::size_t forced = lastZero == std::string::npos ? 0 : lastZero + 1;
  while (digits.size() > forced && digits.back() == '0') digits.pop_back();
  if (digits.size() < forced) digits.append(forced - digits.size(), '0');
  return digits;
}

std::string Remplit(const Section& s, const std::string& digits) {
  if (!s.places) return s.prefix + s.suffix;
  const std::size_t point = digits.find('.');
  std::string text = s.prefix + Entiers(s.integer, digits.substr(0, point));
  if (s.point) {
    text += '.';
    text += Decimales(s.decimals, point == std::string::npos ? "" : digits.substr(point + 1));
  }
  return text + s.suffix;
}

}  // namespace

std::string Format(double value, std::string_view mask) {
  if (!std::isfinite(value)) return Str(value);
  const std::vector<std::string_view> sections = Sections(mask);
  const double magnitude = std::fabs(value);
  const Section positive = Analyse(sections[0]);
  const bool ownNegative = value < 0 && sections.size() > 1 && !sections[1].empty();
  const Section chosen = ownNegative ? Analyse(sections[1]) : positive;
  const std::string digits = Chiffres(magnitude, chosen);

  if (!EstZero(digits)) {
    const bool sign = value < 0 && !ownNegative;
    return (sign ? "-" : "") + Remplit(chosen, digits);
  }
  // What rounds to zero is written as zero, whatever its sign.
  if (sections.size() > 2 && !sections[2].empty()) {
    const Section zero = Analyse(sections[2]);
    return Remplit(zero, Chiffres(0, zero));
  }
  return Remplit(positive, Chiffres(0, positive));
}

}  // namespace talpena
