#include "interchange/gdate.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "common/numbers.h"

namespace talpena {
namespace {

constexpr std::array<std::string_view, 12> months{"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                                  "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};

bool EstChiffre(std::string_view text, std::size_t place) {
  return place < text.size() && text[place] >= '0' && text[place] <= '9';
}

}  // namespace

int MoisGarmin(std::string_view name) {
  const auto* const found = std::ranges::find(months, name);
  return found == months.end() ? 0 : static_cast<int>(found - months.begin()) + 1;
}

std::string GDate(std::string_view text) {
  const auto part = [text](std::size_t first, std::size_t count) {
    return text.substr(std::min(first, text.size()), count);
  };
  const double year = Val(part(7, 2));
  return Format(year + (year > 80 ? 1900 : 2000), "0000") + "/" +
         Format(MoisGarmin(part(3, 3)), "00") + "/" + Format(Val(part(0, 2)), "00");
}

bool CommenceParDateGarmin(std::string_view text) {
  for (const std::size_t digit : {0U, 1U, 7U, 8U}) {
    if (!EstChiffre(text, digit)) return false;
  }
  const double day = Val(text.substr(0, 2));
  return day >= 1 && day <= 31 && MoisGarmin(text.substr(3, 3)) != 0 && !EstChiffre(text, 9);
}

}  // namespace talpena
