#include "maps/projection.h"

#include <algorithm>
#include <array>

#include "common/numbers.h"
#include "maps/projection_forward.h"
#include "maps/projection_inverse.h"

namespace talpena {
namespace {

struct Projection {
  ForwardFunction forward = nullptr;
  InverseFunction inverse = nullptr;
};

constexpr std::array<Projection, 14> Projections{{
    {},  // not georeferenced
    {LambertGeneral, LambertInverse},
    {Mercator, MercatorInverse},
    {Stereo, StereoInverse},
    {Sinusoidale, SinusoidaleInverse},
    {PlateCarree, PlateCarreeInverse},
    {MillerEqui, MillerEquiInverse},
    {BSAM7, BSAM7Inverse},
    {BSAM8, BSAM8Inverse},
    {BSAM9, BSAM9Inverse},
    {OrthographiqueObli, OrthoObliqueInverse},
    {OrthographiquePoleNord, OrthoObliqueInverse},
    {OrthographiquePoleSud, OrthoObliqueInverse},
    {OrthographiqueObli, OrthoObliqueInverse},
}};

/// Of the map's code; empty for a code that projects nothing.
Projection ProjectionDe(const MapState& carte) {
  const auto code = static_cast<std::size_t>(std::max<std::int16_t>(carte.CodeProjection, 0));
  return code < Projections.size() ? Projections[code] : Projection{};
}

Fault Applique(ForwardFunction forward, const MapState& carte, float lat, float lon, float& X,
               float& Y) {
  if (!std::isfinite(lat) || !std::isfinite(lon)) return Fault::Overflow;
  return forward(carte, lat, lon, X, Y);
}

[[noreturn]] void Souleve(Fault fault) {
  switch (fault) {
    case Fault::DivisionByZero:
      throw TalpenaError(ErrorNumber::DivisionByZero, "Division by zero");
    case Fault::InvalidCall:
      throw TalpenaError(ErrorNumber::InvalidCall, "Invalid procedure call or argument");
    default:
      throw TalpenaError(ErrorNumber::Overflow, "Overflow");
  }
}

}  // namespace

void Project(const MapState& carte, float lat, float lon, float& X, float& Y) {
  const ForwardFunction forward = ProjectionDe(carte).forward;
  if (forward == nullptr) return;
  const Fault fault = Applique(forward, carte, lat, lon, X, Y);
  if (fault != Fault::None) Souleve(fault);
}

void ProjectPoints(const MapState& carte, std::span<const float> lat, std::span<const float> lon,
                   std::span<float> X, std::span<float> Y) {
  const ForwardFunction forward = ProjectionDe(carte).forward;
  if (forward == nullptr) return;
  for (std::size_t i = 0; i < lat.size(); ++i) {
    if (Applique(forward, carte, lat[i], lon[i], X[i], Y[i]) != Fault::None)
      X[i] = Y[i] = HORS_CARTE;
  }
}

void ProjectionInverse(const MapState& carte, float X, float Y, float& lat, float& lon) {
  const InverseFunction inverse = ProjectionDe(carte).inverse;
  if (inverse != nullptr) inverse(carte, EnSimple(X * 1000.0), EnSimple(Y * 1000.0), lat, lon);
}

float ChangeLongi(const MapState& carte, float lon) {
  return EnSimple(static_cast<double>(lon) + carte.DecalageLongitude);
}

}  // namespace talpena
