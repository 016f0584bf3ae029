// The tables of a GeoPackage that are about its tables.
// Source: OGC 12-128r17, GeoPackage Encoding Standard 1.3.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "platform/table_engine.h"

namespace talpena::sqlite {

/// A name between double quotes, as SQL wants it.
std::string Entoure(std::string_view name);

/// What makes an empty GeoPackage of an empty file.
std::vector<std::string> SqlDuPaquet();

/// What makes a table, with its line in the table of contents and, where it has a field of points
/// (colonneGeometrie), the index of their places. NotSupported (3251) for a field that the format
/// has no type for.
std::vector<std::string> SqlDeTable(const TableDef& table);

/// True when a table has a field of points.
bool AGeometrie(const TableDef& table);

/// Name of the index of places.
std::string NomIndexSpatial(std::string_view table);

}  // namespace talpena::sqlite
