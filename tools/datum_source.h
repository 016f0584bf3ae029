// The datum catalogue as its two source tables in data/datum hold it.
#pragma once
#include <string>
#include <vector>

namespace talpena {

struct DatumSource {
  std::string code, name, applic;
  int ellipsoid = 0;              ///< id of an EllipsoidSource
  int da = 0;                     ///< 6378137 less the semi-major axis, whole metres
  double df = 0;                  ///< flattening of WGS84 less that of the ellipsoid
  double dx = 0, dy = 0, dz = 0;  ///< to WGS84, metres
};

struct EllipsoidSource {
  int id = 0;
  std::string code, name;
  double a = 0;       ///< metres
  double fInv = 0;    ///< 1/f
  bool mgrs = false;  ///< MGRS has letters for it
};

struct CatalogueSource {
  std::vector<DatumSource> datums;
  std::vector<EllipsoidSource> ellipsoids;

  /// Value of column Use: 2 on an ellipsoid that MGRS knows, else 1.
  int Use(const DatumSource& datum) const;
};

/// Reads both tables; throws std::runtime_error naming the file and the fault: a missing file or
/// column, a field that is no number, an unknown ellipsoid, ids that do not run 1, 2, 3 ...
CatalogueSource LitSourceCatalogue(const std::string& datumsCsv, const std::string& ellipsoidsCsv);

}  // namespace talpena
