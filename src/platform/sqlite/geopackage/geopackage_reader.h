// GeoPackages read.
#pragma once
#include <memory>
#include <string>
#include <string_view>

#include "platform/foreign_format.h"

namespace talpena::sqlite {

/// The layers and tables of the contents, without the numbers of their rows (an integer primary
/// key); points and other shapes as the bytes that stand there. Nothing is written beside the file.
/// A value of another kind than its column is Null. Raises UnrecognizedFormat (3343) for a damaged
/// file, FileInUse (3045) where another program has rows in a journal beside it.
std::unique_ptr<ForeignDatabase> LitGeoPackage(const std::string& path);

/// The rows of one table.
std::unique_ptr<RowSource> LitLignesGeoPackage(const std::string& path, std::string_view table);

}  // namespace talpena::sqlite
