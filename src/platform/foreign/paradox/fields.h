// Columns of a Paradox table and their values as bytes. Pure functions.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/table_engine.h"
#include "platform/value.h"

namespace talpena::paradox {

/// Column types as the file numbers them.
enum class ParadoxType : std::uint8_t {
  Alpha = 1,
  Date = 2,
  Short = 3,
  Long = 4,
  Currency = 5,
  Number = 6,
  Logical = 9,
  Memo = 12,
  Binary = 13,
  FormattedMemo = 14,
  Ole = 15,
  Graphic = 16,
  Time = 20,
  Timestamp = 21,
  AutoIncrement = 22,
  Bcd = 23,
  Bytes = 24
};

struct Column {
  std::string name;
  ParadoxType type = ParadoxType::Alpha;
  std::size_t bytes = 0;     ///< in a record
  std::size_t decimals = 0;  ///< of a Bcd
};

/// Behind the beginning of a long value a record has its length and where the rest is.
inline constexpr std::size_t referenceBytes = 10;

/// True for values that may stand in the memo file.
constexpr bool EstLong(ParadoxType type) {
  return type >= ParadoxType::Memo && type <= ParadoxType::Graphic;
}
constexpr bool EstTexteLong(ParadoxType type) {
  return type == ParadoxType::Memo || type == ParadoxType::FormattedMemo;
}

/// A column as the head of a table describes it, without its name; empty for a type that there is
/// not, or a size that it does not have.
std::optional<Column> ColonneDe(unsigned type, unsigned size);

/// What the table engine is told of it.
FieldDef Definition(const Column& column);

/// A number, a date or a Logical; Null for a blank and for what is no number. Times and dates are
/// days since 1899-12-30.
Cell ValeurFixe(const Column& column, std::string_view bytes);

/// The characters of an Alpha.
std::string_view TexteAlpha(std::string_view bytes);

/// Numbers stand most significant byte first, turned so that bytes compare as the numbers do; what
/// is blank is all zeroes. The inverse of ValeurFixe for the types that are written.
void PoseCourt(char* into, std::int16_t value);  ///< not -32768, which is the blank
void PoseNombreReel(char* into, double value);   ///< finite; two zeroes are one
void PoseLogique(char* into, bool value);
void PoseMoment(char* into, double days);  ///< a Timestamp

/// Days of the first and the last moment that a Timestamp may have.
inline constexpr double premierJour = -657434;  // 0100-01-01
inline constexpr double dernierJour = 2958466;  // 10000-01-01, which is too late

}  // namespace talpena::paradox
