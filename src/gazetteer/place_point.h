// The point of a place, as its table stores it.
#pragma once
#include <cstdint>
#include <optional>

#include "platform/value.h"

namespace talpena {

/// Degrees that no coordinate exceeds.
inline constexpr double HighestLatitude = 90, HighestLongitude = 180;

/// A number of a table; a text has to be one as a whole, with a point or a comma. Empty for
/// anything else.
std::optional<double> NombreDuLieu(const Cell& cell);

/// Decimal degrees, north and east positive.
struct PlacePoint {
  double latitude = 0;
  double longitude = 0;
};

/// The point of two stored values, when they are one on earth: whole DDMMSS with fewer than 60
/// minutes and seconds for type 0, decimal degrees for type 1.
std::optional<PlacePoint> PointDuLieu(const Cell& latitude, const Cell& longitude,
                                      std::int16_t type);

}  // namespace talpena
