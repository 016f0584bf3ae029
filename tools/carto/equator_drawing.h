// The map of code 10: its projection lays every place on one line.
#pragma once
#include "carto/map_drawing.h"

namespace talpena {

/// The globe seen from over the equator, of which this projection keeps the distance east alone: a
/// disc of water and, where all points are drawn, the land of the equator as a band with a mark at
/// every step of the graticule.
MapDrawing DessineEquateur(const MapSheet& sheet, const GeoData& data);

}  // namespace talpena
