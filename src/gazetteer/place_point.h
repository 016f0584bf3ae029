// The point of a place, as its table stores it.
#pragma once
#include <cstdint>
#include <optional>

#include "platform/value.h"

namespace talpena {

/// Degrees that no coordinate exceeds.
inline constexpr double HighestLatitude = 90, HighestLongitude = 180;

/// A stored coordinate as a search reads it: of a text the number that it begins with, with a point
/// or a comma, and 0 when it begins with none. Empty for Null, for blanks and beyond all numbers.
std::optional<double> CoordonneeDuLieu(const Cell& cell);

/// The same, but of a text only when it is a number as a whole.
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
