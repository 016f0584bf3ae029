// What a published map shows beside the map itself: degrees along its neat line, a scale bar, its
// projection and where its data come from.
#pragma once
#include <string>
#include <vector>

#include "carto/map_sheet.h"

namespace talpena {

struct PlacedText {
  PlanePoint at;  ///< kilometres of the map
  double across;  ///< what of the text lies on the place: 0 its left, 0.5 its middle, 1 its right
  std::string text;  ///< Latin-1
};

struct MapFurniture {
  std::vector<Line> lines;        ///< of the scale bar, kilometres
  std::vector<PlacedText> texts;  ///< their base lines stand on the places
};

/// @param emKm  size of the letters in kilometres of the map: pictures and pages have letters of
///              their own size
MapFurniture Garnit(const MapSheet& sheet, double emKm);

/// The name of the projection with its parameters; Latin-1.
std::string NomProjection(const MapRow& row);

}  // namespace talpena
