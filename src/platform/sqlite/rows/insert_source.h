// Rows that are added in bulk, on their way through the columns' checks.
#pragma once
#include <string>
#include <vector>

#include "platform/sqlite/columns.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/rows/source_table.h"
#include "platform/table_engine.h"

namespace talpena::sqlite {

class InsertSource final : public SourceRows {
 public:
  /// `room`: how many rows the table can still number.
  InsertSource(const TableState& table, const std::vector<int>& fields, RowSource& source,
               Check check, std::int64_t room)
      : table_(table),
        fields_(fields),
        source_(source),
        check_(check),
        room_(room),
        given_(fields.size()),
        stored_(fields.size()),
        scratch_(fields.size()) {}

  bool Suivante(std::span<const Cell>& cells) override;
  std::int64_t Nombre() const { return count_; }

 private:
  const TableState& table_;
  const std::vector<int>& fields_;
  RowSource& source_;
  Check check_;
  std::int64_t room_;
  std::int64_t count_ = 0;
  std::vector<Cell> given_;
  std::vector<Cell> stored_;
  std::vector<std::string> scratch_;
};

/// Adds every row of a source to a table; the number of rows. Behind a failure, which is thrown on,
/// the rows before stay.
std::int64_t InsereTout(Connection& connection, TableState& table, const std::vector<int>& fields,
                        RowSource& source, Check check);

}  // namespace talpena::sqlite
