// Lambert conformal conics of Belgium, France and North Africa, and Paris grades. None of them
// changes datum: each runs on an ellipsoid of its own, and callers shift the point before or
// after. Pure arithmetic over the parameters that the caller keeps.
//
// Source: J. P. Snyder, Map Projections: A Working Manual, USGS Professional Paper 1395 (1987),
// pp. 104-110, eqs. 14-1 to 15-11; Institut geographique national, note technique NT/G 71. The
// constants pi/4 and pi/2 have eleven digits, 0.785398163375 and 1.57079632675, which moves a point
// by 0.2 mm at most, the same both ways.
//
// Latitudes and longitudes are decimal degrees, x (east) and y (north) metres. There are no
// bounds: far outside its zone a point comes out with numbers that mean little. Failures are
// raised and leave the results as they were: InvalidCall (5) beyond a pole, DivisionByZero (11)
// for a y at the height of the cone's apex, Overflow (6) where there is no finite result.
#pragma once
#include <array>
#include <cstddef>

namespace talpena {

/// ((1 - e s) / (1 + e s))^(e/2) for s = sin(phi), which parts the conformal from the geodetic
/// latitude: its power series in s, within 2e-16 of the value for all ellipsoids of the earth.
/// The reciprocal is the value at -s.
class FacteurConforme {
 public:
  constexpr FacteurConforme() = default;
  /// @param e2  square of the eccentricity
  constexpr explicit FacteurConforme(double e2) {
    // From f' (1 - e2 s^2) = -e2 f, term by term.
    c_[1] = -e2;
    for (std::size_t k = 1; k + 1 < c_.size(); ++k) {
      const auto order = static_cast<double>(k);
      c_[k + 1] = e2 * ((order - 1) * c_[k - 1] - c_[k]) / (order + 1);
    }
  }
  constexpr double operator()(double s) const {
    // Three groups of four that are independent: twice as fast as one chain.
    const double s2 = s * s, s4 = s2 * s2;
    const double low = (c_[0] + c_[1] * s) + (c_[2] + c_[3] * s) * s2;
    const double middle = (c_[4] + c_[5] * s) + (c_[6] + c_[7] * s) * s2;
    const double high = (c_[8] + c_[9] * s) + (c_[10] + c_[11] * s) * s2;
    return low + (middle * s4 + high * (s4 * s4));
  }

 private:
  std::array<double, 12> c_{1};
};

/// The variables of one family, as its last known zone left them. Nothing is set at first.
struct LambertParametres {
  int zone = 0;         ///< that the rest belongs to; 0 for none
  double a = 0;         ///< semi-major axis, metres
  double fInverse = 0;  ///< 1/f
  double phi0 = 0;      ///< latitude of the origin, radians
  double phi1 = 0;      ///< first parallel, radians; two-parallel family only
  double phi2 = 0;      ///< second
  double lambda0 = 0;   ///< central meridian, radians
  double k0 = 1;        ///< scale on the parallel of origin; one-parallel family only
  double x0 = 0;        ///< false easting, metres
  double y0 = 0;        ///< false northing, metres

  double e2 = 0;              ///< square of the eccentricity
  double n = 0;               ///< ratio of angles on the cone to longitudes
  double F = 0;               ///< radius constant, of a = 1
  double rho0 = 0;            ///< radius of the parallel of origin, metres; without k0
  double t0 = 0;              ///< t of the origin
  double rotation = 0;        ///< of the y axis against the central meridian, radians; Belgium only
  double echelle = 0;         ///< a F k0: radius of the parallel on which t is 1, metres
  double parEchelle2 = 0;     ///< 1 / echelle^2
  double parN2 = 0;           ///< 1 / (2 n)
  FacteurConforme facteur{};  ///< for e2
};

/// Lambert belge 1972 (LMB, and under it the IFBL grid), on the International ellipsoid. The two
/// agree within 0.1 mm: the inverse stops when a turn moves it by less than 2.8e-8 radians.
void LatLonVersLambertBelge(double latitude, double longitude, double& x, double& y);
void LambertBelgeVersLatLon(double x, double y, double& latitude, double& longitude);

/// Sets the zone of the two-parallel family: 1 to 4 are LF1 to LF4, 5 is LFE, 6 North America.
/// The same zone again costs nothing; an unknown one keeps what is set, and raises
/// DivisionByZero (11) when nothing is. Forward and inverse agree within 3 mm, since the inverse
/// stops when a turn moves it by less than 1e-7 radians.
void InitLambertFrance(LambertParametres& p, int zone);
void LatLonVersLambertFrance(LambertParametres& p, double latitude, double longitude, double& x,
                             double& y, int zone);
void LambertFranceVersLatLon(LambertParametres& p, double x, double y, double& latitude,
                             double& longitude, int zone);

/// The same for the one-parallel family: 1 is NMA, 2 is SMA, 3 to 6, 98 and 99 have no code.
/// The scale factor is in the radii but not in rho0, so y lies rho0 (1 - k0) above that of the
/// zones as published: 3.6 km in the north of Morocco. Forward and inverse agree within 3 mm.
void InitLambertUnParallele(LambertParametres& p, int zone);
void LatLonVersLambertUnParallele(LambertParametres& p, double latitude, double longitude,
                                  double& x, double& y, int zone);
void LambertUnParalleleVersLatLon(LambertParametres& p, double x, double y, double& latitude,
                                  double& longitude, int zone);

/// Longitude of Paris, decimal degrees; also the central meridian of the French zones.
inline constexpr double MeridienParis = 2.337222;

/// Paris grades (GRP): hundredths of a right angle, longitudes counted from Paris. Grades that
/// were read are held in single precision, 1e-6 degrees in France; those made are not cut.
void GradesParisVersLatLon(float latitudeGrades, float longitudeGrades, double& latitude,
                           double& longitude);
void LatLonVersGradesParis(double latitude, double longitude, double& latitudeGrades,
                           double& longitudeGrades);

}  // namespace talpena
