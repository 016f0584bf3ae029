// Workbooks of Excel 5.0 to 2003 (BIFF5 and BIFF8), read record by record.
#pragma once
#include <memory>
#include <string>

#include "platform/foreign/excel/byte_source.h"
#include "platform/foreign/excel/workbook.h"

namespace talpena::excel {

/// Opens a workbook in a compound file, or a stream that stands alone. Raises UnrecognizedFormat
/// (3343) for damage and for workbooks of Excel 4.0 and before, NotSupported (3251) for one that a
/// password protects.
std::unique_ptr<Workbook> OuvreClasseurBiff(std::shared_ptr<ByteSource> file);

}  // namespace talpena::excel
