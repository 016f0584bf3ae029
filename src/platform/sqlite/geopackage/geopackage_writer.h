// GeoPackages written: a table, its points and the index of their places.
#pragma once
#include <memory>
#include <string>

#include "platform/foreign_format.h"

namespace talpena::sqlite {

/// A new file for tables to be made in; a Binary field "geom" (platform/geopackage_point.h) holds
/// the points of a table. It is whole on the disk after each step: empty, with an empty table, with
/// its rows. Rows that find the disk full leave those before them, but for the last of these: up to
/// the first thousand, then half of them at most, and never more than 16,000. A 32-bit float is
/// written as its shortest decimal.
///
/// Raises FileExists (58). CreeTable raises InvalidName (3125) for a name that the format keeps for
/// itself, TableExists (3010), TooManyFields (3190), NotSupported (3251) for a date.
std::unique_ptr<ForeignDatabase> EcritGeoPackage(const std::string& path);

}  // namespace talpena::sqlite
