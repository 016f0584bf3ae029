// Workbooks of Excel since 2007 (.xlsx), read from front to back.
// Source: ECMA-376, Office Open XML File Formats, Part 1, 18 (SpreadsheetML) and Part 2 (packages).
#pragma once
#include <memory>

#include "platform/foreign/excel/byte_source.h"
#include "platform/foreign/excel/workbook.h"

namespace talpena::excel {

/// Raises UnrecognizedFormat (3343) for damage; rows and cells that do not ascend are damage too.
std::unique_ptr<Workbook> OuvreClasseurXlsx(std::shared_ptr<ByteSource> file);

}  // namespace talpena::excel
