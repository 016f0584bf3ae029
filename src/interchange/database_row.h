// The values of a database export, row by row.
#pragma once
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "interchange/database_columns.h"
#include "interchange/lambert_points.h"
#include "store/record/free_text.h"
#include "store/state.h"

namespace talpena {

class DatabaseRow {
 public:
  DatabaseRow(StoreState& state, const DatabaseTarget& target);

  const std::vector<ExportColumn>& Colonnes() const { return columns_; }

  /// The values of a row, one for each column. A latitude keeps its sign. What is Null is empty or
  /// 0 where all databases get the same columns; else it stays so, and a row that misses a
  /// coordinate has no point. Texts are valid until the next call, and as long as those of the row.
  ///
  /// Fails as LambertPoints does, with the row.
  /// @param cells  of the table, Column::Count of them
  /// @param row    its place in the grid, from 1
  void Ligne(std::span<const Cell> cells, std::int64_t row, std::span<Cell> values);

  /// The codes of the datums that points were to be computed on and that the catalogue lacks.
  std::vector<std::string> DatumsInconnus() const;

  /// Title and comment do not go whole into a cell of the target.
  bool MemoCoupe() const { return memoCut_; }

 private:
  void PrendMemo(std::size_t longest);
  bool A(ColumnSource source) const;
  LambertPoint CalculeXY(std::span<const Cell> cells, std::int64_t row);
  Cell PointDe(std::span<const Cell> cells);
  Cell Valeur(const ExportColumn& column, std::span<const Cell> cells);
  Cell Nombre(const Cell& cell, bool whole) const;
  Cell TexteDe(const Cell& cell, bool trimmed);

  StoreState& state_;
  bool keepsNull_;
  std::vector<ExportColumn> columns_;
  bool withXY_, withFreeFields_;
  std::string memo_;
  bool memoCut_ = false;

  LambertPoints points_;
  std::int16_t wgs84_;
  bool withoutDatum_ = false;  ///< a point was asked for, and the catalogue lacks the file's datum
  LambertPoint xy_;            ///< of the row, as the next three
  FreeText freeText_;
  std::string number_;
  std::string geometry_;
};

}  // namespace talpena
