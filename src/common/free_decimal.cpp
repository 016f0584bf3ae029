#include "common/free_decimal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace talpena {
namespace {

/// Digits without the zeros behind them, and the exponent of the first: 0.05 is "5", -2.
struct Digits {
  std::string text;
  int exponent = 0;
};

template <typename Number>
Digits Chiffres(Number magnitude, int places) {
  std::array<char, 40> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                 std::chars_format::scientific, places - 1);
  const std::string_view all(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
  const std::size_t e = all.find('e');
  Digits digits;
  for (const char c : all.substr(0, e)) {
    if (c != '.') digits.text += c;
  }
  while (digits.text.size() > 1 && digits.text.back() == '0') digits.text.pop_back();
  const char* first = all.data() + e + (all[e + 1] == '+' ? 2 : 1);
  std::from_chars(first, end.ptr, digits.exponent);
  return digits;
}

std::string AvecExposant(const Digits& digits) {
  std::string text = digits.text.substr(0, 1);
  if (digits.text.size() > 1) text += "." + digits.text.substr(1);
  const int size = std::abs(digits.exponent);
  return text + (digits.exponent < 0 ? "E-" : "E+") + (size < 10 ? "0" : "") + std::to_string(size);
}

std::string SansExposant(const Digits& digits) {
  const int count = static_cast<int>(digits.text.size());
  const int whole = digits.exponent + 1;  // places before the point
  if (whole <= 0) return "." + std::string(static_cast<std::size_t>(-whole), '0') + digits.text;
  if (whole >= count)
    return digits.text + std::string(static_cast<std::size_t>(whole - count), '0');
  return digits.text.substr(0, static_cast<std::size_t>(whole)) + "." +
         digits.text.substr(static_cast<std::size_t>(whole));
}

template <typename Number>
std::string Forme(Number value, int places) {
  const std::string sign = value < 0 ? "-" : " ";
  if (value == 0 || !std::isfinite(value)) return " 0";
  const Digits digits = Chiffres(std::abs(value), places);
  const bool plain = digits.exponent >= -places && digits.exponent < places;
  return sign + (plain ? SansExposant(digits) : AvecExposant(digits));
}

}  // namespace

std::string FormeLibre(float value) { return Forme(value, 7); }
std::string FormeLibre(double value) { return Forme(value, 15); }

}  // namespace talpena
