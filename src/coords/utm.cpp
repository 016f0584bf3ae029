#include "coords/utm.h"

#include <algorithm>
#include <cmath>

#include "coords/faults.h"

namespace talpena {
namespace {

constexpr double k = EchelleUtm;

/// Sine and cosine of one angle: taken once, all multiples of the angle come from them.
struct SinCos {
  explicit SinCos(double phi) : s(std::sin(phi)), c(std::cos(phi)) {}
  double s, c;
};

/// ArcMeridien, with sin 4 phi, sin 6 phi and sin 8 phi by the sine and cosine of 2 phi.
double Arc(double A, double B, double C, double D, double E, double phi, const SinCos& of) {
  const double sin2 = 2 * of.s * of.c;
  const double cos2 = 1 - 2 * of.s * of.s;
  return A * phi + sin2 * (D - B + cos2 * (2 * C - 4 * E + cos2 * (-4 * D + cos2 * (8 * E))));
}

double Arc(const UtmSeries& u, double phi, const SinCos& of) {
  return Arc(u.A, u.B, u.C, u.D, u.E, phi, of);
}

}  // namespace

UtmSeries::UtmSeries(double demiGrandAxe, double aplatissement)
    : a(demiGrandAxe), f(aplatissement) {
  const double inverseF = Divise(1, f);
  b = Divise((inverseF - 1) * a, inverseF);
  const double a2 = a * a, b2 = b * b;
  e2 = Divise(a2 - b2, a2);
  ep2 = Divise(a2 - b2, b2);
  const double n = Divise(a - b, a + b);
  const double n2 = n * n, n3 = n2 * n, n4 = n2 * n2, n5 = n4 * n;
  A = a * (1 - n + 5 / 4.0 * (n2 - n3) + 81 / 64.0 * (n4 - n5));
  B = 3 * a / 2 * (n - n2 + 7 / 8.0 * (n3 - n4) + 55 / 64.0 * n5);
  C = 15 * a / 16 * (n2 - n3 + 3 / 4.0 * (n4 - n5));
  D = 35 * a / 48 * (n3 - n4 + 11 / 16.0 * n5);
  E = 315 * a / 512 * (n4 - n5);
  mu2 = 3 / 2.0 * n;
  mu4 = 21 / 16.0 * n2;
}

double RayonW(double e2, double phi) {
  const double s = std::sin(phi);
  return std::sqrt(Positif(1 - e2 * s * s));
}

double RayonNu(double a, double e2, double phi) { return Divise(a, RayonW(e2, phi)); }

double RayonRho(double a, double e2, double phi) {
  const double w = RayonW(e2, phi);
  return Divise((1 - e2) * a, w * w * w);
}

double ArcMeridien(double A, double B, double C, double D, double E, double phi) {
  return Arc(A, B, C, D, E, phi, SinCos(phi));
}

double ArcMeridien(const UtmSeries& series, double phi) { return Arc(series, phi, SinCos(phi)); }

std::int16_t ZoneUtm(double longitude) {
  const double zone = Fini(longitude / DegUtm) / 6 + 31;
  return static_cast<std::int16_t>(std::clamp(zone, 1.0, 60.0));
}

void LatLonVersUtm(const UtmSeries& series, double latitude, double longitude, std::int16_t& zone,
                   double& northing, double& easting, int mode) {
  if (mode == 0) zone = ZoneUtm(longitude);
  const double p = longitude - MeridienCentral(zone);
  const SinCos of(latitude);
  const double s = of.s, c = of.c;
  const double t2 = (s / c) * (s / c);
  const double eta2 = series.ep2 * c * c;
  const double nu = series.a / std::sqrt(1 - series.e2 * s * s);

  // The terms T1 to T9 of the source, n for the northing and e for the easting. They are nested:
  // each holds the powers of c p and the factorial of the one before.
  const double n3 = 5 - t2 + eta2 * (9 + 4 * eta2);
  const double n4 =
      61 + t2 * (-58 + t2) +
      eta2 * (270 - 330 * t2 +
              eta2 * (445 - 680 * t2 + eta2 * (324 - 600 * t2 + eta2 * (88 - 192 * t2))));
  const double n5 = 1385 + t2 * (-3111 + t2 * (543 - t2));
  const double e7 = 1 - t2 + eta2;
  const double e8 =
      5 + t2 * (-18 + t2) + eta2 * (14 - 58 * t2 + eta2 * (13 - 64 * t2 + eta2 * (4 - 24 * t2)));
  const double e9 = 61 + t2 * (-479 + t2 * (179 - t2));

  const double cp = c * p, cp2 = cp * cp;
  const double falseNorthing = latitude < 0 ? FauxNordSudUtm : 0;
  northing =
      Fini(falseNorthing + k * Arc(series, latitude, of) +
           k * nu / 2 * s * cp * p *
               (1 + cp2 * (1 / 12.0) * (n3 + cp2 * (1 / 30.0) * (n4 + cp2 * (1 / 56.0) * n5))));
  easting = Fini(
      FauxEstUtm +
      k * nu * cp * (1 + cp2 * (1 / 6.0) * (e7 + cp2 * (1 / 20.0) * (e8 + cp2 * (1 / 42.0) * e9))));
}

void LatLonVersUtm(double a, double f, double latitude, double longitude, std::int16_t& zone,
                   double& northing, double& easting, int mode) {
  LatLonVersUtm(UtmSeries(a, f), latitude, longitude, zone, northing, easting, mode);
}

namespace {

/// A latitude that moves, with its sine and cosine.
struct FootPoint {
  explicit FootPoint(double latitude) : phi(latitude), of(latitude) {}

  /// A move below 0.004 rad turns sine and cosine by Taylor's series, exact to rounding.
  void Avance(double delta) {
    phi += delta;
    if (!(std::abs(delta) < 0.004)) {
      of = SinCos(phi);
      return;
    }
    const double d2 = delta * delta;
    const double sinus = delta * (1 - d2 * (1 / 6.0) * (1 - d2 * (1 / 20.0)));
    const double versinus = d2 * 0.5 * (1 - d2 * (1 / 12.0));
    const double s = of.s;
    of.s -= s * versinus - of.c * sinus;
    of.c -= of.c * versinus + s * sinus;
  }

  double phi;
  SinCos of;
};

/// Latitude on the central meridian at a distance from the equator: where five Newton steps from
/// m / rho(0) end. They start nearer, from the first two terms of the inverse series, so that
/// the first one is below 1e-7 as a rule; what it leaves is 0.005 of its square, less than the
/// last digit, and the others are left out.
FootPoint PiedDeLatitude(const UtmSeries& u, double m) {
  const double rho0 = (1 - u.e2) * u.a;
  const double mu = m / u.A;
  FootPoint foot(mu);
  const double cos2 = 1 - 2 * foot.of.s * foot.of.s;
  foot.Avance(2 * foot.of.s * foot.of.c * (u.mu2 + 2 * u.mu4 * cos2));
  for (int step = 0; step < 5; ++step) {
    const double w2 = 1 - u.e2 * foot.of.s * foot.of.s;
    const double surRho = w2 * std::sqrt(w2) / rho0;
    const double delta = (m - Arc(u, foot.phi, foot.of)) * surRho;
    foot.Avance(delta);
    if (std::abs(delta) < 1e-7) break;
  }
  return foot;
}

}  // namespace

void UtmVersLatLon(const UtmSeries& series, double& latitude, double& longitude, std::int16_t zone,
                   double& northing, double easting) {
  double m = northing;
  if (northing < 0) {
    northing = -northing;
    m = northing - FauxNordSudUtm;
  }
  const auto [phi, of] = PiedDeLatitude(series, m / k);
  const double t = of.s / of.c, t2 = t * t;
  const double eta2 = series.ep2 * of.c * of.c;
  const double w2 = 1 - series.e2 * of.s * of.s;
  const double nuSurRho = w2 / (1 - series.e2);
  const double d = (easting - FauxEstUtm) * std::sqrt(w2) / (series.a * k), d2 = d * d;

  // The terms T10 to T17 in powers of d, the distance from the meridian as an angle, nested in the
  // same way.
  const double l11 = 5 + 3 * t2 + eta2 * (1 - 9 * t2 - 4 * eta2);
  const double l12 =
      61 + t2 * (90 + 45 * t2) +
      eta2 *
          (46 - t2 * (252 + 90 * t2) +
           eta2 * (-3 + t2 * (-66 + 225 * t2) + eta2 * (100 + 84 * t2 + eta2 * (88 - 192 * t2))));
  const double l13 = 1385 + t2 * (3633 + t2 * (4095 + t2 * 1575));
  const double l15 = 1 + 2 * t2 + eta2;
  const double l16 =
      5 + t2 * (28 + 24 * t2) + eta2 * (6 + 8 * t2 + eta2 * (-3 + 4 * t2 + eta2 * (-4 + 24 * t2)));
  const double l17 = 61 + t2 * (662 + t2 * (1320 + t2 * 720));

  latitude = Fini(
      phi - t * nuSurRho * d2 * (1 / 2.0) *
                (1 - d2 * (1 / 12.0) * (l11 - d2 * (1 / 30.0) * (l12 - d2 * (1 / 56.0) * l13))));
  longitude = Fini(
      MeridienCentral(zone) +
      d / of.c * (1 - d2 * (1 / 6.0) * (l15 - d2 * (1 / 20.0) * (l16 - d2 * (1 / 42.0) * l17))));
}

void UtmVersLatLon(double a, double f, double& latitude, double& longitude, std::int16_t zone,
                   double& northing, double easting) {
  UtmVersLatLon(UtmSeries(a, f), latitude, longitude, zone, northing, easting);
}

}  // namespace talpena
