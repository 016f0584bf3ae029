// Dates as receivers write them, 17-APR-02.
#pragma once
#include <string>
#include <string_view>

namespace talpena {

/// The month of a name in upper-case English, JAN to DEC, compared exactly: 1 to 12, or 0.
int MoisGarmin(std::string_view name);

/// dd-MMM-yy as yyyy/mm/dd, the date of a .deg row: two-digit years above 80 lie in the 1900s, all
/// others in the 2000s; an unknown month is 00. A text without digits is 2000/00/00.
std::string GDate(std::string_view text);

/// Whether a text begins with a date that GDate reads as it is meant: a day from 1 to 31, a month
/// in capitals, and a year of two digits, not of four.
bool CommenceParDateGarmin(std::string_view text);

}  // namespace talpena
