#include "interchange/isolated_points.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace talpena {
namespace {

constexpr double finePerDistance = 50;
/// Cells are so narrow that the distance is their diagonal: a neighbour stands two cells off.
constexpr int reach = 2;

}  // namespace

IsolatedPoints::IsolatedPoints(double distanceKm, Watcher watcher)
    : chord2_(CordeDe(distanceKm) * CordeDe(distanceKm)),
      side_(CordeDe(distanceKm) / std::sqrt(3.0)),
      fine_(CordeDe(distanceKm / finePerDistance)),
      watcher_(std::move(watcher)) {}

bool IsolatedPoints::SontProches(SpherePoint a, SpherePoint b) const {
  const double dx = double{a.x} - b.x, dy = double{a.y} - b.y, dz = double{a.z} - b.z;
  return dx * dx + dy * dy + dz * dz <= chord2_;
}

void IsolatedPoints::Ajoute(SpherePoint point) {
  const SphereCell cell = CelluleDe(point, side_);
  JugePremier(point);
  DelivreVoisins(point, cell);
  Garde(point, cell);
}

void IsolatedPoints::AjouteNomme(SpherePoint point, Name name) {
  const SphereCell cell = CelluleDe(point, side_);
  if (cells_.empty()) {
    first_ = {name, point};
    return Garde(point, cell);
  }
  JugePremier(point);
  const bool delivered = DelivreVoisins(point, cell);
  if (!delivered && !TrouveVoisin(point, cell)) Isole(point, cell, name);
  Garde(point, cell);
}

/// The first point has another one now.
void IsolatedPoints::JugePremier(SpherePoint second) {
  const auto first = std::exchange(first_, std::nullopt);
  if (!first || SontProches(first->second, second)) return;
  Isole(first->second, CelluleDe(first->second, side_), first->first);
}

/// Takes those that are near the point from the isolated ones; whether there were any.
bool IsolatedPoints::DelivreVoisins(SpherePoint point, SphereCell cell) {
  if (alone_.empty()) return false;
  const auto near = aloneNear_.find(CleDe(cell));
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

bool IsolatedPoints::TrouveVoisin(SpherePoint point, SphereCell cell) const {
  if (cells_.contains(CleDe(cell))) return true;  // nothing in one cell is far
  return ParcourtVoisines(cell, reach, [&](std::uint64_t key) {
    const auto found = cells_.find(key);
    return found != cells_.end() && std::ranges::any_of(found->second, [&](SpherePoint other) {
             return SontProches(point, other);
           });
  });
}

void IsolatedPoints::Isole(SpherePoint point, SphereCell cell, Name name) {
  alone_[name] = point;
  ParcourtVoisines(cell, reach, [&](std::uint64_t key) {
    aloneNear_[key].push_back(name);
    return false;
  });
  if (watcher_) watcher_(name, true);
}

void IsolatedPoints::Garde(SpherePoint point, SphereCell cell) {
  if (kept_.Ajoute(CleDe(CelluleDe(point, fine_)))) cells_[CleDe(cell)].push_back(point);
}

}  // namespace talpena
