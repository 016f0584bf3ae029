#include "platform/foreign/excel/cell_number.h"

#include <array>
#include <charconv>
#include <cmath>

#include "common/talpena_error.h"

namespace talpena::excel {

double NombreDeCellule(const Cell& cell, FieldType type) {
  double value = cell.Nombre();
  if (!std::isfinite(value)) throw TalpenaError(ErrorNumber::Overflow, "Overflow.");
  if (type != FieldType::Single) return value;
  std::array<char, 64> digits{};
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<float>(value)).ptr;
  std::from_chars(digits.data(), end, value);
  return value;
}

}  // namespace talpena::excel
