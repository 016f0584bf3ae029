// The Lambert projections step by step, as written on paper: what the fast forms are held against.
#pragma once
#include <cmath>
#include <numbers>

#include "coords/lambert.h"
#include "coords/proj_oracle.h"

namespace talpena::test {

/// The constants of a run: those of stored data, or with all digits.
struct PiLitteral {
  double quart = 0.785398163375;
  double demi = 1.57079632675;
  double radian = 3.1415926535 / 180;
};
constexpr PiLitteral PiEntier{std::numbers::pi / 4, std::numbers::pi / 2, std::numbers::pi / 180};

inline double TLitteral(double phi, double e, const PiLitteral& pi) {
  return std::tan(pi.quart - phi / 2) /
         std::pow((1 - e * std::sin(phi)) / (1 + e * std::sin(phi)), e / 2);
}

inline double ExcentriciteLitterale(double a, double fInverse) {
  const double b = (1 - 1 / fInverse) * a;
  return std::sqrt((a * a - b * b) / (a * a));
}

/// A latitude and how many turns it took.
struct LatitudeLitterale {
  double phi;
  int turns;
};

class BelgeLitteral {
 public:
  explicit BelgeLitteral(const PiLitteral& pi = {}) : pi_(pi) {}

  Plane Avant(Point p) const {
    const double t = TLitteral(p.latitude * pi_.radian, e_, pi_);
    const double rho = 11565915.812935 * std::pow(t, 0.7716421928);
    const double theta = (p.longitude * pi_.radian - 0.076042943) * 0.7716421928;
    return {150000.01256 + rho * std::sin(theta - 0.000142043),
            5400088.4378 - rho * std::cos(theta - 0.000142043)};
  }

  Point Arriere(Plane p) const {
    const double theta = std::atan((p.x - 150000.01256) / (5400088.4378 - p.y));
    const double lambda = (theta + 0.000142043) * (1 / 0.7716421928) + 0.076042943;
    const double rho = std::sqrt(std::pow(p.x - 150000.01256, 2) + std::pow(5400088.4378 - p.y, 2));
    const double t = std::pow(rho / 11565915.812935, 1 / 0.7716421928);
    return {Phi(t).phi / pi_.radian, lambda / pi_.radian};
  }

  LatitudeLitterale Phi(double t) const {
    double phi = 2 * std::atan(t);
    for (int turns = 1;; ++turns) {
      const double next =
          pi_.demi -
          2 * std::atan(t * std::pow((1 - e_ * std::sin(phi)) / (1 + e_ * std::sin(phi)), e_ / 2));
      const double difference = std::abs(next - phi);
      phi = next;
      if (difference <= 2.77777e-08) return {phi, turns};
    }
  }

 private:
  PiLitteral pi_;
  double e_ = ExcentriciteLitterale(6378388.0, 297.0);
};

/// The two families with a zone's parameters: those of the table, from which all else is made.
class ConiqueLitteral {
 public:
  /// Whether the zone has one parallel tells which initialisation.
  ConiqueLitteral(const LambertParametres& zone, bool oneParallel, const PiLitteral& pi = {})
      : z_(zone), pi_(pi), e_(ExcentriciteLitterale(zone.a, zone.fInverse)) {
    const auto m = [&](double phi) {
      return std::cos(phi) / std::sqrt(1 - std::pow(std::sin(phi), 2) * e_ * e_);
    };
    const auto t = [&](double phi) { return TLitteral(phi, e_, pi_); };
    if (oneParallel) {
      n_ = std::sin(z_.phi0);
      f_ = m(z_.phi0) / (std::pow(t(z_.phi0), n_) * n_);
    } else {
      n_ = (std::log(m(z_.phi1)) - std::log(m(z_.phi2))) /
           (std::log(t(z_.phi1)) - std::log(t(z_.phi2)));
      f_ = m(z_.phi1) / (std::pow(t(z_.phi1), n_) * n_);
    }
    rho0_ = std::pow(t(z_.phi0), n_) * f_ * z_.a;
  }

  Plane Avant(Point p) const {
    const double t = TLitteral(p.latitude * pi_.radian, e_, pi_);
    const double rho = (std::pow(t, n_) * f_ * z_.a) * z_.k0;
    const double theta = (p.longitude * pi_.radian - z_.lambda0) * n_;
    return {rho * std::sin(theta) + z_.x0, (rho0_ - rho * std::cos(theta)) + z_.y0};
  }

  Point Arriere(Plane p) const {
    const double x = p.x - z_.x0, y = p.y - z_.y0;
    double rho = std::sqrt(x * x + (rho0_ - y) * (rho0_ - y));
    if (n_ < 0) rho = -rho;
    const double lambda = std::atan(x / (rho0_ - y)) / n_ + z_.lambda0;
    const double t = std::pow(rho / (z_.k0 * z_.a * f_), 1 / n_);
    return {Phi(t).phi / pi_.radian, lambda / pi_.radian};
  }

  LatitudeLitterale Phi(double t) const {
    const auto turn = [&](double phi) {
      const double quotient = (1 - e_ * std::sin(phi)) / (1 + e_ * std::sin(phi));
      return pi_.demi - 2 * std::atan(t * std::pow(quotient, e_ / 2));
    };
    double before = pi_.demi - 2 * std::atan(t);
    double phi = turn(before);
    int turns = 1;
    for (; turns <= 10 && std::abs(phi - before) >= 1e-07; ++turns) {
      before = phi;
      phi = turn(before);
    }
    return {phi, turns};
  }

  double Rho0() const { return rho0_; }

 private:
  LambertParametres z_;
  PiLitteral pi_;
  double e_, n_ = 0, f_ = 0, rho0_ = 0;
};

/// A zone and the box in degrees that it is for.
struct ZoneLambert {
  const char* name;
  bool oneParallel;
  int zone;
  double south, north, west, east;
};

// clang-format off
inline constexpr ZoneLambert ZonesLambert[] = {
    {"LF1",           false, 1,  48.1, 51.3,   -5.3,   8.4},
    {"LF2",           false, 2,  45.4, 48.6,   -4.9,   8.3},
    {"LF3",           false, 3,  42.3, 45.9,   -1.9,   7.8},
    {"LF4",           false, 4,  41.3, 43.1,    8.4,   9.7},
    {"LFE",           false, 5,  42.3, 51.3,   -5.3,   8.4},
    {"North America", false, 6,  24,   50,   -125,   -66},
    {"NMA",           true,  1,  31.5, 36,    -10,    -1},
    {"SMA",           true,  2,  27.6, 31.5,  -13,    -4},
    {"Algeria north", true,  3,  34.5, 37.2,   -2.3,   9},
    {"Algeria south", true,  4,  31.5, 34.7,   -3.6,   9.1},
    {"Tunisia north", true,  5,  34.6, 37.5,    7.8,  11.4},
    {"Tunisia south", true,  6,  30.2, 34.7,    7.5,  11.6},
    {"Levant",        true,  98, 32,   37.5,   35,    42.5},
    {"Jamaica",       true,  99, 17.6, 18.6,  -78.5, -76.1},
};
// clang-format on
inline constexpr ZoneLambert Belgique{"Belgium", false, 0, 49.4, 51.6, 2.5, 6.5};

inline LambertParametres Parametres(const ZoneLambert& z) {
  LambertParametres p;
  z.oneParallel ? InitLambertUnParallele(p, z.zone) : InitLambertFrance(p, z.zone);
  return p;
}

inline Plane Avant(LambertParametres& p, const ZoneLambert& z, Point point) {
  Plane out{};
  (z.oneParallel ? LatLonVersLambertUnParallele : LatLonVersLambertFrance)(
      p, point.latitude, point.longitude, out.x, out.y, z.zone);
  return out;
}

inline Point Arriere(LambertParametres& p, const ZoneLambert& z, Plane plane) {
  Point out{};
  (z.oneParallel ? LambertUnParalleleVersLatLon : LambertFranceVersLatLon)(
      p, plane.x, plane.y, out.latitude, out.longitude, z.zone);
  return out;
}

inline Plane AvantBelge(Point p) {
  Plane out{};
  LatLonVersLambertBelge(p.latitude, p.longitude, out.x, out.y);
  return out;
}

inline Point ArriereBelge(Plane p) {
  Point out{};
  LambertBelgeVersLatLon(p.x, p.y, out.latitude, out.longitude);
  return out;
}

inline std::vector<Point> PointsDe(const ZoneLambert& z) {
  return PointsAuHasard(z.south, z.north, z.west, z.east);
}

}  // namespace talpena::test
