// A new table of dBase IV or FoxPro 2.5.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/foreign/appended_file.h"
#include "platform/foreign/dbase/columns.h"
#include "platform/foreign/dbase/limits.h"
#include "platform/foreign/dbase/memo_writer.h"
#include "platform/foreign/dbase/row_encoder.h"
#include "platform/foreign/folder_of_tables.h"
#include "platform/table_engine.h"

namespace talpena::dbase {

class TableWriter {
 public:
  /// Makes the files of an empty table, whole on the disk.
  TableWriter(Product product, const FolderOfTables& folder, const TableDef& table,
              const LimitesDbase& limits);
  TableWriter(const TableWriter&) = delete;
  TableWriter& operator=(const TableWriter&) = delete;

  const TableDef& Definition() const { return definition_; }
  std::int64_t Lignes() const { return rows_; }

  /// Adds the rows and finishes the files; also where a row fails, which is thrown on.
  void Ajoute(RowSource& rows);

 private:
  std::optional<MemoWriter> OuvreMemos(const FolderOfTables& folder,
                                       const LimitesDbase& limits) const;
  void AjouteLignes(RowSource& rows);
  void Acheve();
  void GardeEcrites();
  std::size_t FinDesLignes() const;
  std::string Tete() const;

  TableDef definition_;
  Product product_;
  std::vector<WrittenColumn> columns_;
  std::optional<MemoWriter> memos_;
  AppendedFile file_;
  RowEncoder encoder_;
  std::uint32_t rows_ = 0;
};

}  // namespace talpena::dbase
