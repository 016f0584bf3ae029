// How far a place is from the records of the open file.
#pragma once
#include <array>
#include <cstddef>
#include <optional>
#include <vector>

namespace talpena {

/// A point on the sphere: decimal degrees.
struct GeoPoint {
  double latitude = 0;
  double longitude = 0;
};

/// Its direction from the centre of the sphere, of length 1.
using SphereDirection = std::array<float, 3>;
SphereDirection DirectionDe(GeoPoint point);
GeoPoint PointDe(const SphereDirection& direction);

/// Along a great circle of the sphere of 6371 km.
double DistanceKm(GeoPoint a, GeoPoint b);
/// Square of the chord: orders as the distance does.
float Corde2(const SphereDirection& a, const SphereDirection& b);

/// Finds the nearest of many points: a tree that halves them, by each of the three axes in turn.
class NearestRecord {
 public:
  NearestRecord() = default;
  explicit NearestRecord(std::vector<SphereDirection> points);

  bool Vide() const { return points_.empty(); }
  /// Kilometres to the nearest point; empty when there is none.
  std::optional<double> DistanceKm(GeoPoint from) const;

 private:
  void Range(std::size_t first, std::size_t end, std::size_t axis);
  void Cherche(std::size_t first, std::size_t end, std::size_t axis, const SphereDirection& from,
               float& best, SphereDirection& nearest) const;

  std::vector<SphereDirection> points_;
};

}  // namespace talpena
