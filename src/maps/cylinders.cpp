// Codes 2 and 4 to 9: cylinders and the sinusoidal, all on the sphere of the semi-major axis.
#include <cmath>

#include "common/numbers.h"
#include "coords/faults.h"
#include "maps/figure.h"
#include "maps/projection_forward.h"
#include "maps/projection_inverse.h"

namespace talpena {
namespace {

constexpr float LimiteMercator = 1.37881F;  // radians, about 79 degrees

Fault BSAM(const MapState& carte, float k, float lat, float lon, float& X, float& Y) {
  return EnKilometresNonNuls(k * Figure::A * Ecart(carte, lon),
                             (k + 1.0) * Figure::A * std::tan(lat / 2.0), X, Y);
}

void BSAMInverse(const MapState& carte, float k, float x, float y, float& lat, float& lon) {
  lon = EnSimple(Divise(x, k * Figure::A) + carte.MeridienCentral);
  lat = EnSimple(2 * std::atan(Divise(y, (k + 1.0) * Figure::A)));
}

}  // namespace

// The projection's eccentricity is its own and 0, so that the term of the ellipsoid is 1 both ways.
Fault Mercator(const MapState& carte, float lat, float lon, float& X, float& Y) {
  if (lat <= -LimiteMercator) lat = -LimiteMercator;
  if (lat >= LimiteMercator) lat = LimiteMercator;
  const auto T = static_cast<float>(std::tan((Figure::PiSur2 - lat) * 0.5));
  return EnKilometresNonNuls(Ecart(carte, lon) * Figure::A,
                             std::log(static_cast<double>(T)) * -Figure::A, X, Y);
}

Fault Sinusoidale(const MapState& carte, float lat, float lon, float& X, float& Y) {
  return EnKilometres(Ecart(carte, lon) * Figure::A * std::cos(static_cast<double>(lat)),
                      lat * Figure::A, X, Y);
}

Fault PlateCarree(const MapState& carte, float lat, float lon, float& X, float& Y) {
  return EnKilometres(Ecart(carte, lon) * Figure::A, lat * Figure::A, X, Y);
}

Fault MillerEqui(const MapState& carte, float lat, float lon, float& X, float& Y) {
  return EnKilometresNonNuls(static_cast<double>(Ecart(carte, lon)) * carte.k6, lat * Figure::A, X,
                             Y);
}

Fault BSAM7(const MapState& carte, float lat, float lon, float& X, float& Y) {
  return BSAM(carte, carte.k7, lat, lon, X, Y);
}
Fault BSAM8(const MapState& carte, float lat, float lon, float& X, float& Y) {
  return BSAM(carte, carte.k8, lat, lon, X, Y);
}
Fault BSAM9(const MapState& carte, float lat, float lon, float& X, float& Y) {
  return BSAM(carte, carte.k9, lat, lon, X, Y);
}

void MercatorInverse(const MapState& carte, float x, float y, float& lat, float& lon) {
  constexpr double piSur2 = 1.5707963267949;  // of this function alone
  const float t = EnSimple(std::exp(-y / Figure::A));
  float phi = EnSimple(piSur2 - 2 * std::atan(static_cast<double>(t)));
  for (int i = 0; i < 15; ++i) {
    const float d = EnSimple(piSur2 - 2 * std::atan(static_cast<double>(t)) - phi);
    phi = EnSimple(static_cast<double>(phi) + d);
    if (std::abs(d) <= 2.7E-7) break;
  }
  lat = phi;
  lon = EnSimple(x / Figure::A + carte.MeridienCentral);
}

void SinusoidaleInverse(const MapState& carte, float x, float y, float& lat, float& lon) {
  lat = EnSimple(y / Figure::A);
  lon = EnSimple(Divise(x, Figure::A * std::cos(static_cast<double>(lat))) + carte.MeridienCentral);
}

void PlateCarreeInverse(const MapState& carte, float x, float y, float& lat, float& lon) {
  lon = EnSimple(x / Figure::A + carte.MeridienCentral);
  lat = EnSimple(y / Figure::A);
}

void MillerEquiInverse(const MapState& carte, float x, float y, float& lat, float& lon) {
  lon = EnSimple(Divise(x, carte.k6) + carte.MeridienCentral);
  lat = EnSimple(y / Figure::A);
}

void BSAM7Inverse(const MapState& carte, float x, float y, float& lat, float& lon) {
  BSAMInverse(carte, carte.k7, x, y, lat, lon);
}
void BSAM8Inverse(const MapState& carte, float x, float y, float& lat, float& lon) {
  BSAMInverse(carte, carte.k8, x, y, lat, lon);
}
void BSAM9Inverse(const MapState& carte, float x, float y, float& lat, float& lon) {
  BSAMInverse(carte, carte.k9, x, y, lat, lon);
}

}  // namespace talpena
