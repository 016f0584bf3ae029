// Workbooks of Excel 5.0 to 2003 as one of the formats that the table engine knows.
#pragma once
#include <cstddef>
#include <memory>

#include "platform/foreign_format.h"

namespace talpena {

/// What a workbook may have; what goes beyond is refused as damaged.
struct LimitesExcel {
  std::size_t octetsFichier = std::size_t{256} << 20;
};

/// `Excel 5.0;`: the file is opened for reading alone. Each sheet that holds something is a table;
/// see excel/sheet_table.h for its columns. Files of Excel 5.0 to 2003 are read, those of 5.0
/// written: one sheet, in a file that must not be there (TableExists, 3010).
std::unique_ptr<ForeignFormat> CreeFormatExcel(const LimitesExcel& limits = {});

}  // namespace talpena
