#include "common/grouped_number.h"

#include <string_view>

#include "common/numbers.h"

namespace talpena {
namespace {

constexpr std::size_t group = 3;

std::string_view Separateur(std::int16_t langue) {
  switch (langue) {
    case 0:
      return "\u202F";
    case 1000:
      return ",";
    default:
      return ".";
  }
}

}  // namespace

std::string NombreGroupe(std::int16_t langue, std::int64_t value) {
  std::string text = Str(value);
  const std::size_t first = value < 0 ? 1 : 0;  // digits begin behind the sign
  for (std::size_t at = text.size(); at > first + group;) {
    at -= group;
    text.insert(at, Separateur(langue));
  }
  return text;
}

}  // namespace talpena
