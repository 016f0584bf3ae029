// Points that lie far from all others.
#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "interchange/key_set.h"
#include "interchange/sphere_cells.h"

namespace talpena {

/// Distance beyond which a row is far from the others, kilometres on a sphere.
inline constexpr double LoinKm = 500;

/// Points come one after another, those of rows under a name; at any time those named ones are
/// known that have no other point, named or not, within a distance. A point that is the only one
/// has no others and is not isolated. Time and memory grow with the
/// number of points at most, and stop to where the globe is full: of points within some kilometres
/// (a fiftieth of the distance) of one another only one is kept, so a distance is that sure.
class IsolatedPoints {
 public:
  using Name = std::int64_t;

  /// Told of a point that has become isolated (true) or is so no more (false).
  using Watcher = std::function<void(Name, bool)>;

  explicit IsolatedPoints(double distanceKm, Watcher watcher = {});

  /// A point that is never isolated itself.
  void Ajoute(SpherePoint point);
  void AjouteNomme(SpherePoint point, Name name);
  std::int64_t Nombre() const { return static_cast<std::int64_t>(alone_.size()); }

 private:
  bool SontProches(SpherePoint a, SpherePoint b) const;
  void JugePremier(SpherePoint second);
  bool DelivreVoisins(SpherePoint point, SphereCell cell);
  bool TrouveVoisin(SpherePoint point, SphereCell cell) const;
  void Isole(SpherePoint point, SphereCell cell, Name name);
  void Garde(SpherePoint point, SphereCell cell);

  double chord2_;  ///< square of the distance as a chord
  double side_;    ///< of a cell: two points in one are never far from each other
  double fine_;    ///< of a cell of which one point is kept
  Watcher watcher_;
  std::unordered_map<std::uint64_t, std::vector<SpherePoint>> cells_;
  KeySet kept_;
  /// The only point until now, where it has a name.
  std::optional<std::pair<Name, SpherePoint>> first_;
  std::unordered_map<Name, SpherePoint> alone_;
  std::unordered_map<std::uint64_t, std::vector<Name>>
      aloneNear_;  ///< by cell: whom a point in it may reach
};

}  // namespace talpena
