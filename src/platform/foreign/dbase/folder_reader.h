// The tables of a folder, read.
#pragma once
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foreign/dbase/limits.h"
#include "platform/foreign/dbase/table_reader.h"
#include "platform/foreign/folder_of_tables.h"
#include "platform/foreign_format.h"

namespace talpena::dbase {

inline constexpr std::string_view tableEnd = ".dbf";

/// True for a file that is such a table.
bool EstTable(const std::string& path);

class FolderReader {
 public:
  FolderReader(const std::string& path, const LimitesDbase& limits,
               std::shared_ptr<const WorkBeat> attente);

  const FolderOfTables& Dossier() const { return folder_; }
  /// Those that can be read; a file that was named itself raises UnrecognizedFormat (3343) instead.
  std::vector<TableDef> Tables() const;
  /// The others, by their names alone.
  std::vector<TableDef> Illisibles() const;
  std::unique_ptr<RowSource> Rows(std::string_view table) const;
  /// Deleted ones too.
  std::int64_t NombreLignes(std::string_view table) const;

 private:
  TableDef Definition(const TableFile& file) const;
  TableReader Ouvre(const std::string& path) const;
  TableReader Trouve(std::string_view table) const;

  FolderOfTables folder_;
  LimitesDbase limits_;
  std::shared_ptr<const WorkBeat> attente_;
};

}  // namespace talpena::dbase
