// Angles and small functions of the projections, stored in 32 bits.
#include <cmath>

#include "common/numbers.h"
#include "coords/faults.h"
#include "maps/figure.h"
#include "maps/projection.h"

namespace talpena {

float radian(float degrees) { return EnSimple(Figure::Pi / 180 * degrees); }

float Degre(float radians) { return EnSimple(radians * 180.0 / Figure::Pi); }

float Log10(float x) { return EnSimple(std::log(Positif(x)) / std::log(10.0)); }

float ArcSinus(float x) {
  const float u = EnSimple(1 - static_cast<double>(x) * x);
  return u > 0 ? EnSimple(std::atan(x / std::sqrt(static_cast<double>(u)))) : 0;
}

float ATN2(float y, float x) {
  float angle = y < 0 ? static_cast<float>(-Figure::PiSur2) : 1.5707964F;
  if (x != 0) angle = EnSimple(std::atan(static_cast<double>(y) / x));
  return x < 0 ? EnSimple(angle + Figure::Pi) : angle;
}

float ADJLZ0(float lon) {
  constexpr double limit = static_cast<double>(static_cast<float>(Figure::Pi)) + 0.01;
  constexpr double far = 1000 * Figure::DeuxPi;
  // Beyond a thousand turns a step of the loop is lost in the 32 bits, or takes forever.
  if (std::abs(Fini(lon)) > far) lon = EnSimple(std::remainder(lon, Figure::DeuxPi));
  while (std::abs(lon) > limit) {
    lon = EnSimple(lon < 0 ? lon + Figure::DeuxPi : lon - Figure::DeuxPi);
  }
  return lon;
}

}  // namespace talpena
