// A workbook as a database that is read: each sheet that holds something is a table.
#pragma once
#include <memory>

#include "platform/foreign/excel/workbook.h"
#include "platform/foreign_format.h"

namespace talpena::excel {

/// Reads every sheet once, for its columns; damage raises UnrecognizedFormat (3343) then already.
std::unique_ptr<ForeignDatabase> CreeBaseDeClasseur(std::unique_ptr<Workbook> workbook);

}  // namespace talpena::excel
