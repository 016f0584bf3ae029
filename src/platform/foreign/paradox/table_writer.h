// A Paradox table while rows are put into it.
#pragma once
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/foreign/paradox/block_writer.h"
#include "platform/foreign/paradox/memo_writer.h"
#include "platform/foreign/paradox/paradox_format.h"
#include "platform/foreign/paradox/record_encoder.h"
#include "platform/foreign/paradox/written_columns.h"

namespace talpena::paradox {

/// Where a table goes.
struct TablePlace {
  std::string table;
  std::string memos;
};

class TableWriter {
 public:
  /// Makes the files; nobody's are written over: FileExists (58).
  TableWriter(const TableDef& definition, const TablePlace& place, const ParadoxLimits& limits);
  TableWriter(const TableWriter&) = delete;
  TableWriter& operator=(const TableWriter&) = delete;

  const TableDef& Definition() const { return definition_; }
  const std::string& Chemin() const { return blocks_.Chemin(); }
  std::int64_t Lignes() const { return blocks_.Lignes(); }

  /// Puts a row down, one cell a column. When it throws, the rows before stay.
  void Ajoute(std::span<const Cell> cells) { blocks_.Ajoute(encoder_.Enregistrement(cells)); }
  /// Writes all that is still in memory: then the table is whole.
  void Acheve();

 private:
  TableDef definition_;
  std::vector<WrittenColumn> columns_;
  BlockWriter blocks_;
  std::unique_ptr<MemoWriter> memos_;  ///< null without long values
  RecordEncoder encoder_;
};

}  // namespace talpena::paradox
