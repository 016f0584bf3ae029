// Code 1: the conformal conic of two standard parallels on the ellipsoid.
#include <cmath>

#include "common/numbers.h"
#include "coords/faults.h"
#include "maps/figure.h"
#include "maps/projection.h"
#include "maps/projection_forward.h"
#include "maps/projection_inverse.h"

namespace talpena {
namespace {

/// Of a standard parallel: the radius of curvature's root, and the tangent of the conic.
struct Parallele {
  float phi, w, t;
};

Parallele CalculeParallele(const LambertConstants& k, float degrees) {
  Parallele p{};
  p.phi = radian(degrees);
  const double sine = std::sin(static_cast<double>(p.phi));
  p.w = EnSimple(std::sqrt(1 - Figure::E2 * sine * sine));
  p.t = EnSimple(std::tan(Figure::Pi / 4 - p.phi / 2.0) *
                 std::pow((1 + k.e * sine) / (1 - k.e * sine), k.halfE));
  return p;
}

/// The latitude of a t, in turns until it rests. A turn divides the error by 150, so that the fifth
/// or sixth is the last in 32 bits; the limit holds where rounding should never let it rest.
float LatitudeConique(const LambertConstants& k, float t) {
  constexpr float rest = 2.77777E-8F;
  constexpr int turns = 30;
  float before = 0, phi = EnSimple(2 * std::atan(static_cast<double>(t)));
  for (int i = 0; i < turns; ++i) {
    before = phi;
    const float s = EnSimple(k.e * std::sin(static_cast<double>(before)));
    phi = EnSimple(Figure::PiSur2 - 2 * std::atan(t * std::pow((1.0 - s) / (1.0 + s), k.halfE)));
    if (std::abs(static_cast<double>(phi) - before) <= rest) break;
  }
  return phi;
}

float LogCosinus(float phi) { return Log10(EnSimple(std::cos(static_cast<double>(phi)))); }

}  // namespace

void DefConstantes(MapState& carte, float parallel1, float parallel2) {
  LambertConstants& k = carte.lambert;
  const double e = std::sqrt(Figure::E2);
  k.e = EnSimple(e);
  k.halfE = EnSimple(e / 2);
  const Parallele p1 = CalculeParallele(k, parallel1), p2 = CalculeParallele(k, parallel2);
  const double cosines = static_cast<double>(LogCosinus(p1.phi)) - LogCosinus(p2.phi);
  const double roots = static_cast<double>(Log10(p2.w)) - Log10(p1.w);
  const double tangents = static_cast<double>(Log10(p1.t)) - Log10(p2.t);
  k.n = EnSimple(Divise(cosines + roots, tangents));
  const double power = std::pow(static_cast<double>(p1.t), k.n);
  k.F = EnSimple(Divise(Figure::A * std::cos(static_cast<double>(p1.phi)), power * k.n * p1.w));
}

Fault LambertGeneral(const MapState& carte, float lat, float lon, float& X, float& Y) {
  const LambertConstants& k = carte.lambert;
  const auto s = static_cast<float>(k.e * std::sin(static_cast<double>(lat)));
  const auto T = static_cast<float>(std::pow((1.0 + s) / (1.0 - s), k.halfE) *
                                    std::tan(Figure::PiSur4 - lat / 2.0));
  if (T < 0) return Fault::InvalidCall;  // beyond the pole, which lies just short of pi/2
  const auto rho = static_cast<float>(k.F * std::pow(static_cast<double>(T), k.n));
  const float theta = Ecart(carte, lon) * k.n;
  return EnKilometres(rho * std::sin(static_cast<double>(theta)),
                      -rho * std::cos(static_cast<double>(theta)), X, Y);
}

void LambertInverse(const MapState& carte, float x, float y, float& lat, float& lon) {
  const LambertConstants& k = carte.lambert;
  const double theta = std::atan(Divise(x, -static_cast<double>(y)));
  lon = EnSimple(Divise(theta, k.n) + carte.MeridienCentral);
  const float rho = EnSimple(std::hypot(static_cast<double>(x), static_cast<double>(y)));
  const float t = EnSimple(std::pow(Positif(Divise(rho, k.F)), Divise(1, k.n)));
  lat = LatitudeConique(k, t);
}

}  // namespace talpena
