// Rows of a file that is opened for them alone.
#pragma once
#include <memory>
#include <span>
#include <string_view>
#include <utility>

#include "platform/foreign_format.h"

namespace talpena {

/// The rows of one of its tables; the file stays open as long as they last.
class RowsOfFile final : public RowSource {
 public:
  RowsOfFile(std::unique_ptr<ForeignDatabase> database, std::string_view table)
      : database_(std::move(database)), rows_(database_->Rows(table)) {}
  bool Suivante(std::span<Cell> cells) override { return rows_->Suivante(cells); }

 private:
  std::unique_ptr<ForeignDatabase> database_;
  std::unique_ptr<RowSource> rows_;
};

}  // namespace talpena
