// Other makers' table files, as the table engine reads them.
#pragma once
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/table_engine.h"

namespace talpena {

/// A file of another maker, opened for reading.
class ForeignDatabase {
 public:
  virtual ~ForeignDatabase() = default;
  virtual std::vector<TableDef> Tables() = 0;
  /// All rows of a table, one cell per field of its definition, in file order. A date is a number
  /// of days (FieldType::Date) or a text "yyyy-mm-dd" or "yyyy-mm-dd hh:mm:ss".
  virtual std::unique_ptr<RowSource> Rows(std::string_view table) = 0;
};

class ForeignFormat {
 public:
  virtual ~ForeignFormat() = default;
  /// True when the file's head (or the connect string) is this format's.
  virtual bool Reconnait(const std::string& path, std::string_view connect) = 0;
  /// Raises DatabaseNotFound (3024), UnrecognizedFormat (3343) for a damaged file.
  virtual std::unique_ptr<ForeignDatabase> Ouvre(const std::string& path) = 0;
};

}  // namespace talpena
