#include "common/field_number.h"

#include <array>
#include <cstdint>

#include "common/numbers.h"
#include "common/text.h"

namespace talpena {
namespace {

constexpr int maxDigits = 15;  // fewer than 2^53: both operands of the division are exact
constexpr std::array<double, maxDigits + 1> powersOfTen = {
    1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

double ValLente(std::string_view field, Comma comma) {
  return comma == Comma::IsPoint ? Val(Remplace(field, ",", ".")) : Val(field);
}

}  // namespace

double ValChamp(std::string_view field, Comma comma) {
  std::uint64_t mantissa = 0;
  std::size_t digits = 0;
  std::size_t decimals = 0;
  bool negative = false;
  bool signAllowed = true;
  bool point = false;
  for (const char c : field) {
    if (c >= '0' && c <= '9') {
      if (++digits > maxDigits) return ValLente(field, comma);
      mantissa = mantissa * 10 + static_cast<std::uint64_t>(c - '0');
      decimals += point ? 1 : 0;
    } else if (c == ' ' || c == '\t' || c == '\n') {
      continue;
    } else if ((c == '.' || (c == ',' && comma == Comma::IsPoint)) && !point) {
      point = true;
    } else if ((c == '+' || c == '-') && signAllowed) {
      negative = c == '-';
    } else if (c == 'E' || c == 'e' || c == 'D' || c == 'd') {
      return ValLente(field, comma);
    } else {
      break;
    }
    signAllowed = false;
  }
  if (digits == 0) return 0;
  const double value = static_cast<double>(mantissa) / powersOfTen[decimals];
  return negative ? -value : value;
}

}  // namespace talpena
