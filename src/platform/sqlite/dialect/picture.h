// Numbers and dates as a picture shows them ("0.00", "dd/mm/yyyy"), for Format. Pure functions. The
// signs are those of US English, whatever the user's system has; the short date is the engine's
// own, yyyy/mm/dd.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace talpena::sqlite {

/// Characters of the longest picture.
inline constexpr std::size_t LongestPicture = 255;

/// Digits: "0" one that is always there, "#" one where there is one, "." the point, "," between
/// digits groups of three and before the point a thousandth, "%" a hundredfold, "E+00" or "E-00" an
/// exponent. Text between quotes or behind "\" stands for itself, as all other characters do. Up
/// to three parts with ";" between: above 0, below 0, 0. Or a name: "General Number", "Currency",
/// "Fixed", "Standard", "Percent", "Scientific", "Yes/No", "True/False", "On/Off". Halves are
/// rounded away from 0, by the 15 digits that a number has.
std::string FormateNombre(double value, std::string_view picture);

/// True for one of these names.
bool EstNomDeNombre(std::string_view picture);

/// d dd ddd dddd, m mm mmm mmmm, yy yyyy, h hh, n nn, s ss, am/pm, q (quarter), w (day of the week
/// from Sunday), ww (week), y (day of the year), ddddd (short date), ttttt (time), c (both); m
/// behind h is a minute. Or a name: "General Date", "Long Date", "Medium Date", "Short Date", "Long
/// Time", "Medium Time", "Short Time".
///
/// @param days  since 30 December 1899; the time of day is its fraction
std::string FormateDate(double days, std::string_view picture);

/// True for a picture that shows dates and no numbers.
bool EstImageDeDate(std::string_view picture);

/// A picture in pieces: what stands for itself, and runs of one character in any case.
struct PicturePiece {
  char sign = '\0';  ///< that character, a letter of ASCII in small; 0 for what stands for itself
  std::string_view text;
};
std::vector<PicturePiece> DecoupeImage(std::string_view picture);  ///< views of it

}  // namespace talpena::sqlite
