#include "gazetteer/file_records.h"

#include <array>
#include <cmath>
#include <utility>

#include "store/table.h"

namespace talpena {

FileRecords::FileRecords(Document& document) {
  if (!document.Data1.EstLie()) return;
  std::vector<SphereDirection> directions;
  document.Data1.recordset().LitNombres(
      std::array{Column::LATITUDE, Column::LONGITUDE}, nullptr, [&](const NumberBlock& block) {
        for (std::size_t row = 0; row < block.rows; ++row) {
          const GeoPoint point{block.Valeur(row, 0), block.Valeur(row, 1)};
          if (!std::isfinite(point.latitude) || !std::isfinite(point.longitude)) continue;
          latitudes_.push_back(static_cast<float>(point.latitude));
          longitudes_.push_back(static_cast<float>(point.longitude));
          directions.push_back(DirectionDe(point));
        }
      });
  nearest_ = NearestRecord(std::move(directions));
}

}  // namespace talpena
