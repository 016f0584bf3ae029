// Calls of the MGRS conversions as values, for their tests.
#pragma once
#include <cstdint>
#include <string>

#include "coords/mgrs.h"

namespace talpena::mgrstest {

inline constexpr double deg = DegUtm;
inline constexpr double wgsA = 6378137, wgsF = 1 / 298.257223563;
inline constexpr std::int16_t wgs84 = 21, clarke1866 = 5, bessel = 4;
inline constexpr std::int16_t withoutMgrs[] = {9, 11, 13, 14, 16, 24, 25, 0, -3, 99};

struct Written {
  std::int16_t zone = -1;
  double northing = -1, easting = -1;
  std::string mgrs = "before";
};

inline Written Ecrit(double latitude, double longitude, std::int16_t ellipsoid = wgs84) {
  Written w;
  LatLonVersMgrs(wgsA, wgsF, latitude, longitude, w.zone, w.northing, w.easting, w.mgrs, ellipsoid);
  return w;
}

struct Read {
  std::string mgrs;
  double latitude = -9, longitude = -9;
  std::int16_t zone = -1;
  double northing = -9, easting = -9;
  int error = -9;
};

inline Read Lit(const std::string& mgrs, std::int16_t ellipsoid = wgs84) {
  Read r{.mgrs = mgrs};
  MgrsVersLatLon(r.mgrs, ellipsoid, wgsA, wgsF, r.latitude, r.longitude, r.zone, r.northing,
                 r.easting, r.error);
  return r;
}

inline const std::string bands = "CDEFGHJKLMNPQRSTUVWX";

}  // namespace talpena::mgrstest
