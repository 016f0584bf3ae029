// Tables of dBase and FoxPro, read.
#pragma once
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/foreign/bytes_at.h"
#include "platform/foreign/dbase/header.h"
#include "platform/foreign/dbase/limits.h"
#include "platform/table_engine.h"

namespace talpena::dbase {

/// The files of a table. Nothing of them is trusted.
struct TableBytes {
  std::string path;  ///< that failures name
  std::shared_ptr<const BytesAt> rows;
  std::shared_ptr<const BytesAt> memos = {};  ///< null when the file is missing
  std::string codePage = {};                  ///< what the file ".cpg" holds
};

class TableReader {
 public:
  /// Raises UnrecognizedFormat (3343) for a damaged head.
  ///
  /// @param attente  called while rows are read; false ends the reading (Cancelled)
  TableReader(TableBytes bytes, const LimitesDbase& limits,
              std::shared_ptr<const WorkBeat> attente);

  /// Columns of one name get a number from the second on. No field is required and every text may
  /// be empty.
  TableDef Definition(std::string_view name);

  /// All rows that are not deleted. Raises UnrecognizedFormat (3343) where the files are damaged,
  /// TooManyFields (3190) for more than 255 columns.
  std::unique_ptr<RowSource> Lignes();

  const Header& Tete() const { return header_; }

 private:
  int Page();
  int Devine() const;

  TableBytes bytes_;
  LimitesDbase limits_;
  std::shared_ptr<const WorkBeat> attente_;
  Header header_;
  std::optional<int> page_;  ///< once it is known
};

}  // namespace talpena::dbase
