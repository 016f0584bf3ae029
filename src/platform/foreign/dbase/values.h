// Values of dBase and FoxPro tables as the bytes of a row have them.
#pragma once
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace talpena::dbase {

/// Without the blanks and NUL bytes at its end.
std::string_view SansFin(std::string_view text);

/// A number with a point or a comma. Empty for blanks, stars (a number that had no room) and
/// whatever else is none.
std::optional<double> LitNombre(std::string_view field);

/// "yyyymmdd" in days since 1899-12-30; empty for blanks, zeros and days that there are not.
std::optional<double> LitDate(std::string_view field);

/// T, Y or F, N; empty for anything else.
std::optional<bool> LitLogique(std::string_view field);

// The same into a row. False, with the field left as it was, for what has no room in it.

/// The shortest digits that give the same number, zeros added up to so many decimals as there is
/// room for; with an exponent where only that fits. To the right.
bool EcritNombre(std::span<char> field, double value, int decimals);
/// The same for the shortest digits of a 32-bit float.
bool EcritSimple(std::span<char> field, float value, int decimals);
/// Whole days of the years 1 to 9999.
bool EcritDate(std::span<char> field, double days);

}  // namespace talpena::dbase
