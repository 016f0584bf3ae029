#include "coords/lambert.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "coords/datum.h"
#include "coords/faults.h"

namespace talpena {
namespace {

/// pi/2 of these projections, and what it lacks. Held by Lambert.KeepsTheElevenDigitsOfPi.
constexpr double PiSur2 = 1.57079632675;
constexpr double ManqueAPiSur2 = std::numbers::pi / 2 - PiSur2;

/// tan(pi/4 - phi/2) * ((1 + e sin phi) / (1 - e sin phi))^(e/2): 0 at the north pole, growing
/// southward. Beyond the poles it is negative.
double T(const FacteurConforme& facteur, double phi) {
  const double sine = std::sin(PiSur2 - phi), cosine = std::cos(PiSur2 - phi);
  const double sinPhi = cosine - ManqueAPiSur2 * sine;
  const double tangent = cosine >= 0 ? sine / (1 + cosine) : Divise(1 - cosine, sine);  // of half
  return tangent * facteur(-sinPhi);
}

/// sin(phi) of phi = pi/2 - 2 atn(u).
double SinDeTangente(double u) { return (1 - u * u - 2 * ManqueAPiSur2 * u) / (1 + u * u); }

/// Whether the latitudes pi/2 - 2 atn(u) of two tangents are within a small angle, in radians.
bool Proches(double u, double v, double angle) {
  return 2 * std::abs(u - v) <= angle * (1 + u * v);
}

/// The iteration for the latitude of a t: u = t ((1 - e sin phi) / (1 + e sin phi))^(e/2), where u
/// is the tangent of (pi/2 - phi)/2, in turns until phi rests. Each turn divides the error by 150
/// at least.
///
/// @param before, u  the tangents before and after the first turn
/// @param rest       radians between two turns
/// @param more       turns at most after the first
double Itere(const FacteurConforme& facteur, double t, double before, double u, double rest,
             int more) {
  for (int i = 0; i < more && !Proches(before, u, rest); ++i) {
    before = u;
    u = t * facteur(SinDeTangente(u));
  }
  return u;
}

double LatitudeConique(const FacteurConforme& facteur, double t) {
  return Itere(facteur, t, t, t * facteur(SinDeTangente(t)), 1e-07, 10);
}

double LatitudeBelge(const FacteurConforme& facteur, double t) {
  // The start is 2 atn(t), the colatitude: forgotten by the turns, but it decides their number.
  const double before = (1 - ManqueAPiSur2 - t) / (1 + t);
  constexpr int noLimit = 1000;  // the fifth turn is the last
  return Itere(facteur, t, before, t * facteur(2 * t / (1 + t * t)), 2.77777e-08, noLimit);
}

void Projette(const LambertParametres& p, double latitude, double longitude, double& x, double& y) {
  const double t = Positif(T(p.facteur, EnRadians(latitude)));
  const double rho = p.echelle * std::exp(p.n * std::log(t));
  const double theta = (EnRadians(longitude) - p.lambda0) * p.n - p.rotation;
  const double east = Fini(rho * std::sin(theta) + p.x0);
  y = Fini((p.rho0 - rho * std::cos(theta)) + p.y0);
  x = east;
}

/// @param tangente  how the tangent of half the colatitude comes out of t
template <typename Tangente>
void Inverse(const LambertParametres& p, double x, double y, double& latitude, double& longitude,
             Tangente tangente) {
  const double east = x - p.x0, south = p.rho0 - (y - p.y0);
  const double theta = std::atan(Divise(east, south));
  // rho has the sign of F, so the square of their quotient tells all.
  const double rho2 = Fini(east * east + south * south);
  const double t = std::exp(std::log(rho2 * p.parEchelle2) * p.parN2);
  // From 1e17 on, t is the south pole; the limit keeps its square a number.
  const double u = tangente(p.facteur, std::min(t, 1e100));
  const double phi = Fini(PiSur2 - 2 * std::atan(u));
  longitude = Fini(EnDegres((theta + p.rotation) / p.n + p.lambda0));
  latitude = EnDegres(phi);
}

constexpr double CarreExcentricite(double a, double fInverse) {
  const double b = (1 - 1 / fInverse) * a;
  return (a * a - b * b) / (a * a);
}

/// Sets n and the scale, and what the inverse needs of them.
constexpr void PoseEchelle(LambertParametres& p, double n, double echelle) {
  p.n = n;
  p.echelle = echelle;
  p.parEchelle2 = 1 / (echelle * echelle);
  p.parN2 = 1 / (2 * n);
}

constexpr LambertParametres Belgique() {
  LambertParametres p;
  p.a = 6378388.0;
  p.fInverse = 297.0;
  p.e2 = CarreExcentricite(p.a, p.fInverse);
  p.facteur = FacteurConforme(p.e2);
  PoseEchelle(p, 0.7716421928, 11565915.812935);
  p.lambda0 = 0.076042943;
  p.rotation = 0.000142043;
  p.x0 = 150000.01256;
  p.rho0 = 5400088.4378;
  return p;
}

constexpr LambertParametres belgique = Belgique();

/// A zone of the two-parallel family; angles in degrees.
struct ZoneFrance {
  double a, fInverse, phi0, phi1, phi2, lambda0, x0, y0;
};

constexpr double phi0Zone2 = 52 * 0.9;  // degrees; 46.8 and a hair, as the product of doubles is

// As stored data were made: the central meridian lacks 0.000007 degrees of the published one, and
// the second parallel of zone 4 stands for 42.767663. Held by LambertOracle.KeepsTheStoredMeridian
// and LambertOracle.KeepsTheStoredParallelOfZone4.
// clang-format off
constexpr std::array<ZoneFrance, 6> zonesFrance{{
    {6378249.2, 293.465,       49.5,      48.598523, 50.395912, MeridienParis, 600000,   200000},
    {6378249.2, 293.465,       phi0Zone2, 45.898919, 47.696014, MeridienParis, 600000,   200000},
    {6378249.2, 293.465,       44.1,      43.199291, 44.996094, MeridienParis, 600000,   200000},
    {6378249.2, 293.465,       42.165,    41.560388, 42.776633, MeridienParis, 234.358,  185861.369},
    {6378249.2, 293.465,       phi0Zone2, 45.898919, 47.696014, MeridienParis, 600000,   2200000},
    {6378206.4, 294.9786982,   23,        33,        45,        -96,           0,        0},
}};

/// A zone of the one-parallel family; angles in radians.
struct ZoneUnParallele {
  int zone;
  double a, fInverse, phi0, lambda0, k0, x0, y0;
};

constexpr std::array<ZoneUnParallele, 8> zonesUnParallele{{
    {1,  6378249.145, 293.465,   EnRadians(33.3), EnRadians(-5.4), 0.999625769, 500000, 300000},
    {2,  6378249.145, 293.465,   EnRadians(29.7), EnRadians(-5.4), 0.999615596, 500000, 300000},
    {3,  6378249.145, 293.465,   EnRadians(36.0), EnRadians(2.7),  0.999625544, 500000, 300000},
    {4,  6378249.145, 293.465,   EnRadians(33.3), EnRadians(2.7),  0.999625769, 500000, 300000},
    {5,  6378249.145, 293.465,   EnRadians(36.0), EnRadians(9.9),  0.999625544, 500000, 300000},
    {6,  6378249.145, 293.465,   EnRadians(33.3), EnRadians(9.9),  0.999625769, 500000, 300000},
    {98, 6378249.2,   293.46602, 0.604756586,     0.651880476,     0.9996256,   300000, 300000},
    {99, 6378206.4,   294.9787,  EnRadians(18),   EnRadians(-77),  1,           250000, 150000},
}};
// clang-format on

/// Whether the parameters stand as a call wants them.
bool EstEnPlace(const LambertParametres& p, int zone) { return p.zone == zone && zone != 0; }

/// An unknown zone keeps what is set; without any ellipsoid there is nothing to divide by.
void GardeZone(const LambertParametres& p) { Divise(1, p.fInverse); }

/// cos(phi) / sqrt(1 - e2 sin(phi)^2): radius of a parallel, of a = 1.
double RayonParallele(double phi, double e2) {
  return std::cos(phi) / std::sqrt(1 - std::sin(phi) * std::sin(phi) * e2);
}

/// The ends of both initialisations: cone constants from n and the parallel of scale 1.
void PoseCone(LambertParametres& p, double n, double phi, double m) {
  p.t0 = T(p.facteur, p.phi0);
  p.F = m / (std::pow(T(p.facteur, phi), n) * n);
  p.rho0 = std::pow(p.t0, n) * p.F * p.a;
  PoseEchelle(p, n, p.a * p.F * p.k0);
}

}  // namespace

void LatLonVersLambertBelge(double latitude, double longitude, double& x, double& y) {
  Projette(belgique, latitude, longitude, x, y);
}

void LambertBelgeVersLatLon(double x, double y, double& latitude, double& longitude) {
  Inverse(belgique, x, y, latitude, longitude, LatitudeBelge);
}

void InitLambertFrance(LambertParametres& p, int zone) {
  if (EstEnPlace(p, zone)) return;
  if (zone < 1 || zone > static_cast<int>(zonesFrance.size())) return GardeZone(p);
  const ZoneFrance& z = zonesFrance[static_cast<std::size_t>(zone) - 1];
  p = {.zone = zone,
       .a = z.a,
       .fInverse = z.fInverse,
       .phi0 = EnRadians(z.phi0),
       .phi1 = EnRadians(z.phi1),
       .phi2 = EnRadians(z.phi2),
       .lambda0 = EnRadians(z.lambda0),
       .x0 = z.x0,
       .y0 = z.y0,
       .e2 = CarreExcentricite(z.a, z.fInverse)};
  p.facteur = FacteurConforme(p.e2);
  const double m1 = RayonParallele(p.phi1, p.e2), m2 = RayonParallele(p.phi2, p.e2);
  const double t1 = T(p.facteur, p.phi1), t2 = T(p.facteur, p.phi2);
  PoseCone(p, (std::log(m1) - std::log(m2)) / (std::log(t1) - std::log(t2)), p.phi1, m1);
}

void LatLonVersLambertFrance(LambertParametres& p, double latitude, double longitude, double& x,
                             double& y, int zone) {
  InitLambertFrance(p, zone);
  Projette(p, latitude, longitude, x, y);
}

void LambertFranceVersLatLon(LambertParametres& p, double x, double y, double& latitude,
                             double& longitude, int zone) {
  InitLambertFrance(p, zone);
  Inverse(p, x, y, latitude, longitude, LatitudeConique);
}

void InitLambertUnParallele(LambertParametres& p, int zone) {
  if (EstEnPlace(p, zone)) return;
  const auto* z = std::find_if(zonesUnParallele.begin(), zonesUnParallele.end(),
                               [&](const ZoneUnParallele& row) { return row.zone == zone; });
  if (z == zonesUnParallele.end()) return GardeZone(p);
  p = {.zone = zone,
       .a = z->a,
       .fInverse = z->fInverse,
       .phi0 = z->phi0,
       .lambda0 = z->lambda0,
       .k0 = z->k0,
       .x0 = z->x0,
       .y0 = z->y0,
       .e2 = CarreExcentricite(z->a, z->fInverse)};
  p.facteur = FacteurConforme(p.e2);
  PoseCone(p, std::sin(p.phi0), p.phi0, RayonParallele(p.phi0, p.e2));
}

void LatLonVersLambertUnParallele(LambertParametres& p, double latitude, double longitude,
                                  double& x, double& y, int zone) {
  InitLambertUnParallele(p, zone);
  Projette(p, latitude, longitude, x, y);
}

void LambertUnParalleleVersLatLon(LambertParametres& p, double x, double y, double& latitude,
                                  double& longitude, int zone) {
  InitLambertUnParallele(p, zone);
  Inverse(p, x, y, latitude, longitude, LatitudeConique);
}

void GradesParisVersLatLon(float latitudeGrades, float longitudeGrades, double& latitude,
                           double& longitude) {
  const double phi = Fini(static_cast<double>(latitudeGrades) * 0.9);
  longitude = Fini(static_cast<double>(longitudeGrades) * 0.9 + MeridienParis);
  latitude = phi;
}

void LatLonVersGradesParis(double latitude, double longitude, double& latitudeGrades,
                           double& longitudeGrades) {
  const double phi = Fini(latitude / 0.9);
  longitudeGrades = Fini((longitude - MeridienParis) / 0.9);
  latitudeGrades = phi;
}

}  // namespace talpena
