// Workbooks of Excel 5.0 to 2003 as one of the formats that the table engine knows.
#pragma once
#include <cstddef>
#include <memory>

#include "platform/foreign_format.h"

namespace talpena {

/// What a workbook may have. One that is longer is not read.
struct LimitesExcel {
  std::size_t octetsLus = std::size_t{1} << 31;
  std::size_t octetsEcrits = (std::size_t{1} << 31) - 1;
};

/// `Excel 5.0;`: the file is opened for reading alone. Each sheet that holds something is a table;
/// see excel/sheet_table.h for its columns. Files of Excel 5.0 to 2003 are read, those of 5.0
/// written: one sheet, in a file that must not be there (TableExists, 3010).
std::unique_ptr<ForeignFormat> CreeFormatExcel(const LimitesExcel& limits = {});

}  // namespace talpena
