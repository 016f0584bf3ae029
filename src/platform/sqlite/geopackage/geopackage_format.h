// GeoPackages as one of the formats that the table engine knows.
#pragma once
#include <memory>

#include "platform/foreign_format.h"

namespace talpena {

/// `GeoPackage;`: a file, read and written. A table in it is a layer; see geopackage_reader.h and
/// geopackage_writer.h.
std::unique_ptr<ForeignFormat> CreeFormatGeoPackage();

}  // namespace talpena
