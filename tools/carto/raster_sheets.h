// The raster maps as sheets to draw on.
#pragma once
#include <span>

#include "carto/map_sheet.h"
#include "maps/raster/raster_map.h"

namespace talpena {

/// How one of CartesRaster is drawn.
struct RasterStyle {
  CarteRaster map;
  Detail detail;
  float graticule;    ///< step, degrees
  float barParallel;  ///< the scale bar is true there; most are not true to scale on the map itself
};

std::span<const RasterStyle> StylesRaster();

MapSheet FeuilleRaster(const RasterStyle& style);

/// Longer side of the pictures, pixels.
inline constexpr int CoteRaster = 1600;

}  // namespace talpena
