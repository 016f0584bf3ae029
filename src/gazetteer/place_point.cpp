#include "gazetteer/place_point.h"

#include <cmath>
#include <string>

#include "common/numbers.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "gazetteer/state.h"

namespace talpena {
namespace {

std::optional<double> DegresDe(double value, std::int16_t type) {
  if (type != GeoCoord::Ddmmss) return value;
  const double whole = std::nearbyint(std::fabs(value));
  const double seconds = std::fmod(whole, 100);
  const double minutes = std::fmod(std::trunc(whole / 100), 100);
  if (minutes >= 60 || seconds >= 60) return {};
  return std::copysign(std::trunc(whole / 10000) + minutes / 60 + seconds / 3600, value);
}

std::optional<double> Coordonnee(const Cell& cell, std::int16_t type, double highest) {
  const auto value = NombreDuLieu(cell);
  const auto degrees = value ? DegresDe(*value, type) : std::nullopt;
  return degrees && std::fabs(*degrees) <= highest ? degrees : std::nullopt;
}

}  // namespace

std::optional<double> CoordonneeDuLieu(const Cell& cell) {
  const bool text = cell.kind == Cell::Kind::Text;
  if (cell.EstNull() || (text && Rogne(cell.text).empty())) return {};
  try {
    const double value = text ? Val(Remplace(cell.text, ",", ".")) : cell.Nombre();
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
  } catch (const TalpenaError&) {  // beyond all numbers
    return {};
  }
}

std::optional<double> NombreDuLieu(const Cell& cell) {
  const bool words = cell.kind == Cell::Kind::Text && !EstNumerique(cell.text);
  return words ? std::nullopt : CoordonneeDuLieu(cell);
}

std::optional<PlacePoint> PointDuLieu(const Cell& latitude, const Cell& longitude,
                                      std::int16_t type) {
  const auto north = Coordonnee(latitude, type, HighestLatitude);
  const auto east = Coordonnee(longitude, type, HighestLongitude);
  if (!north || !east) return {};
  return PlacePoint{*north, *east};
}

}  // namespace talpena
