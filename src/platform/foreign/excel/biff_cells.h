// The cells of a worksheet of BIFF5 or BIFF8, row by row.
#pragma once
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/foreign/excel/biff_globals.h"
#include "platform/foreign/excel/byte_source.h"
#include "platform/foreign/excel/workbook.h"

namespace talpena::excel {

/// Rows in their order, whatever the order of the records. `globals` has to last.
///
/// @param bytes  takes the length of the sheet's substream
std::unique_ptr<SheetRows> LitCellules(std::shared_ptr<ByteSource> stream, std::size_t place,
                                       const BiffGlobals& globals, std::size_t& bytes);

}  // namespace talpena::excel
