// PROJ as the independent oracle of the conversions, and random points to hold against it.
#pragma once
#include <proj.h>

#include <cmath>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace talpena::test {

struct Point {
  double latitude, longitude;  ///< decimal degrees
};
struct Plane {
  double x, y;  ///< metres
};

/// A PROJ operation given as a pipeline, in a context of its own.
class ProjOracle {
 public:
  explicit ProjOracle(const std::string& pipeline)
      : context_(proj_context_create(), proj_context_destroy),
        operation_(proj_create(context_.get(), pipeline.c_str()), proj_destroy) {}

  bool Valide() const { return operation_ != nullptr; }

  /// As the operation gives it, in its own units.
  PJ_COORD Avant(double x, double y) const {
    return proj_trans(operation_.get(), PJ_FWD, proj_coord(x, y, 0, 0));
  }
  PJ_COORD Arriere(double x, double y) const {
    return proj_trans(operation_.get(), PJ_INV, proj_coord(x, y, 0, 0));
  }

  // For a bare projection ("+proj=lcc ..."), whose geographic side is in radians.
  Plane Projette(Point p) const {
    const PJ_COORD out = Avant(proj_torad(p.longitude), proj_torad(p.latitude));
    return {out.xy.x, out.xy.y};
  }
  Point Inverse(Plane p) const {
    const PJ_COORD out = Arriere(p.x, p.y);
    return {proj_todeg(out.lp.phi), proj_todeg(out.lp.lam)};
  }

 private:
  std::unique_ptr<PJ_CONTEXT, decltype(&proj_context_destroy)> context_;
  std::unique_ptr<PJ, decltype(&proj_destroy)> operation_;
};

/// Evenly drawn points of a box in degrees, the same ones at every run.
inline std::vector<Point> PointsAuHasard(double south, double north, double west, double east,
                                         int count = 10000, unsigned seed = 20260131) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> latitude(south, north), longitude(west, east);
  std::vector<Point> points;
  points.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    const double drawn = latitude(random);
    points.push_back({drawn, longitude(random)});
  }
  return points;
}

}  // namespace talpena::test
