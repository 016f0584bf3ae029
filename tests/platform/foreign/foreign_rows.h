// Rows that go into other makers' files and come out of them.
#pragma once
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "common/talpena_error.h"
#include "platform/foreign_format.h"
#include "platform/value.h"

namespace talpena::test {

using Row = std::vector<Value>;

inline std::vector<Row> LitLignes(ForeignDatabase& database, const std::string& table,
                                  std::size_t columns) {
  std::vector<Row> rows;
  std::vector<Cell> cells(columns);
  const auto source = database.Rows(table);
  while (source->Suivante(cells)) {
    Row row;
    for (const Cell& cell : cells) row.push_back(cell.Garde());
    rows.push_back(std::move(row));
  }
  EXPECT_FALSE(source->Suivante(cells)) << "the end lasts";
  return rows;
}

inline TableDef TableDe(ForeignDatabase& database, const std::string& name) {
  for (const TableDef& table : database.Tables()) {
    if (table.name == name) return table;
  }
  ADD_FAILURE() << "no table " << name;
  return {};
}

/// Rows made one by one while they are asked for.
class MadeRows final : public RowSource {
 public:
  using Maker = std::function<Row(std::size_t)>;
  MadeRows(std::size_t count, Maker maker) : count_(count), maker_(std::move(maker)) {}
  bool Suivante(std::span<Cell> cells) override {
    if (next_ == count_) return false;
    row_ = maker_(next_++);
    for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = Cell::Vue(row_[i]);
    return true;
  }

 private:
  std::size_t count_;
  Maker maker_;
  std::size_t next_ = 0;
  Row row_;
};

inline MadeRows Source(std::vector<Row> rows) {
  const std::size_t count = rows.size();
  return {count, [rows = std::move(rows)](std::size_t i) { return rows[i]; }};
}

inline FieldDef Champ(const char* name, FieldType type, int size = 0) {
  return {.name = name, .type = type, .size = size, .allowZeroLength = true};
}

/// Number of the failure that a body ends in; 0 for none.
inline int Numero(const std::function<void()>& body) {
  try {
    body();
  } catch (const TalpenaError& error) {
    EXPECT_FALSE(error.description().empty());
    return error.number();
  }
  return 0;
}

}  // namespace talpena::test
