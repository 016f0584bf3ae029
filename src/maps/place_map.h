// A small map around one place, without a map file: coasts, borders and waters of the shipped
// layers, and points on them.
#pragma once
#include <span>
#include <string>

#include "platform/canvas.h"
#include "platform/files.h"

namespace talpena {

struct PlaceMap {
  float latitude = 0, longitude = 0;             ///< decimal degrees, of the place in the middle
  double halfHeightKm = 100;                     ///< from the middle to the upper and lower edge
  std::span<const float> latitudes, longitudes;  ///< of the records, a point each
};

/// Clears the canvas, which has a size by now, sets its user scale to kilometres around the place
/// and draws. Layers that are not in `folder`, or cannot be read, are left out.
void TracePlaceMap(Canvas& canvas, FileSystem& files, const std::string& folder,
                   const PlaceMap& map);

/// The height of a map that shows the nearest record too, in reason: kilometres to it from the
/// place, negative for none.
double DemiHauteurPour(double nearestKm);

}  // namespace talpena
