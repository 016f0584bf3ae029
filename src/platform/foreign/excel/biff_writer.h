// A worksheet of Excel 5.0 (BIFF5) in a workbook of its own.
#pragma once
#include <cstddef>
#include <memory>
#include <string>

#include "platform/foreign/excel/sheet_writer.h"

namespace talpena::excel {

/// 16,384 rows with that of the headings, 256 columns, texts of 255 characters.
inline constexpr SheetLimits limitsBiff5{.rows = 16383, .columns = 256, .characters = 255};

/// Makes a new file; failures as of ReservedFile. Texts are cells of text whatever they look like,
/// in code page 1252: a character that it lacks raises NotInCodePage (481). An empty text, as
/// Null, is no cell, but in a row that has no other. A 32-bit float is the number of its shortest
/// decimal. What is no finite number raises Overflow (6).
///
/// @param most  bytes that the file may have
std::unique_ptr<SheetWriter> CreeFeuilleBiff5(const std::string& path, std::size_t most,
                                              const TableDef& table, const std::string& sheet);

}  // namespace talpena::excel
