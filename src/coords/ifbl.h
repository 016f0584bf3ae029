// The IFBL grid: letter and digits over Lambert belge 1972. Pure; no datum is changed here.
//
// 120 rectangles of 32 by 20 km ("G3"), each of 40 squares of 4 km ("G336"), each of 16 squares of
// 1 km ("G33643"), from x = 2012, y = 18180 to x = 322012, y = 258180.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace talpena {

/// South-west corner and extent of the grid, metres of Lambert belge 1972.
inline constexpr int IfblOuest = 2012;
inline constexpr int IfblSud = 18180;
inline constexpr int IfblEst = 322012;
inline constexpr int IfblNord = 258180;

/// Centre of the square that a code names.
///
/// @param code   2, 4 or 6 characters, in any case; blanks do not count
/// @param x, y   metres; left as they were when the code is refused
/// @param error  0, or -1 for a code of another length, one of row "I" and one behind row "M".
///               Characters without a meaning are not refused: a digit that is none counts 0, a
///               pair outside the table moves nothing, a sign before "A" is the row south of "M".
void IfblVersLambert(std::string_view code, double& x, double& y, std::int16_t& error);

/// Whether a square of the grid has a code: its centre lies in the grid and has this code.
bool NommeCarreIfbl(std::string_view code);

/// Code of the square that holds a point. Inside the grid, IfblVersLambert's inverse. Around it,
/// and still inside the bounds, the code has letters, digits or a length of no square ("@0",
/// "A10", "M0910").
///
/// @param x, y   metres, from 0 and below 350000 and 270000
/// @param code   upper case; left as it was outside these bounds
/// @param error  0, or 1 outside the bounds
/// @param level  2, 4 or 6: the length of the code
void LambertVersIfbl(double x, double y, std::string& code, std::int16_t& error, int level);

}  // namespace talpena
