// The two national projections step by step as the references and points of old were made, to hold
// the program's faster forms against.
#pragma once
#include <cmath>

#include "coords/datum.h"
#include "coords/national_grids.h"
#include "proj_oracle.h"

namespace talpena::test {

struct InverseConstants {
  double a = 6377563.396;
  double e = 0.08167337387;
  double ePrime2 = 0.006768170197224;
  double k = 1;
  double lambda0 = 0;  ///< degrees

  double E2() const { return e * e; }
};

inline InverseConstants ConstantesInverse(Grille grid) {
  InverseConstants constants;
  constants.k = grid == Grille::British ? 0.9996012717 : 1.000035;
  constants.lambda0 = grid == Grille::British ? 358 : 352;
  return constants;
}

/// Longitude from 352, as the steps give it.
inline Point InversePasAPas(const InverseConstants& g, double northing, double easting) {
  constexpr double c0 = 1.005034396, c1 = 0.005044926593, c2 = 1.055158829e-05,
                   c3 = 2.059762235e-08;
  const double a = g.a, k = g.k, e2 = g.E2(), ep2 = g.ePrime2, ep4 = ep2 * ep2;
  const double m = northing / ((1 - e2) * a * k);
  double phi = m / c0;
  double residual = 1;
  while (residual >= 0.001) {
    const double sum = phi * c0 - (c1 / 2) * std::sin(2 * phi) + (c2 / 4) * std::sin(4 * phi) -
                       (c3 / 6) * std::sin(6 * phi);
    const double r = m - sum;
    const double delta = r / c0;
    residual = std::fabs(a * r * (1 - e2) * k);
    phi += delta;
  }
  const double s = std::sin(phi), c = std::cos(phi), t = std::tan(phi);
  const double s2 = s * s, cc = c * c, t2 = t * t, t4 = t2 * t2;
  const double nu = a / std::sqrt(1 - e2 * s2);
  const double x = std::fabs(easting - 500000) * 1e-06;
  const double q = 1 + ep2 * cc;
  const double termA = t / (2 * std::pow(nu * k, 2)) * q * 1e12;
  const double termB =
      t / (24 * std::pow(nu * k, 4)) * 1e24 * q *
      (5 + 3 * t2 + 6 * ep2 * cc - 6 * ep2 * s2 - 3 * ep4 * cc * cc - 9 * ep4 * cc * s2);
  const double termC =
      std::pow(x, 6) / (720 * std::pow(nu * k, 6)) * t * 1e36 * q *
      (61 + 90 * t2 + 45 * t4 + 107 * ep2 * cc - 162 * ep2 * s2 - 45 * ep2 * t2 * s2);
  const double phiPrime = phi - x * x * termA + std::pow(x, 4) * termB - termC;
  const double termD = 1e06 / (k * nu * c);
  const double termE = 1e18 / (6 * std::pow(nu * k, 3) * c) * (1 + 2 * t2 + ep2 * cc);
  const double termF = std::pow(x, 5) * 1e30 / (120 * std::pow(nu * k, 5) * c) *
                       (5 + 28 * t2 + 24 * t4 + 6 * ep2 * cc + 8 * ep2 * s2);
  const double d = x * termD - x * x * x * termE + termF;
  constexpr double deg = 3.1415926535 / 180;
  return {phiPrime / deg, easting > 500000 ? g.lambda0 + d / deg : g.lambda0 - d / deg};
}

/// Constants of the forward, each in single precision.
struct ForwardConstants {
  float northingOffset, falseEasting, k;
  double lambda0;  ///< degrees
  float a = 6377563.5F;
  float e = 0.08167337626F;
};

inline ForwardConstants ConstantesDirectes(Grille grid) {
  if (grid == Grille::British) return {-5527063.816F, 400000, 0.99960124F, 358};
  return {-5680030.4339F, 200000, 1.0000350F, 352};
}

/// Metres of the grid. `Named` is what holds every quantity that has a name: float as the
/// references were made, double to see what that costs.
template <typename Named>
Plane DirectePasAPas(const ForwardConstants& g, double latitude, double longitude) {
  constexpr float d0 = 0.99833030F, d1 = 0.0025056370F, d2 = 2.6202372e-06F, d3 = 3.3816590e-09F;
  const double a = g.a, k = g.k;
  const double e2 = static_cast<Named>(static_cast<double>(g.e) * static_cast<double>(g.e));
  constexpr double radian = 3.1415926535 / 180;
  const double phi = static_cast<Named>(latitude * radian);
  const double lambda = static_cast<Named>(longitude * radian);
  double dLambda = static_cast<Named>(lambda - g.lambda0 * radian);
  if (std::fabs(dLambda) > 3.1415926535) {
    dLambda = static_cast<Named>(dLambda - (dLambda > 0 ? 6.283185307 : -6.283185307));
  }
  const double s = static_cast<Named>(std::sin(phi));
  const double c = static_cast<Named>(std::cos(phi));
  const double t = static_cast<Named>(std::tan(phi));
  const double nu = static_cast<Named>(a / std::sqrt(1 - s * s * e2));
  const double eta2 = static_cast<Named>(e2 * c * c / (1 - e2));
  const double x = static_cast<Named>(dLambda * c);
  const double t2 = t * t, x2 = x * x;
  const double p =
      static_cast<Named>(((4 - 24 * t2) * eta2 + (13 - 64 * t2)) * eta2 + 14 - 58 * t2);
  const double r = static_cast<Named>(
      ((5 - (18 - t2) * t2 + p * eta2) * (x2 / 20) + ((1 - t2) + eta2)) * (x2 / 6) + 1);
  const double arc =
      static_cast<Named>(phi * double{d0} - double{d1} * std::sin(2 * phi) +
                         double{d2} * std::sin(4 * phi) - double{d3} * std::sin(6 * phi));
  const double h = static_cast<Named>(((4 * eta2 + 9) * eta2 + (5 - t2)) * (x2 / 12) + 1);
  return {static_cast<Named>(nu * k * x * r + double{g.falseEasting}),
          static_cast<Named>(((nu * 0.5 * dLambda * x * s * h) + a * arc) * k +
                             double{g.northingOffset})};
}

}  // namespace talpena::test
