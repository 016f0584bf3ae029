// How much of the land on a map its symbols cover.
#pragma once
#include <array>
#include <optional>

#include "maps/map_context.h"

namespace talpena {

/// Diameters that the options dialog offers beside the automatic one, kilometres.
inline constexpr std::array<int, 7> DiametresOfferts{3, 6, 10, 20, 30, 50, 100};

/// The diameter to take where automatic symbols of the rows to be drawn would cover more than
/// a tenth of the land shown: the greatest of those offered that covers no more, or the least.
/// Ground under several symbols counts once. Empty where there is nothing to advise: automatic
/// symbols cover less, there are no rows, or the map is not georeferenced.
///
/// @param landShare  part of the map that is land, 0 to 1
std::optional<int> ConseilDiametre(MapContext c, double landShare);

}  // namespace talpena
