// Workbooks of Excel as formats that the table engine knows.
#pragma once
#include <cstddef>
#include <memory>

#include "platform/foreign_format.h"

namespace talpena {

/// What the file of a workbook may have. A longer one is not read.
struct LimitesExcel {
  std::size_t octetsLus = std::size_t{1} << 31;
  std::size_t octetsEcrits = (std::size_t{1} << 31) - 1;  ///< of `Excel 5.0;`
};

/// `Excel 5.0;`: files of Excel 5.0 to 2003 are read, those of 5.0 written (BIFF5; see
/// excel/biff_writer.h). Each sheet that holds something is a table; excel/sheet_table.h tells of
/// its columns, which have no rules of their own. Of formulas there is the value that they had.
/// To write, OuvrePourEcrire and Cree take the path of a file that is not there; what is made in it
/// is one sheet (excel/sheet_writer.h).
std::unique_ptr<ForeignFormat> CreeFormatExcel(const LimitesExcel& limits = {});

/// `Excel 12.0 Xml;`: .xlsx files, in the same way (excel/xlsx_writer.h).
std::unique_ptr<ForeignFormat> CreeFormatXlsx(const LimitesExcel& limits = {});

}  // namespace talpena
