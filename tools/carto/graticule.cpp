#include "carto/graticule.h"

#include <cmath>

#include "common/free_decimal.h"

namespace talpena {

std::vector<GraticuleLine> Graticule(double step) {
  std::vector<GraticuleLine> lines;
  for (double lat = -90 + step; lat < 90; lat += step)
    lines.push_back({true, lat, {{-180, lat}, {180, lat}}});
  for (double lon = -180; lon < 180; lon += step) {
    const double end = std::fmod(lon, 6 * step) == 0 ? 90 : 90 - step;
    lines.push_back({false, lon, {{lon, -end}, {lon, end}}});
  }
  return lines;
}

std::string TexteDegres(const GraticuleLine& line) {
  std::string text = FormeLibre(std::abs(line.degrees)).substr(1) + '\xB0';
  if (line.degrees == 0 || std::abs(line.degrees) == 180) return text;
  if (line.parallel) return text + (line.degrees > 0 ? 'N' : 'S');
  return text + (line.degrees > 0 ? 'E' : 'W');
}

}  // namespace talpena
