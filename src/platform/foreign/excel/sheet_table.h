// A sheet as a table: headings, types of columns, rows.
#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>

#include "platform/foreign/excel/workbook.h"
#include "platform/table_engine.h"

namespace talpena::excel {

/// What reading a sheet once has told.
struct SheetTable {
  TableDef definition;
  std::uint32_t headings = 0;     ///< the row that holds them, from 0
  std::uint32_t firstColumn = 0;  ///< from 0
  std::int64_t rows = 0;          ///< below the headings, down to the last that holds something
};

/// The first row that holds something is the headings; the columns go from the first to the last
/// that does. One whose cells are all numbers is a Double, all truth values a Boolean, any other a
/// Text, or a Memo when a text is longer than 255 characters. A heading that is empty, too long or
/// there already becomes F1, F2, ... by its place. No column in a sheet without cells. More than
/// 1024 columns raise TooManyFields (3190).
SheetTable DecritFeuille(const SheetInfo& sheet, SheetRows& rows);

/// The rows of the table, also those in between that hold nothing. In a Text, numbers are by Str,
/// truth values TRUE and FALSE, and an empty text is Null.
std::unique_ptr<RowSource> LignesDeTable(const SheetTable& table, std::unique_ptr<SheetRows> rows);

}  // namespace talpena::excel
