// A sheet in an .xlsx file of its own, by libxlsxwriter.
#pragma once
#include <memory>
#include <string>

#include "platform/foreign/excel/sheet_writer.h"

namespace talpena::excel {

/// With a row for the headings.
inline constexpr SheetLimits limitsXlsx{.rows = 1048575, .columns = 16384, .characters = 32767};

/// Makes a new file with the headings. The rows gather in a temporary file of the system's, from
/// which Acheve makes a file beside this one and puts it in its place: a disk that fills leaves the
/// headings alone. Texts are cells of text whatever they look like; an empty one, as Null, is no
/// cell, so that the sheet ends with the last row that holds something. A 32-bit float is the
/// number of its shortest decimal; numbers keep 16 digits, and what is no finite number raises
/// Overflow (6). Raises FileExists (58), DiskFull (61), ...
std::unique_ptr<SheetWriter> CreeFeuilleXlsx(const std::string& path, const TableDef& table,
                                             const std::string& sheet);

}  // namespace talpena::excel
