// Values of table cells: `Cell` as they pass by, `Value` as they are kept.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace talpena {

/// Null, whole number, real number or UTF-8 text (also raw bytes of a binary column).
using Value = std::variant<std::monostate, std::int64_t, double, std::string>;

/// One cell on its way into or out of a table. The text is borrowed: from a recordset it is
/// valid until the recordset moves, changes or closes.
struct Cell {
  enum class Kind : std::uint8_t { Null, Integer, Real, Text };

  Kind kind = Kind::Null;
  std::int64_t integer = 0;
  double real = 0;
  std::string_view text;

  static Cell Null() { return {}; }
  static Cell Of(std::int64_t v) { return {Kind::Integer, v, 0, {}}; }
  static Cell Of(double v) { return {Kind::Real, 0, v, {}}; }
  static Cell Of(std::string_view v) { return {Kind::Text, 0, 0, v}; }

  bool EstNull() const { return kind == Kind::Null; }

  /// As a number; a text through Val, Null as 0.
  double Nombre() const;
  /// As shown: Null "", numbers by Str (a whole number without a point).
  std::string Texte() const;

  Value Garde() const;                 ///< a copy that lasts
  static Cell Vue(const Value& kept);  ///< borrowed from a kept value
};

}  // namespace talpena
