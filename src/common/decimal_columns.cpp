#include "common/decimal_columns.h"

#include <array>
#include <charconv>
#include <cmath>

#include "common/numbers.h"

namespace talpena {

void AjouteDegres(std::string& bytes, float value, const DegreeColumns& columns) {
  constexpr int decimals = 5;
  constexpr double largest = 1e15;
  // Exact: 24 bits of a float times the 12 of 3125, the odd part of 100000.
  const double scaled = std::fabs(static_cast<double>(value)) * 100000;
  if (!(scaled < largest)) {  // more digits than places: nothing is filled
    bytes += Format(static_cast<double>(value), columns.mask);
    return;
  }
  auto units = static_cast<std::uint64_t>(scaled);
  if (scaled - static_cast<double>(units) >= 0.5) ++units;
  const bool negative = value < 0 && units != 0;

  std::array<char, 24> text;
  char* const end = text.data() + text.size();
  char* start = end;
  const auto digit = [&] {
    *--start = static_cast<char>('0' + units % 10);
    units /= 10;
  };
  for (int i = 0; i < decimals; ++i) digit();
  *--start = '.';
  const char* const point = start;
  do digit();
  while (units != 0);
  while (static_cast<std::size_t>(point - start) < columns.integerPlaces) *--start = columns.fill;
  *--start = negative ? '-' : columns.positiveSign;
  bytes.append(start, end);
}

void AjouteEntier(std::string& bytes, std::int64_t value, std::size_t places) {
  std::array<char, 24> text;
  const char* const end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  const char* digits = text.data();
  if (value < 0) bytes += *digits++;
  const auto length = static_cast<std::size_t>(end - digits);
  if (length < places) bytes.append(places - length, '0');
  bytes.append(digits, end);
}

}  // namespace talpena
