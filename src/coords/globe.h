// Where a point can lie.
#pragma once
#include <cmath>

namespace talpena {

/// Brings a computed point, decimal degrees, where it is stored: a longitude above 180 loses 360.
/// False when it lies nowhere on the globe then: a latitude beyond 90 or a longitude beyond 180,
/// either way, or what is no number.
inline bool RameneSurGlobe(double latitude, double& longitude) {
  if (longitude > 180) longitude -= 360;
  return std::fabs(latitude) <= 90 && std::fabs(longitude) <= 180;
}

}  // namespace talpena
