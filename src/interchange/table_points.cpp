#include "interchange/table_points.h"

#include <cmath>
#include <string>

#include "common/numbers.h"

namespace talpena {
namespace {

constexpr std::int64_t portion = 2000;

}  // namespace

void TablePoints::Commence() {
  begun_ = true;
  // One aggregate at a time, each of which the engine finds at an end of the table.
  const auto first = database_.OpenRecordset("SELECT MIN(Counter) FROM TALPENA");
  const auto last = database_.OpenRecordset("SELECT MAX(Counter) FROM TALPENA");
  if (first->EOF_() || first->Get(0).EstNull()) return;
  next_ = static_cast<std::int64_t>(first->Get(0).Nombre());
  last_ = static_cast<std::int64_t>(last->Get(0).Nombre());
}

bool TablePoints::Suivants(const Visit& visit) {
  if (!begun_) Commence();
  if (next_ > last_) return false;
  const auto rows =
      database_.OpenRecordset("SELECT LATITUDE, LONGITUDE FROM TALPENA WHERE Counter BETWEEN " +
                              Str(next_) + " AND " + Str(next_ + portion - 1));
  constexpr int fields[] = {0, 1};
  rows->LitNombres(fields, nullptr, [&](const NumberBlock& block) {
    for (std::size_t row = 0; row < block.rows; ++row) {
      const double latitude = block.Valeur(row, 0), longitude = block.Valeur(row, 1);
      if (std::isfinite(latitude) && std::isfinite(longitude)) visit(latitude, longitude);
    }
  });
  next_ += portion;
  return next_ <= last_;
}

}  // namespace talpena
