// A table of an Access file (Jet 4) while rows are put into it.
#pragma once
#include <cstdint>
#include <map>
#include <span>
#include <vector>

#include "platform/foreign/jet/columns.h"
#include "platform/foreign/jet/index_leaf.h"
#include "platform/foreign/jet/long_values.h"
#include "platform/foreign/jet/row_encoder.h"
#include "platform/foreign/jet/row_pages.h"
#include "platform/foreign/jet/table_definition.h"
#include "platform/foreign/jet/usage_map.h"
#include "platform/value.h"

namespace talpena::jet {

class TableWriter {
 public:
  /// @param maps     takes the table's maps
  /// @param page     of its definition, given out already
  /// @param indexes  what they are called and made of; the rest is filled in
  TableWriter(PageFile& file, MapRows& maps, std::uint32_t page, TableKind kind,
              std::vector<Column> columns, std::vector<IndexShape> indexes = {});
  TableWriter(const TableWriter&) = delete;
  TableWriter& operator=(const TableWriter&) = delete;

  /// Puts a row down, one cell a column. When it throws, the rows before stay.
  void Ajoute(std::span<const Cell> cells);
  /// True when the indexes still take a row.
  bool Tient(std::span<const Cell> cells) const;
  /// Writes all that is still in memory: then the table in the file is whole.
  void Ecrit();

  std::int64_t Lignes() const { return rows_; }
  std::uint32_t NumeroDePage() const { return page_; }

 private:
  TableShape Forme(TableKind kind, PageFile& file, MapRows& maps);
  std::string Cle(const IndexShape& index, std::span<const Cell> cells) const;
  std::span<const Cell> Numerotee(std::span<const Cell> cells);

  std::uint32_t page_;
  std::vector<Column> columns_;
  std::vector<IndexShape> indexes_;
  std::vector<IndexLeaf> leaves_;
  UsageMap used_;
  UsageMap free_;
  std::map<std::size_t, LongValues> longValues_;
  RowPages rowPages_;
  RowEncoder encoder_;
  TableDefinition definition_;
  std::uint32_t rows_ = 0;
  std::uint32_t lastNumber_ = 0;
  std::vector<Cell> numbered_;  ///< a row with its number
};

}  // namespace talpena::jet
