// A table of a database that is made while building, written from records in memory.
#pragma once
#include <algorithm>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/table_engine.h"

namespace talpena {

/// Records as rows: `maker` gives the cells of one. Texts that it names must outlive the rows.
template <typename Record, typename Maker>
class MadeRows final : public RowSource {
 public:
  MadeRows(const std::vector<Record>& records, Maker maker)
      : records_(records), maker_(std::move(maker)) {}
  bool Suivante(std::span<Cell> cells) override {
    if (next_ == records_.size()) return false;
    const std::vector<Cell> row = maker_(records_[next_++]);
    std::copy(row.begin(), row.end(), cells.begin());
    return true;
  }

 private:
  const std::vector<Record>& records_;
  Maker maker_;
  std::size_t next_ = 0;
};

/// Makes the table and puts the rows in. Raises what the engine raises.
inline void EcritTable(Database& database, const TableDef& table, RowSource& rows) {
  database.CreateTable(table);
  std::vector<std::string_view> columns;
  for (const FieldDef& field : table.fields) columns.push_back(field.name);
  database.InsertRows(table.name, columns, rows);
}

}  // namespace talpena
