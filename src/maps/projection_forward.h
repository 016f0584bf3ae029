// The forward functions behind Project, by the rows of Projections(). They answer with the fault
// of their arithmetic instead of raising it, since one point of a million may fail.
#pragma once
#include <cmath>

#include "common/talpena_error.h"
#include "maps/map_state.h"

namespace talpena {

enum class Fault {
  None = 0,
  InvalidCall = ErrorNumber::InvalidCall,  ///< power of a negative number
  Overflow = ErrorNumber::Overflow,
  DivisionByZero = ErrorNumber::DivisionByZero
};

/// Latitude and longitude in radians, results in kilometres. A function that fails writes nothing.
using ForwardFunction = Fault (*)(const MapState& carte, float lat, float lon, float& X, float& Y);

/// What X becomes where X and Y are both 0: the line layers take a previous point (0, 0) for none.
inline constexpr float PRESQUE_ZERO = 1E-13F;

/// Longitude from the central meridian, stored as every named number is.
inline float Ecart(const MapState& carte, float lon) { return lon - carte.MeridienCentral; }

/// The end of every forward function: two stores, metres and then kilometres.
inline Fault EnKilometres(double xM, double yM, float& X, float& Y) {
  const auto xStored = static_cast<float>(xM), yStored = static_cast<float>(yM);
  const float xKm = xStored / 1000.0F, yKm = yStored / 1000.0F;
  if (!std::isfinite(xKm) || !std::isfinite(yKm)) return Fault::Overflow;
  X = xKm;
  Y = yKm;
  return Fault::None;
}

/// The same by the rule of 1E-13.
inline Fault EnKilometresNonNuls(double xM, double yM, float& X, float& Y) {
  const Fault fault = EnKilometres(xM, yM, X, Y);
  if (fault == Fault::None && X == 0 && Y == 0) X = PRESQUE_ZERO;
  return fault;
}

Fault LambertGeneral(const MapState& carte, float lat, float lon, float& X, float& Y);

Fault Mercator(const MapState& carte, float lat, float lon, float& X, float& Y);
Fault Sinusoidale(const MapState& carte, float lat, float lon, float& X, float& Y);
Fault PlateCarree(const MapState& carte, float lat, float lon, float& X, float& Y);
Fault MillerEqui(const MapState& carte, float lat, float lon, float& X, float& Y);
Fault BSAM7(const MapState& carte, float lat, float lon, float& X, float& Y);
Fault BSAM8(const MapState& carte, float lat, float lon, float& X, float& Y);
Fault BSAM9(const MapState& carte, float lat, float lon, float& X, float& Y);

Fault Stereo(const MapState& carte, float lat, float lon, float& X, float& Y);
Fault OrthographiqueObli(const MapState& carte, float lat, float lon, float& X, float& Y);
/// A point of the other hemisphere gets HORS_CARTE in X; its Y stays as it is.
Fault OrthographiquePoleNord(const MapState& carte, float lat, float lon, float& X, float& Y);
Fault OrthographiquePoleSud(const MapState& carte, float lat, float lon, float& X, float& Y);

}  // namespace talpena
