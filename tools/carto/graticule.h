// The parallels and meridians that are drawn on a map.
#pragma once
#include <string>
#include <vector>

#include "carto/plane_geometry.h"

namespace talpena {

struct GraticuleLine {
  bool parallel = false;
  double degrees = 0;  ///< its latitude or longitude
  Line line;           ///< longitude and latitude
};

/// One every `step` degrees. Meridians stop short of the poles, but for every sixth.
std::vector<GraticuleLine> Graticule(double step);

/// 60°N, 5.5°W, 0°; in Latin-1.
std::string TexteDegres(const GraticuleLine& line);

}  // namespace talpena
