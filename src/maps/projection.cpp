#include "maps/projection.h"

#include <array>

#include "common/numbers.h"
#include "maps/map_projection.h"

namespace talpena {
namespace {

// clang-format off
constexpr std::array rangees = {
    MapProjection{1, LambertGeneral, LambertInverse, BoiteDuCoin, ConstantesLambert},
    MapProjection{2, Mercator, MercatorInverse, BoiteDuMeridien},
    MapProjection{3, Stereo, StereoInverse, BoiteDuCoin, CentreStereo},
    MapProjection{4, Sinusoidale, SinusoidaleInverse, BoiteSinusoidale},
    MapProjection{5, PlateCarree, PlateCarreeInverse, BoiteDuMeridien},
    MapProjection{6, MillerEqui, MillerEquiInverse, BoiteDuMeridien},
    MapProjection{7, BSAM7, BSAM7Inverse, BoiteDuMeridien},
    MapProjection{8, BSAM8, BSAM8Inverse, BoiteDuMeridien},
    MapProjection{9, BSAM9, BSAM9Inverse, BoiteDuMeridien, FacteurBSAM9},
    // Codes 10 to 12 keep the centre that stands.
    // Held by Orthographic.KeepsTheCentreOfTheMapBefore.
    MapProjection{10, OrthographiqueObli, OrthoObliqueInverse, BoiteDuGlobe, nullptr, FarPoint::Hidden},
    MapProjection{11, OrthographiquePoleNord, OrthoObliqueInverse, BoiteDuPoleNord, nullptr, FarPoint::Hidden},
    MapProjection{12, OrthographiquePoleSud, OrthoObliqueInverse, BoiteDuPoleSud, nullptr, FarPoint::Hidden},
    MapProjection{13, OrthographiqueObli, OrthoObliqueInverse, BoiteDuGlobe, CentreOrtho, FarPoint::Hidden},
};
// clang-format on

constexpr bool SuiventLeursCodes() {
  for (std::size_t i = 0; i < rangees.size(); ++i) {
    if (rangees[i].code != static_cast<int>(i) + 1) return false;
  }
  return true;
}
static_assert(SuiventLeursCodes(), "a projection stands in the row of its code");

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

std::span<const MapProjection> Projections() { return rangees; }

const MapProjection* ProjectionDe(const MapState& carte) {
  const int code = carte.CodeProjection;
  return code >= 1 && code <= static_cast<int>(rangees.size())
             ? &rangees[static_cast<std::size_t>(code) - 1]
             : nullptr;
}

void Project(const MapState& carte, float lat, float lon, float& X, float& Y) {
  const MapProjection* projection = ProjectionDe(carte);
  if (projection == nullptr) return;
  const Fault fault = Applique(projection->forward, carte, lat, lon, X, Y);
  if (fault != Fault::None) Souleve(fault);
}

void ProjectPoints(const MapState& carte, std::span<const float> lat, std::span<const float> lon,
                   std::span<float> X, std::span<float> Y) {
  const MapProjection* projection = ProjectionDe(carte);
  if (projection == nullptr) return;
  const ForwardFunction forward = projection->forward;
  for (std::size_t i = 0; i < lat.size(); ++i) {
    if (Applique(forward, carte, lat[i], lon[i], X[i], Y[i]) != Fault::None)
      X[i] = Y[i] = HORS_CARTE;
  }
}

void ProjectionInverse(const MapState& carte, float X, float Y, float& lat, float& lon) {
  const MapProjection* projection = ProjectionDe(carte);
  if (projection == nullptr) return;
  projection->inverse(carte, EnSimple(X * 1000.0), EnSimple(Y * 1000.0), lat, lon);
}

float ChangeLongi(const MapState& carte, float lon) {
  return EnSimple(static_cast<double>(lon) + carte.DecalageLongitude);
}

}  // namespace talpena
