// The inverse functions behind ProjectionInverse. Their x and y are metres already; they raise the
// faults of their arithmetic.
#pragma once
#include "maps/map_state.h"

namespace talpena {

/// Metres to radians.
using InverseFunction = void (*)(const MapState& carte, float x, float y, float& lat, float& lon);

void LambertInverse(const MapState& carte, float x, float y, float& lat, float& lon);

void MercatorInverse(const MapState& carte, float x, float y, float& lat, float& lon);
void SinusoidaleInverse(const MapState& carte, float x, float y, float& lat, float& lon);
void PlateCarreeInverse(const MapState& carte, float x, float y, float& lat, float& lon);
void MillerEquiInverse(const MapState& carte, float x, float y, float& lat, float& lon);
void BSAM7Inverse(const MapState& carte, float x, float y, float& lat, float& lon);
void BSAM8Inverse(const MapState& carte, float x, float y, float& lat, float& lon);
void BSAM9Inverse(const MapState& carte, float x, float y, float& lat, float& lon);

/// The longitude stays as it is where the distance from the centre decides nothing about it.
void StereoInverse(const MapState& carte, float x, float y, float& lat, float& lon);
/// Outside the disc of the globe 0 and 0.
void OrthoObliqueInverse(const MapState& carte, float x, float y, float& lat, float& lon);

}  // namespace talpena
