// Numbers as the system reads and writes them, never through the user's locale.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace talpena {

/// Value of the leading number of a text. Blanks (and tabs, line feeds) are skipped anywhere in
/// it, so "+ 4.50000" is 4.5. A sign, digits, one point and an exponent (E or D, with digits
/// behind it) are taken; reading stops at the first character that cannot continue the number.
/// 0 when there is none. A comma is not a point: callers replace it first. A value beyond the
/// range of a double raises Overflow (6).
double Val(std::string_view text);

/// True when the whole text, blanks around it aside, is one number in the grammar of Val with a
/// point or a comma as its decimal sign.
bool EstNumerique(std::string_view text);

/// Plain number to text: the shortest decimal that reads back as the same value, with a point,
/// a minus for negatives, no leading blank, and an exponent only beyond 15 digits ("1E+20").
std::string Str(double value);
std::string Str(float value);
std::string Str(std::int64_t value);
/// The same for a 32-bit float with the digits that it is sure of: seven at most.
std::string StrSimple(float value);

/// A number through a mask: up to three sections for positive (and zero), negative, zero,
/// separated by ";". "0" is a place always written, "#" one written when needed, "." the point,
/// every other character, and all that stands in double quotes, is literal. With one section a
/// negative number gets a leading "-". Halves are rounded away from zero on the exact decimal value
/// of the argument. "#" alone writes no zero: 0.5 by "+##.#####" is "+.5" and 50 is "+50.".
std::string Format(double value, std::string_view mask);

/// Largest integer not above the value; the value without its fraction.
double Int(double value);
double Fix(double value);

/// Rounded to an integer, halves to even. Beyond 16 or 32 bits, or NaN: Overflow (6).
std::int16_t Arrondi16(double value);
std::int32_t Arrondi32(double value);

/// Stored as a 32-bit float, as LATITUDE and LONGITUDE are. Beyond its range: Overflow (6).
float EnSimple(double value);

}  // namespace talpena
