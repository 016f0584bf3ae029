#include "platform/foreign/dbase/values.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>

namespace talpena::dbase {
namespace {

using namespace std::chrono;

constexpr sys_days firstDay = year(1899) / December / 30;

bool EstVide(char c) { return c == ' ' || c == '\0'; }

std::string_view SansBords(std::string_view text, char filler) {
  const auto from = text.find_first_not_of(filler);
  if (from == std::string_view::npos) return {};
  return text.substr(from, text.find_last_not_of(filler) - from + 1);
}

std::optional<double> Analyse(std::string_view digits) {
  if (!digits.empty() && digits.front() == '+') digits.remove_prefix(1);
  double value = 0;
  const auto [end, error] = std::from_chars(digits.begin(), digits.end(), value);
  const bool whole = error == std::errc{} && end == digits.end() && std::isfinite(value);
  return whole ? std::optional(value) : std::nullopt;
}

std::optional<int> Chiffres(std::string_view text) {
  int value = 0;
  const bool digits = std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
  std::from_chars(text.begin(), text.end(), value);
  return digits ? std::optional(value) : std::nullopt;
}

void PoseADroite(std::span<char> field, std::string_view text) {
  const auto gap = static_cast<std::ptrdiff_t>(field.size() - text.size());
  std::fill(field.begin(), field.begin() + gap, ' ');
  std::copy(text.begin(), text.end(), field.begin() + gap);
}

/// Zeros behind the digits, up to so many decimals as there is room for.
char* AjouteZeros(char* first, char* end, const char* most, int decimals) {
  char* const point = std::find(first, end, '.');
  if (decimals == 0 || (point == end && most - end < 2)) return end;
  if (point == end) *end++ = '.';
  while (end < most && end - point - 1 < decimals) *end++ = '0';
  return end;
}

template <typename Number>
bool EcritPlusCourt(std::span<char> field, Number value, int decimals) {
  if (!std::isfinite(value)) return false;
  if (value == 0) value = 0;  // no minus sign
  std::array<char, 64> text{};
  char* const most = text.data() + std::min(field.size(), text.size());
  auto written = std::to_chars(text.data(), most, value, std::chars_format::fixed);
  if (written.ec == std::errc{}) {
    written.ptr = AjouteZeros(text.data(), written.ptr, most, decimals);
  } else {
    written = std::to_chars(text.data(), most, value, std::chars_format::scientific);
    if (written.ec != std::errc{}) return false;
  }
  PoseADroite(field, {text.data(), written.ptr});
  return true;
}

void PoseChiffres(std::span<char> field, unsigned value) {
  for (std::size_t i = field.size(); i-- > 0; value /= 10) {
    field[i] = static_cast<char>('0' + value % 10);
  }
}

}  // namespace

std::string_view SansFin(std::string_view text) {
  while (!text.empty() && EstVide(text.back())) text.remove_suffix(1);
  return text;
}

std::optional<double> LitNombre(std::string_view field) {
  while (!field.empty() && EstVide(field.front())) field.remove_prefix(1);
  field = SansBords(SansFin(field), '*');
  const std::size_t comma = field.find(',');
  if (comma == std::string_view::npos) return Analyse(field);
  std::array<char, 256> text{};
  if (field.size() > text.size()) return {};
  std::ranges::copy(field, text.begin());
  text[comma] = '.';
  return Analyse({text.data(), field.size()});
}

std::optional<double> LitDate(std::string_view field) {
  constexpr std::size_t length = 8;
  if (field.size() != length) return {};
  const auto y = Chiffres(field.substr(0, 4));
  const auto m = Chiffres(field.substr(4, 2));
  const auto d = Chiffres(field.substr(6, 2));
  if (!y || !m || !d || *y == 0) return {};
  const year_month_day date(year(*y), month(static_cast<unsigned>(*m)),
                            day(static_cast<unsigned>(*d)));
  if (!date.ok()) return {};
  return static_cast<double>((sys_days(date) - firstDay).count());
}

std::optional<bool> LitLogique(std::string_view field) {
  constexpr std::string_view yes = "TtYy", no = "FfNn";
  if (field.empty()) return {};
  if (yes.find(field.front()) != std::string_view::npos) return true;
  if (no.find(field.front()) != std::string_view::npos) return false;
  return {};
}

bool EcritNombre(std::span<char> field, double value, int decimals) {
  return EcritPlusCourt(field, value, decimals);
}

bool EcritSimple(std::span<char> field, float value, int decimals) {
  return EcritPlusCourt(field, value, decimals);
}

bool EcritDate(std::span<char> field, double count) {
  constexpr double fromFirst = -693593, toLast = 2958465;  // 0001-01-01, 9999-12-31
  if (count != std::floor(count) || count < fromFirst || count > toLast) return false;
  const year_month_day date(firstDay + days(static_cast<int>(count)));
  PoseChiffres(field.subspan(0, 4), static_cast<unsigned>(static_cast<int>(date.year())));
  PoseChiffres(field.subspan(4, 2), static_cast<unsigned>(date.month()));
  PoseChiffres(field.subspan(6, 2), static_cast<unsigned>(date.day()));
  return true;
}

}  // namespace talpena::dbase
