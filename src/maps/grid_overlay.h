// The grid over the map, and the grid reference of a position.
#pragma once
#include <string>

#include "maps/map_context.h"
#include "maps/map_sink.h"

namespace talpena {

/// Draws the grid: the parallels, and the meridians where nodes are joined. With `ask` the user
/// gives the step first, on the screen.
void DisplayGrid(MapContext c, MapSink& sink, bool ask);

/// Constants of UTM, on the International ellipsoid.
void InitUtm(MapState& carte);

/// North and east in metres and the text of the reference; 0, 0 and "" beyond 84 N and 80 S.
void UTM(const MapState& carte, float lat, float lon, float& north, float& east, std::string& text);

}  // namespace talpena
