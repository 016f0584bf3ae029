#include "common/free_decimal.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace talpena {
namespace {

constexpr int SingleDigits = 7;
constexpr int DoubleDigits = 15;

/// Significant digits without the zeros behind them, and the exponent of the first: 0.05 is "5",
/// -2.
struct Digits {
  std::array<char, 40> text{};
  std::size_t count = 0;
  int exponent = 0;

  std::string_view Tous() const { return {text.data(), count}; }
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
    if (c != '.') digits.text[digits.count++] = c;
  }
  while (digits.count > 1 && digits.text[digits.count - 1] == '0') --digits.count;
  const char* first = all.data() + e + (all[e + 1] == '+' ? 2 : 1);
  std::from_chars(first, end.ptr, digits.exponent);
  return digits;
}

void AjouteAvecExposant(std::string& text, const Digits& digits) {
  text += digits.text[0];
  if (digits.count > 1) (text += '.') += digits.Tous().substr(1);
  const int size = std::abs(digits.exponent);
  text += digits.exponent < 0 ? "E-" : "E+";
  if (size < 10) text += '0';
  text += std::to_string(size);
}

void AjouteSansExposant(std::string& text, const Digits& digits) {
  const int whole = digits.exponent + 1;  // places before the point
  if (whole <= 0) {
    text += '.';
    text.append(static_cast<std::size_t>(-whole), '0') += digits.Tous();
    return;
  }
  const auto places = static_cast<std::size_t>(whole);
  text += digits.Tous().substr(0, places);
  if (places >= digits.count) {
    text.append(places - digits.count, '0');
  } else {
    (text += '.') += digits.Tous().substr(places);
  }
}

template <typename Number>
void Ajoute(std::string& text, Number value, int places) {
  if (value == 0 || !std::isfinite(value)) {
    text += " 0";
    return;
  }
  text += value < 0 ? '-' : ' ';
  const Digits digits = Chiffres(std::abs(value), places);
  const bool plain = digits.exponent >= -places && digits.exponent < places;
  plain ? AjouteSansExposant(text, digits) : AjouteAvecExposant(text, digits);
}

constexpr std::array<std::uint64_t, 7> PowersOfTen{1, 10, 100, 1000, 10000, 100000, 1000000};
constexpr std::uint32_t Unit = 1000000;  // the lowest number of seven digits

/// Seven digits of a magnitude from 1 to below 1E7, halves to even on its exact value: the digits
/// are those of `number`, `decimals` of them behind the point.
struct SevenDigits {
  std::uint32_t number;
  int decimals;
};

SevenDigits SeptChiffres(float magnitude) {
  const auto bits = std::bit_cast<std::uint32_t>(magnitude);
  const std::uint64_t mantissa = (bits & 0x7FFFFFU) | 0x800000U;
  const int shift = 150 - static_cast<int>(bits >> 23U);  // magnitude = mantissa / 2^shift; 0 to 23
  int decimals = 0;
  while (decimals < 6 &&
         magnitude < static_cast<float>(PowersOfTen[6U - static_cast<unsigned>(decimals)])) {
    ++decimals;
  }
  const std::uint64_t scaled = mantissa * PowersOfTen[static_cast<std::size_t>(decimals)];
  const std::uint64_t rest = scaled & ((std::uint64_t{1} << shift) - 1);
  auto number = static_cast<std::uint32_t>(scaled >> shift);
  const std::uint64_t half = (std::uint64_t{1} << shift) >> 1U;
  if (rest > half || (rest == half && half != 0 && number % 2 == 1)) ++number;
  if (number == 10 * Unit) return {Unit, decimals - 1};
  return {number, decimals};
}

}  // namespace

void AjouteFormeLibre(std::string& text, float value) {
  const float magnitude = std::abs(value);
  if (!(magnitude >= 1 && magnitude < 10.0F * Unit)) return Ajoute(text, value, SingleDigits);
  auto [number, decimals] = SeptChiffres(magnitude);
  for (; decimals > 0 && number % 10 == 0; --decimals) number /= 10;
  std::array<char, 10> buffer{};
  std::size_t first = buffer.size();
  for (int written = 0; number != 0; ++written) {
    if (written == decimals && decimals > 0) buffer[--first] = '.';
    buffer[--first] = static_cast<char>('0' + number % 10);
    number /= 10;
  }
  buffer[--first] = value < 0 ? '-' : ' ';
  text.append(buffer.data() + first, buffer.size() - first);
}

std::string FormeLibre(float value) {
  std::string text;
  AjouteFormeLibre(text, value);
  return text;
}

std::string FormeLibre(double value) {
  std::string text;
  Ajoute(text, value, DoubleDigits);
  return text;
}

}  // namespace talpena
