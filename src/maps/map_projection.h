// The projections of the vector maps, a row for each code.
#pragma once
#include <span>

#include "maps/projection_forward.h"
#include "maps/projection_inverse.h"
#include "maps/projection_setup.h"

namespace talpena {

/// What the points (HORS_CARTE, HORS_CARTE) of a projection are.
enum class FarPoint : std::uint8_t {
  Failed,  ///< what its arithmetic cannot take
  Hidden   ///< also what lies behind its globe
};

struct MapProjection {
  std::int16_t code = 0;  ///< as map files name it, counted from 1
  ForwardFunction forward = nullptr;
  InverseFunction inverse = nullptr;
  SetupFunction boite = nullptr;
  SetupFunction constantes = nullptr;  ///< none: it needs none of its own
  FarPoint lointain = FarPoint::Failed;
};

std::span<const MapProjection> Projections();

/// Of the map's code; none for a map that is not georeferenced, or whose code nobody knows.
const MapProjection* ProjectionDe(const MapState& carte);

}  // namespace talpena
