// What is drawn on a map, in the order of drawing; the picture and the PostScript drawing are made
// from it alike.
#pragma once
#include <cstdint>
#include <vector>

#include "carto/geo_source.h"
#include "carto/map_sheet.h"

namespace talpena {

/// One kind of thing on a map.
enum class Matter : std::uint8_t {
  Water,
  IceShelf,
  Land,
  Graticule,
  River,
  GreatRiver,
  Lake,
  LakeShore,
  IceFront,
  Province,
  Border,
  DisputedBorder,
  Coast,
  Limb,
};

/// Filled where it has a surface, drawn as lines where it has lines. Kilometres.
struct DrawnLayer {
  Matter matter = Matter::Water;
  Surface surface;
  std::vector<Line> lines;
};

using MapDrawing = std::vector<DrawnLayer>;

/// How a matter looks. Width and dash are pixels of the picture at its normal size; the page is
/// scaled alike.
struct Ink {
  std::uint8_t red, green, blue;
  double grey;   ///< on a page without colours; 0 is black
  double width;  ///< 0 for a surface
  double dash;   ///< length of a dash and of a gap; 0 for a solid line
};
Ink EncreDe(Matter matter, Detail detail);

/// Size of the picture in pixels: the proportions of the map's box.
struct PictureSize {
  int width = 0;
  int height = 0;
};
PictureSize TailleImage(const MapState& state);

MapDrawing Dessine(const MapSheet& sheet, const GeoData& data);

}  // namespace talpena
