// Which parts of an .xlsx file are its sheets.
#pragma once
#include <string>
#include <vector>

#include "platform/foreign/excel/workbook.h"
#include "platform/foreign/excel/zip_reader.h"

namespace talpena::excel {

struct XlsxPackage {
  std::vector<SheetInfo> sheets;
  std::vector<std::string> parts;  ///< of the sheets, in the zip file
  std::string texts;               ///< the part of the shared texts; empty when there is none
};

/// Raises UnrecognizedFormat (3343).
XlsxPackage LitPaquet(const ZipFile& file);

}  // namespace talpena::excel
