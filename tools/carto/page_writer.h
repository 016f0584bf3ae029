// A drawing as PostScript for the page of the export.
#pragma once
#include <string>

#include "carto/map_drawing.h"

namespace talpena {

/// The frame of the map on the page of the export, in points: 500 along the longer side of the box.
Frame CadreDePage(const MapState& state);

/// The drawing in page coordinates, with the operators m, l, c, s and sg of the prologue; the
/// flag `coul` chooses colours or greys. The graphics state is as before when it ends.
std::string EcritDessin(const MapSheet& sheet, const MapDrawing& drawing);

}  // namespace talpena
