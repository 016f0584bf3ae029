#include "platform/foreign/paradox/fields.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "common/numbers.h"
#include "platform/foreign/paradox/big_endian.h"

namespace talpena::paradox {
namespace {

constexpr double zeroDay = 693594;  // 1899-12-30, when 0001-01-01 is day 1
constexpr double millisecondsOfDay = 86'400'000;
constexpr std::size_t bcdBytes = 17;  // the sign, and two digits a byte

/// Bytes of the types that have a size of their own; 0 for the others.
constexpr std::size_t OctetsDuType(ParadoxType type) {
  switch (type) {
    case ParadoxType::Logical:
      return 1;
    case ParadoxType::Short:
      return 2;
    case ParadoxType::Date:
    case ParadoxType::Long:
    case ParadoxType::Time:
    case ParadoxType::AutoIncrement:
      return 4;
    case ParadoxType::Currency:
    case ParadoxType::Number:
    case ParadoxType::Timestamp:
      return 8;
    case ParadoxType::Bcd:
      return bcdBytes;
    default:
      return 0;
  }
}

constexpr bool EstType(unsigned type) {
  const bool old = type >= 1 && type <= 6, late = type >= 20 && type <= 24;
  return old || late || type == 9 || (type >= 12 && type <= 16);
}

FieldType TypeDeChamp(ParadoxType type) {
  switch (type) {
    case ParadoxType::Alpha:
      return FieldType::Text;
    case ParadoxType::Date:
    case ParadoxType::Time:
    case ParadoxType::Timestamp:
      return FieldType::Date;
    case ParadoxType::Short:
      return FieldType::Integer;
    case ParadoxType::Long:
    case ParadoxType::AutoIncrement:
      return FieldType::Long;
    case ParadoxType::Currency:
      return FieldType::Currency;
    case ParadoxType::Number:
    case ParadoxType::Bcd:
      return FieldType::Double;
    case ParadoxType::Logical:
      return FieldType::Boolean;
    case ParadoxType::Memo:
    case ParadoxType::FormattedMemo:
      return FieldType::Memo;
    default:
      return FieldType::Binary;
  }
}

template <typename Signed>
Signed EntierLu(std::string_view bytes) {
  using Number = std::make_unsigned_t<Signed>;
  constexpr auto sign = static_cast<Number>(Number{1} << (8 * sizeof(Number) - 1));
  return static_cast<Signed>(NombreGrosBoutiste<Number>(bytes.data()) ^ sign);
}

/// A positive number has its sign bit set, a negative one all of its bits turned.
double ReelLu(std::string_view bytes) {
  constexpr std::uint64_t sign = std::uint64_t{1} << 63;
  const auto bits = NombreGrosBoutiste<std::uint64_t>(bytes.data());
  return std::bit_cast<double>((bits & sign) != 0 ? bits ^ sign : ~bits);
}

/// The digits behind the sign, those of a negative number taken from 15.
Cell Decimal(const Column& column, std::string_view bytes) {
  const bool positive = (static_cast<unsigned char>(bytes.front()) & 0x80) != 0;
  std::string digits = positive ? "" : "-";
  const std::size_t whole = 2 * (bcdBytes - 1) - std::min(column.decimals, 2 * (bcdBytes - 1));
  for (std::size_t i = 0; i < 2 * (bcdBytes - 1); ++i) {
    if (i == whole) digits += '.';
    const auto pair = static_cast<unsigned char>(bytes[1 + i / 2]);
    const unsigned digit = (i % 2 == 0 ? pair >> 4U : pair & 0xFU) ^ (positive ? 0U : 0xFU);
    if (digit > 9) return Cell::Null();
    digits += static_cast<char>('0' + digit);
  }
  return Cell::Of(Val(digits));
}

Cell Fini(double value) { return std::isfinite(value) ? Cell::Of(value) : Cell::Null(); }

}  // namespace

std::optional<Column> ColonneDe(unsigned type, unsigned size) {
  if (!EstType(type)) return {};
  const auto known = static_cast<ParadoxType>(type);
  if (known == ParadoxType::Bcd) {
    return Column{.name = {}, .type = known, .bytes = bcdBytes, .decimals = size};
  }
  const std::size_t fixed = OctetsDuType(known);
  const std::size_t least = EstLong(known) ? referenceBytes : 1;
  if (size < least || (fixed != 0 && size != fixed)) return {};
  return Column{.name = {}, .type = known, .bytes = size};
}

FieldDef Definition(const Column& column) {
  return {.name = column.name,
          .type = TypeDeChamp(column.type),
          .size = column.type == ParadoxType::Alpha ? static_cast<int>(column.bytes) : 0,
          .allowZeroLength = true,
          .autoIncrement = column.type == ParadoxType::AutoIncrement};
}

Cell ValeurFixe(const Column& column, std::string_view bytes) {
  if (std::ranges::all_of(bytes, [](char byte) { return byte == 0; })) return Cell::Null();
  switch (column.type) {
    case ParadoxType::Short:
      return Cell::Of(std::int64_t{EntierLu<std::int16_t>(bytes)});
    case ParadoxType::Long:
    case ParadoxType::AutoIncrement:
      return Cell::Of(std::int64_t{EntierLu<std::int32_t>(bytes)});
    case ParadoxType::Currency:
    case ParadoxType::Number:
      return Fini(ReelLu(bytes));
    case ParadoxType::Logical:
      return Cell::Of(std::int64_t{(bytes.front() & 0x7F) != 0 ? -1 : 0});
    case ParadoxType::Date:
      return Cell::Of(EntierLu<std::int32_t>(bytes) - zeroDay);
    case ParadoxType::Time:
      return Cell::Of(EntierLu<std::int32_t>(bytes) / millisecondsOfDay);
    case ParadoxType::Timestamp:
      return Fini(ReelLu(bytes) / millisecondsOfDay - zeroDay);
    case ParadoxType::Bcd:
      return Decimal(column, bytes);
    default:  // Bytes
      return Cell::Of(bytes);
  }
}

std::string_view TexteAlpha(std::string_view bytes) { return bytes.substr(0, bytes.find('\0')); }

void PoseCourt(char* into, std::int16_t value) {
  PoseGrosBoutiste(into, static_cast<std::uint16_t>(static_cast<std::uint16_t>(value) ^ 0x8000U));
}

void PoseNombreReel(char* into, double value) {
  constexpr std::uint64_t sign = std::uint64_t{1} << 63;
  const auto bits = std::bit_cast<std::uint64_t>(value == 0 ? 0.0 : value);
  PoseGrosBoutiste(into, (bits & sign) != 0 ? ~bits : bits | sign);
}

void PoseLogique(char* into, bool value) { *into = static_cast<char>(value ? 0x81 : 0x80); }

void PoseMoment(char* into, double days) {
  PoseNombreReel(into, std::round((days + zeroDay) * millisecondsOfDay));
}

}  // namespace talpena::paradox
