// The rows that the grid shows, on their way to a database and once more when it is read back.
#pragma once
#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "common/talpena_error.h"
#include "interchange/database_row.h"
#include "platform/table_engine.h"
#include "store/table.h"

namespace talpena {

class DatabaseRows final : public RowSource {
 public:
  DatabaseRows(Recordset& rows, DatabaseRow& row)
      : rows_(rows), row_(row), total_(rows.RecordCount()) {}

  /// From the first row again. `avance` is told how many were given, now and then; what it throws
  /// ends the walk.
  using Progress = std::function<void(std::int64_t done)>;
  void Recommence(Progress avance);

  bool Suivante(std::span<Cell> values) override;

  std::int64_t Rangee() const { return given_; }  ///< place in the grid of the row given last
  std::int64_t Total() const { return total_; }
  const std::vector<ExportColumn>& Colonnes() const { return row_.Colonnes(); }

  /// The failure of a table that took the row given last, if it lies in that row: with its place
  /// and, where it can be told, the column. Any other as it is.
  TalpenaError Situe(std::int16_t langue, const TalpenaError& failure);

 private:
  const ExportColumn* ColonneFautive(int number);

  Recordset& rows_;
  DatabaseRow& row_;
  std::int64_t total_;
  std::int64_t given_ = 0;
  Progress avance_;
  std::array<Cell, Column::Count> cells_;
  std::vector<Cell> values_;
};

/// A failure that a row has brought about, and not the place that it was to be written to.
bool EstFauteDeRangee(const TalpenaError& failure);

/// A failure of the format, which holds no more; its words say what is in the file.
bool EstLimiteDuFormat(const TalpenaError& failure);

}  // namespace talpena
