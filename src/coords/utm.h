// UTM on any ellipsoid, both ways, by the eighth-order series of the Transverse Mercator. Pure
// arithmetic: no state, no table. Angles are radians, lengths metres.
// Source: Defense Mapping Agency, TM 8358.2, The Universal Grids (1989).
//
// Arithmetic faults raise TalpenaError: DivisionByZero (11) for an ellipsoid without series (an
// axis of 0, a flattening of 0 or 1), Overflow (6) where a result has no finite value. Angles and
// lengths far outside a zone give numbers without meaning, never infinities.
#pragma once
#include <cstdint>
#include <numbers>

namespace talpena {

/// One degree in radians, with the full pi. Zones and bands are cut with it, unlike the degrees
/// of stored coordinates (EnRadians), whose pi has ten digits.
inline constexpr double DegUtm = std::numbers::pi / 180;

inline constexpr double EchelleUtm = 0.9996;        ///< scale on the central meridian
inline constexpr double FauxEstUtm = 500000;        ///< false easting, metres
inline constexpr double FauxNordSudUtm = 10000000;  ///< false northing of the south, metres

/// The constants of an ellipsoid, for callers that convert many points on one.
struct UtmSeries {
  /// @param demiGrandAxe   semi-major axis, metres
  /// @param aplatissement  flattening (not its inverse)
  UtmSeries(double demiGrandAxe, double aplatissement);

  double a;    ///< semi-major axis, metres
  double f;    ///< flattening
  double b;    ///< semi-minor axis, metres
  double e2;   ///< first eccentricity squared
  double ep2;  ///< second eccentricity squared
  double A;    ///< the five of the meridian arc, metres
  double B;
  double C;
  double D;
  double E;
  double mu2;  ///< the first two of the inverse arc: latitude by sines of 2 mu and 4 mu
  double mu4;
};

/// sqrt(1 - e2 sin^2 phi).
double RayonW(double e2, double phi);
/// Radius of curvature in the prime vertical, metres.
double RayonNu(double a, double e2, double phi);
/// Radius of curvature in the meridian, metres.
double RayonRho(double a, double e2, double phi);

/// Length of the meridian from the equator, metres, negative in the south:
/// A phi - B sin 2 phi + C sin 4 phi - D sin 6 phi + E sin 8 phi.
double ArcMeridien(double A, double B, double C, double D, double E, double phi);
double ArcMeridien(const UtmSeries& series, double phi);

/// Longitude of a zone's central meridian, radians.
constexpr double MeridienCentral(int zone) { return (6 * zone - 183) * DegUtm; }

/// Zone of a longitude, 1 to 60, without the exceptions of Norway and Svalbard. What lies
/// outside -180 to 180 degrees belongs to the nearest zone; 180 itself is in zone 60, not 1.
std::int16_t ZoneUtm(double longitude);

/// Latitude and longitude to UTM. Both ways lie within 0.01 mm of the exact projection up to 3
/// degrees from the central meridian, 1 mm in the wide fields of Norway and Svalbard, 2 cm up to
/// 9 degrees. South of the equator the northing counts from 10,000,000.
///
/// @param zone  taken as it is, or with mode 0 set to ZoneUtm(longitude)
/// @param mode  0 to choose the zone, anything else to keep it
void LatLonVersUtm(double a, double f, double latitude, double longitude, std::int16_t& zone,
                   double& northing, double& easting, int mode);
void LatLonVersUtm(const UtmSeries& series, double latitude, double longitude, std::int16_t& zone,
                   double& northing, double& easting, int mode);

/// UTM to latitude and longitude.
///
/// @param zone      not checked: another than 1 to 60 gives longitudes beyond 180 degrees
/// @param northing  negative in the south, and then becomes its absolute value
void UtmVersLatLon(double a, double f, double& latitude, double& longitude, std::int16_t zone,
                   double& northing, double easting);
void UtmVersLatLon(const UtmSeries& series, double& latitude, double& longitude, std::int16_t zone,
                   double& northing, double easting);

}  // namespace talpena
