// The points of the open file's records, for distances and the small map.
#pragma once
#include <optional>
#include <span>
#include <vector>

#include "gazetteer/nearest_record.h"
#include "store/document.h"

namespace talpena {

class FileRecords {
 public:
  FileRecords() = default;
  /// Those of the rows on show that have a point.
  explicit FileRecords(Document& document);

  bool Vide() const { return latitudes_.empty(); }
  /// Kilometres to the nearest one; empty when there is none.
  std::optional<double> DistanceKm(GeoPoint from) const { return nearest_.DistanceKm(from); }
  const NearestRecord& LePlusProche() const { return nearest_; }

  /// Decimal degrees, a record each.
  std::span<const float> Latitudes() const { return latitudes_; }
  std::span<const float> Longitudes() const { return longitudes_; }

 private:
  std::vector<float> latitudes_, longitudes_;
  NearestRecord nearest_;
};

}  // namespace talpena
