// Points that lie far from all others.
#pragma once
#include <array>
#include <cstdint>
#include <functional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace talpena {

/// Distance beyond which a row is far from the others, and the one within which a row lies in the
/// area of others; kilometres on a sphere.
inline constexpr double LoinKm = 500, ProcheKm = 100;

/// A point on the unit sphere.
struct SpherePoint {
  double x = 0;
  double y = 0;
  double z = 0;
};

SpherePoint SurSphere(double latitude, double longitude);  ///< decimal degrees

/// Points come one after another, those of rows under a name; at any time those named ones are
/// known that have no other point, named or not, within a distance. Time and memory grow with the
/// number of points at most, and stop to where the globe is full: of points within some kilometres
/// (a fiftieth of the distance) of one another only one is kept, so a distance is that sure.
class IsolatedPoints {
 public:
  using Name = std::int64_t;

  /// Told of a point that has become isolated (true) or is so no more (false).
  using Watcher = std::function<void(Name, bool)>;

  explicit IsolatedPoints(double distanceKm, Watcher watcher = {});

  /// A point that is never isolated itself.
  void Ajoute(double latitude, double longitude);
  void AjouteNomme(double latitude, double longitude, Name name);
  std::int64_t Nombre() const { return static_cast<std::int64_t>(alone_.size()); }

  /// Whether any point lies within the distance.
  bool APresDe(double latitude, double longitude) const;

 private:
  using GridCell = std::array<std::int16_t, 3>;

  bool SontProches(SpherePoint a, SpherePoint b) const;
  bool DelivreVoisins(SpherePoint point, GridCell cell);
  bool TrouveVoisin(SpherePoint point, GridCell cell) const;
  void Isole(SpherePoint point, GridCell cell, Name name);
  void Garde(SpherePoint point, GridCell cell);

  double chord2_;  ///< square of the distance as a chord
  double side_;    ///< of a cell: two points in one are never far from each other
  double fine_;    ///< of a cell of which one point is kept
  Watcher watcher_;
  std::unordered_map<std::uint64_t, std::vector<SpherePoint>> cells_;
  std::unordered_set<std::uint64_t> kept_;
  std::unordered_map<Name, SpherePoint> alone_;
  std::unordered_map<std::uint64_t, std::vector<Name>>
      aloneNear_;  ///< by cell: whom a point in it may reach
};

}  // namespace talpena
