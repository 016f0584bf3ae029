// Numbers as the columns of text files hold them, digit by digit: what a mask makes of them, at a
// fraction of its time.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace talpena {

/// How a coordinate with five decimals stands in its columns.
struct DegreeColumns {
  std::string_view mask;  ///< that gives the same, blanks at the left end aside
  std::size_t integerPlaces = 0;
  char positiveSign = '+';
  char fill = '0';  ///< in integer places without a digit
};

/// Adds a coordinate, decimal degrees; halves are rounded away from zero on the exact value of the
/// float, and what rounds to zero has the positive sign.
void AjouteDegres(std::string& bytes, float value, const DegreeColumns& columns);

/// Adds a whole number with zeros on the left up to `places` digits; a minus stands before them.
void AjouteEntier(std::string& bytes, std::int64_t value, std::size_t places = 1);

}  // namespace talpena
