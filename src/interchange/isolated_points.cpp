#include "interchange/isolated_points.h"

#include <algorithm>
#include <cmath>

#include "coords/datum.h"

namespace talpena {
namespace {

constexpr double earthKm = 6371;
constexpr double finePerDistance = 50;
/// Cells are so narrow that the distance is their diagonal: a neighbour stands two cells off.
constexpr int reach = 2;

using GridCell = std::array<std::int16_t, 3>;

GridCell CelluleDe(SpherePoint point, double side) {
  const auto index = [side](double value) {
    return static_cast<std::int16_t>(std::floor(value / side));
  };
  return {index(point.x), index(point.y), index(point.z)};
}

std::uint64_t Cle(GridCell cell) {
  std::uint64_t key = 0;
  for (const std::int16_t index : cell) key = key << 16 | static_cast<std::uint16_t>(index);
  return key;
}

/// Calls `visit` with the keys of the cells around one and its own until it answers true; whether
/// it did.
template <typename Visit>
bool ParcourtVoisines(GridCell cell, Visit visit) {
  for (int i = -reach; i <= reach; ++i) {
    for (int j = -reach; j <= reach; ++j) {
      for (int k = -reach; k <= reach; ++k) {
        const GridCell there{static_cast<std::int16_t>(cell[0] + i),
                             static_cast<std::int16_t>(cell[1] + j),
                             static_cast<std::int16_t>(cell[2] + k)};
        if (visit(Cle(there))) return true;
      }
    }
  }
  return false;
}

double CordeDe(double km) { return 2 * std::sin(km / earthKm / 2); }

}  // namespace

SpherePoint SurSphere(double latitude, double longitude) {
  const double phi = EnRadians(latitude), lambda = EnRadians(longitude);
  return {std::cos(phi) * std::cos(lambda), std::cos(phi) * std::sin(lambda), std::sin(phi)};
}

IsolatedPoints::IsolatedPoints(double distanceKm, Watcher watcher)
    : chord2_(CordeDe(distanceKm) * CordeDe(distanceKm)),
      side_(CordeDe(distanceKm) / std::sqrt(3.0)),
      fine_(CordeDe(distanceKm / finePerDistance)),
      watcher_(std::move(watcher)) {}

bool IsolatedPoints::SontProches(SpherePoint a, SpherePoint b) const {
  const double dx = a.x - b.x, dy = a.y - b.y, dz = a.z - b.z;
  return dx * dx + dy * dy + dz * dz <= chord2_;
}

void IsolatedPoints::Ajoute(double latitude, double longitude) {
  const SpherePoint point = SurSphere(latitude, longitude);
  const GridCell cell = CelluleDe(point, side_);
  DelivreVoisins(point, cell);
  Garde(point, cell);
}

void IsolatedPoints::AjouteNomme(double latitude, double longitude, Name name) {
  const SpherePoint point = SurSphere(latitude, longitude);
  const GridCell cell = CelluleDe(point, side_);
  const bool delivered = DelivreVoisins(point, cell);
  if (!delivered && !TrouveVoisin(point, cell)) Isole(point, cell, name);
  Garde(point, cell);
}

bool IsolatedPoints::APresDe(double latitude, double longitude) const {
  const SpherePoint point = SurSphere(latitude, longitude);
  return TrouveVoisin(point, CelluleDe(point, side_));
}

/// Takes those that are near the point from the isolated ones; whether there were any.
bool IsolatedPoints::DelivreVoisins(SpherePoint point, GridCell cell) {
  if (alone_.empty()) return false;
  const auto near = aloneNear_.find(Cle(cell));
  if (near == aloneNear_.end()) return false;
  const std::size_t before = alone_.size();
  std::erase_if(near->second, [&](Name name) {
    const auto found = alone_.find(name);
    if (found == alone_.end()) return true;  // delivered through another cell
    if (!SontProches(point, found->second)) return false;
    alone_.erase(found);
    if (watcher_) watcher_(name, false);
    return true;
  });
  return alone_.size() < before;
}

bool IsolatedPoints::TrouveVoisin(SpherePoint point, GridCell cell) const {
  if (cells_.contains(Cle(cell))) return true;  // nothing in one cell is far
  return ParcourtVoisines(cell, [&](std::uint64_t key) {
    const auto found = cells_.find(key);
    return found != cells_.end() && std::ranges::any_of(found->second, [&](SpherePoint other) {
             return SontProches(point, other);
           });
  });
}

void IsolatedPoints::Isole(SpherePoint point, GridCell cell, Name name) {
  alone_[name] = point;
  ParcourtVoisines(cell, [&](std::uint64_t key) {
    aloneNear_[key].push_back(name);
    return false;
  });
  if (watcher_) watcher_(name, true);
}

void IsolatedPoints::Garde(SpherePoint point, GridCell cell) {
  if (kept_.insert(Cle(CelluleDe(point, fine_))).second) cells_[Cle(cell)].push_back(point);
}

}  // namespace talpena
