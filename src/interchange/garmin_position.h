// Positions as MapSource writes them on the seven grids of its import, as ORIGINAL.
#pragma once
#include <string>
#include <string_view>

namespace talpena {

/// ORIGINAL of a position, the code before it; "" on the grid UTM and where no grid is chosen.
/// Digits of a fraction that the column has no room for are rounded away; they stand for less than
/// 3 m. SubscriptOutOfRange (9) for a position with fewer parts than its grid has, InvalidCall (5)
/// for one in MGRS below twelve characters, Overflow (6) for numbers without end.
///
/// @param grid  of GrillesGarmin, or -1
std::string OriginalDePosition(int grid, std::string_view position);

/// Base id of what is odd about a position in degrees that has a place: no letter of a hemisphere,
/// no numbers, more than 60 minutes. 0 for nothing, and on the grids without degrees.
int DouteDePosition(int grid, std::string_view position);

}  // namespace talpena
