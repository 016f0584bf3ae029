// A sheet that is written, whatever the file that holds it.
#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/foreign_format.h"

namespace talpena::excel {

/// What the sheets of a format may have.
struct SheetLimits {
  std::int64_t rows = 0;  ///< below the headings
  std::size_t columns = 0;
  std::size_t characters = 0;  ///< of a text
};

/// A sheet with its headings. Where a row is refused, those before it stay.
class SheetWriter {
 public:
  virtual ~SheetWriter() = default;
  virtual void Ajoute(std::span<const Cell> cells) = 0;
  /// Makes the file whole.
  virtual void Acheve() = 0;
};

struct SheetFormat {
  SheetLimits limits;
  /// A new file with a table as the only sheet of this name; FileExists (58).
  std::function<std::unique_ptr<SheetWriter>(const TableDef& table, const std::string& sheet)> cree;
  std::function<std::unique_ptr<ForeignDatabase>()> ouvre;  ///< the finished file, for reading
};

/// The file to be, for one table to be made in. CreeTable raises TableExists (3010) when there is a
/// file, NotSupported (3251) for a second table, an index or a binary column, InvalidArgument
/// (3001) without columns, for two of one name or a text of no length, TooManyFields (3190),
/// InvalidName (3125) without a name. InsereLignes raises SpreadsheetFull (3437) when there are
/// more rows than the sheet takes, after those that it does take, and tells how many are left out;
/// FieldTooSmall (3163) for a text beyond its column or, in a Memo, beyond the longest of a cell.
std::unique_ptr<ForeignDatabase> CreeBaseDeFeuille(SheetFormat format);

/// The name of the sheet for a table: at most 31 characters, `_` for those that it may not have.
std::string NomDeFeuille(std::string_view table);

}  // namespace talpena::excel
