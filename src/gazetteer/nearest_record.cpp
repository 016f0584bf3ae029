#include "gazetteer/nearest_record.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

namespace talpena {
namespace {

constexpr double degree = std::numbers::pi / 180;
constexpr double earthKm = 6371;

std::size_t AxeSuivant(std::size_t axis) { return (axis + 1) % 3; }

}  // namespace

SphereDirection DirectionDe(GeoPoint point) {
  const double phi = point.latitude * degree;
  const double lambda = point.longitude * degree;
  return {static_cast<float>(std::cos(phi) * std::cos(lambda)),
          static_cast<float>(std::cos(phi) * std::sin(lambda)), static_cast<float>(std::sin(phi))};
}

GeoPoint PointDe(const SphereDirection& d) {
  const double x = d[0], y = d[1], z = d[2];
  return {std::atan2(z, std::hypot(x, y)) / degree, std::atan2(y, x) / degree};
}

double DistanceKm(GeoPoint a, GeoPoint b) {
  const double dPhi = std::sin((b.latitude - a.latitude) * degree / 2);
  const double dLambda = std::sin((b.longitude - a.longitude) * degree / 2);
  const double h = dPhi * dPhi + std::cos(a.latitude * degree) * std::cos(b.latitude * degree) *
                                     dLambda * dLambda;
  return 2 * earthKm * std::asin(std::sqrt(std::min(1.0, h)));
}

float Corde2(const SphereDirection& a, const SphereDirection& b) {
  const float dx = a[0] - b[0], dy = a[1] - b[1], dz = a[2] - b[2];
  return dx * dx + dy * dy + dz * dz;
}

NearestRecord::NearestRecord(std::vector<SphereDirection> points) : points_(std::move(points)) {
  Range(0, points_.size(), 0);
}

void NearestRecord::Range(std::size_t first, std::size_t end, std::size_t axis) {
  if (end - first < 2) return;
  const std::size_t middle = first + (end - first) / 2;
  const auto at = [this](std::size_t i) {
    return points_.begin() + static_cast<std::ptrdiff_t>(i);
  };
  std::nth_element(
      at(first), at(middle), at(end),
      [axis](const SphereDirection& a, const SphereDirection& b) { return a[axis] < b[axis]; });
  Range(first, middle, AxeSuivant(axis));
  Range(middle + 1, end, AxeSuivant(axis));
}

void NearestRecord::Cherche(std::size_t first, std::size_t end, std::size_t axis,
                            const SphereDirection& from, float& best,
                            SphereDirection& nearest) const {
  if (first >= end) return;
  const std::size_t middle = first + (end - first) / 2;
  const SphereDirection& here = points_[middle];
  if (const float chord = Corde2(here, from); chord < best) {
    best = chord;
    nearest = here;
  }
  const float side = from[axis] - here[axis];
  const auto left = std::pair(first, middle);
  const auto right = std::pair(middle + 1, end);
  const auto& near = side < 0 ? left : right;
  const auto& far = side < 0 ? right : left;
  Cherche(near.first, near.second, AxeSuivant(axis), from, best, nearest);
  if (side * side < best) Cherche(far.first, far.second, AxeSuivant(axis), from, best, nearest);
}

std::optional<double> NearestRecord::DistanceKm(GeoPoint from) const {
  if (points_.empty()) return std::nullopt;
  float best = std::numeric_limits<float>::infinity();
  SphereDirection nearest{};
  Cherche(0, points_.size(), 0, DirectionDe(from), best, nearest);
  return talpena::DistanceKm(from, PointDe(nearest));
}

}  // namespace talpena
