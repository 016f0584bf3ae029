#include "common/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "common/talpena_error.h"

namespace talpena {
namespace {

constexpr bool EstBlanc(char c) { return c == ' ' || c == '\t' || c == '\n'; }
constexpr bool EstChiffre(char c) { return c >= '0' && c <= '9'; }

/// Walks over a text without its blanks.
class BlankSkipper {
 public:
  explicit BlankSkipper(std::string_view text) : text_(text) { Saute(); }
  char Courant() const { return position_ < text_.size() ? text_[position_] : '\0'; }
  bool Fini() const { return position_ >= text_.size(); }
  void Avance() {
    ++position_;
    Saute();
  }

 private:
  void Saute() {
    while (position_ < text_.size() && EstBlanc(text_[position_])) ++position_;
  }
  std::string_view text_;
  std::size_t position_ = 0;
};

std::size_t PrendChiffres(BlankSkipper& in, std::string& out) {
  std::size_t count = 0;
  for (; !in.Fini() && EstChiffre(in.Courant()); in.Avance(), ++count) out += in.Courant();
  return count;
}

/// The exponent, when E or D has digits behind it; else the walker stays where it was.
void PrendExposant(BlankSkipper& in, std::string& out) {
  const char letter = in.Courant();
  if (letter != 'E' && letter != 'e' && letter != 'D' && letter != 'd') return;
  BlankSkipper ahead = in;
  ahead.Avance();
  std::string exponent = "e";
  if (ahead.Courant() == '+' || ahead.Courant() == '-') {
    exponent += ahead.Courant();
    ahead.Avance();
  }
  if (PrendChiffres(ahead, exponent) == 0) return;
  out += exponent;
  in = ahead;
}

/// The leading number of a text, cleaned for std::from_chars: no blanks, no plus, "e" as the
/// exponent's letter. Empty when there are no digits. `in` stands behind the number.
std::string PrendNombre(BlankSkipper& in) {
  std::string number;
  if (in.Courant() == '+' || in.Courant() == '-') {
    if (in.Courant() == '-') number = "-";
    in.Avance();
  }
  std::size_t digits = PrendChiffres(in, number);
  if (in.Courant() == '.' && !in.Fini()) {
    in.Avance();
    number += '.';
    digits += PrendChiffres(in, number);
  }
  if (digits == 0) return {};
  PrendExposant(in, number);
  return number;
}

/// Decimal exponent of a cleaned number's first digit that is not zero, its own exponent
/// included; enough to tell a number too small from one too large.
double OrdreDeGrandeur(const std::string& number) {
  const std::size_t e = number.find('e');
  const std::string mantissa = number.substr(0, e);
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const std::size_t first = mantissa.find_first_of("123456789");
  double order = static_cast<double>(point) - static_cast<double>(first);
  if (e == std::string::npos) return order;
  const bool negative = number[e + 1] == '-';
  double exponent = 0;
  for (const char c : number.substr(e + 1)) {
    if (EstChiffre(c)) exponent = exponent * 10 + (c - '0');
  }
  order += negative ? -exponent : exponent;
  return order;
}

/// Underflow reads as 0, overflow raises.
double Convertit(const std::string& number) {
  double value = 0;
  const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
  if (result.ec != std::errc::result_out_of_range) return value;
  if (OrdreDeGrandeur(number) < 0) return 0;
  throw TalpenaError(ErrorNumber::Overflow, "Overflow");
}

template <typename Float>
std::string Ecrit(Float value) {
  if (value == 0) return "0";
  char buffer[400];
  const double magnitude = std::fabs(static_cast<double>(value));
  const bool plain = magnitude < 1e15 && magnitude >= 1e-5;
  const auto format = plain ? std::chars_format::fixed : std::chars_format::scientific;
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, format).ptr;
  std::string text(buffer, end);
  if (const std::size_t e = text.find('e'); e != std::string::npos) text[e] = 'E';
  return text;
}

template <typename Integer>
Integer Arrondi(double value) {
  // nearbyint would obey the thread's rounding mode; this does not.
  const double floor = std::floor(value);
  const double fraction = value - floor;
  double rounded = fraction > 0.5 ? floor + 1 : floor;
  if (fraction == 0.5 && std::fmod(floor, 2) != 0) rounded = floor + 1;
  if (!(rounded >= std::numeric_limits<Integer>::min() &&
        rounded <= std::numeric_limits<Integer>::max())) {
    throw TalpenaError(ErrorNumber::Overflow, "Overflow");
  }
  return static_cast<Integer>(rounded);
}

}  // namespace

double Val(std::string_view text) {
  BlankSkipper in(text);
  const std::string number = PrendNombre(in);
  return number.empty() ? 0 : Convertit(number);
}

bool EstNumerique(std::string_view text) {
  std::string point(text);
  if (const std::size_t comma = point.find(','); comma != std::string::npos) point[comma] = '.';
  BlankSkipper in(point);
  return !PrendNombre(in).empty() && in.Fini();
}

std::string Str(double value) { return Ecrit(value); }
std::string Str(float value) { return Ecrit(value); }

std::string Str(std::int64_t value) {
  char buffer[24];
  return {buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr};
}

std::string StrSimple(float value) {
  constexpr int decimals = 6;  // behind the first digit
  char buffer[24];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, static_cast<double>(value),
                                 std::chars_format::scientific, decimals)
                       .ptr;
  return Str(Val({buffer, end}));
}

double Int(double value) { return std::floor(value); }
double Fix(double value) { return std::trunc(value); }

std::int16_t Arrondi16(double value) { return Arrondi<std::int16_t>(value); }
std::int32_t Arrondi32(double value) { return Arrondi<std::int32_t>(value); }

float EnSimple(double value) {
  const auto single = static_cast<float>(value);
  if (!std::isfinite(single)) throw TalpenaError(ErrorNumber::Overflow, "Overflow");
  return single;
}

}  // namespace talpena
