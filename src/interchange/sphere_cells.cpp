#include "interchange/sphere_cells.h"

#include <cmath>

#include "coords/datum.h"

namespace talpena {
namespace {

constexpr double earthKm = 6371;

}  // namespace

SpherePoint SurSphere(double latitude, double longitude) {
  const double phi = EnRadians(latitude), lambda = EnRadians(longitude);
  return {static_cast<float>(std::cos(phi) * std::cos(lambda)),
          static_cast<float>(std::cos(phi) * std::sin(lambda)), static_cast<float>(std::sin(phi))};
}

double CordeDe(double km) { return 2 * std::sin(km / earthKm / 2); }

SphereCell CelluleDe(SpherePoint point, double side) {
  const auto index = [side](float value) {
    return static_cast<std::int16_t>(std::floor(value / side));
  };
  return {index(point.x), index(point.y), index(point.z)};
}

std::uint64_t CleDe(SphereCell cell) {
  std::uint64_t key = 0;
  for (const std::int16_t index : cell) key = key << 16 | static_cast<std::uint16_t>(index);
  return key;
}

}  // namespace talpena
