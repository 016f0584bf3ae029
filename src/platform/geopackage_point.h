// Points as the cells of a GeoPackage hold them.
#pragma once
#include <string>
#include <string_view>

namespace talpena {

/// The column that a table in a GeoPackage has its points in: a Binary field of this name.
inline constexpr std::string_view colonneGeometrie = "geom";

/// A point on WGS84, decimal degrees, as the bytes of such a cell.
/// Source: OGC 12-128r17, GeoPackage Encoding Standard 1.3, clause 2.1.3; well-known binary of
/// OGC 06-103r4.
std::string PointGeoPackage(double longitude, double latitude);

}  // namespace talpena
