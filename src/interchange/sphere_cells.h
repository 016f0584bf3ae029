// Points on the unit sphere and the cubes of space that they lie in.
#pragma once
#include <array>
#include <cstdint>

namespace talpena {

struct SpherePoint {
  float x = 0;
  float y = 0;
  float z = 0;
};

SpherePoint SurSphere(double latitude, double longitude);  ///< decimal degrees

/// Straight through the unit sphere, between points that far from each other on the Earth.
double CordeDe(double km);

using SphereCell = std::array<std::int16_t, 3>;

SphereCell CelluleDe(SpherePoint point, double side);
std::uint64_t CleDe(SphereCell cell);  ///< another one for each cell

/// Calls `visit` with the keys of the cells up to `reach` off a cell, and its own, until it answers
/// true; whether it did.
template <typename Visit>
bool ParcourtVoisines(SphereCell cell, int reach, Visit visit) {
  for (int i = -reach; i <= reach; ++i) {
    for (int j = -reach; j <= reach; ++j) {
      for (int k = -reach; k <= reach; ++k) {
        const SphereCell there{static_cast<std::int16_t>(cell[0] + i),
                               static_cast<std::int16_t>(cell[1] + j),
                               static_cast<std::int16_t>(cell[2] + k)};
        if (visit(CleDe(there))) return true;
      }
    }
  }
  return false;
}

}  // namespace talpena
