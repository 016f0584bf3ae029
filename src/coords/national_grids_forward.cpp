// From degrees to letters and metres. References were always made in single precision, so every
// quantity that has a name is rounded to 32 bits and only what lies between is in double.
#include <cmath>

#include "coords/datum.h"
#include "coords/national_grids.h"

namespace talpena {
namespace {

/// Rounded to 32 bits; infinite beyond their range.
constexpr double Simple(double value) { return static_cast<double>(static_cast<float>(value)); }

struct GridConstants {
  double northingOffset;  ///< metres
  double falseEasting;    ///< metres
  double k;               ///< scale on the central meridian
  double lambda0;         ///< degrees
  int columns, rows;      ///< lettered squares of 100 km
};

// By Grille.
constexpr GridConstants Constantes[] = {
    {Simple(-5680030.4339), 200000, Simple(1.0000350), 352, 5, 5},
    {Simple(-5527063.816), 400000, Simple(0.99960124), 358, 10, 15},
};
constexpr double A = Simple(6377563.5);  ///< semi-major axis of both, metres
constexpr double E = Simple(0.08167337626);
constexpr double E2 = Simple(E * E);

// Coefficients of the meridian arc for an axis of 1.
constexpr double D0 = Simple(0.99833030);
constexpr double D1 = Simple(0.0025056370);
constexpr double D2 = Simple(2.6202372e-06);
constexpr double D3 = Simple(3.3816590e-09);

struct Metres {
  double east, north;
};

/// Longitude from the central meridian, radians from -pi to pi for what a map may show.
double Ecart(double lambda, double lambda0) {
  const double dLambda = Simple(lambda - lambda0);
  if (std::fabs(dLambda) <= Pi10) return dLambda;
  return Simple(dLambda - std::copysign(2 * Pi10, dLambda));
}

Metres Projette(const GridConstants& g, double latitude, double longitude) {
  const double phi = Simple(EnRadians(latitude));
  const double lambda = Simple(EnRadians(longitude));
  const double dLambda = Ecart(lambda, EnRadians(g.lambda0));

  const double sine = std::sin(phi);
  const double cosine = std::cos(phi);
  const double s = Simple(sine);
  const double c = Simple(cosine);
  const double t = Simple(sine / cosine);
  const double t2 = t * t;
  const double nu = Simple(A / std::sqrt(1 - s * s * E2));
  const double eta2 = Simple(E2 * c * c / (1 - E2));
  const double x = Simple(dLambda * c);
  const double x2 = x * x;

  const double p = Simple(((4 - 24 * t2) * eta2 + (13 - 64 * t2)) * eta2 + 14 - 58 * t2);
  const double r =
      Simple(((5 - (18 - t2) * t2 + p * eta2) * (x2 / 20) + ((1 - t2) + eta2)) * (x2 / 6) + 1);

  const double sin2 = 2 * sine * cosine;
  const double cos2 = cosine * cosine - sine * sine;
  const double sin4 = 2 * sin2 * cos2;
  const double sin6 = sin4 * cos2 + (cos2 * cos2 - sin2 * sin2) * sin2;
  const double arc = Simple(phi * D0 - D1 * sin2 + D2 * sin4 - D3 * sin6);
  const double h = Simple(((4 * eta2 + 9) * eta2 + (5 - t2)) * (x2 / 12) + 1);

  return {Simple(nu * g.k * x * r + g.falseEasting),
          Simple((nu * 0.5 * dLambda * x * s * h + A * arc) * g.k + g.northingOffset)};
}

/// Letter of a 100 km square in its 500 km square.
char Lettre100(int column, int row) {
  constexpr std::string_view rows[] = {"VWXYZ", "QRSTU", "LMNOP", "FGHJK", "ABCDE"};
  return rows[row][static_cast<std::size_t>(column)];
}

/// Letter of a 500 km square of the British grid.
char Lettre500(int column, int row) {
  constexpr std::string_view rows[] = {"ST", "NO", "HJ"};
  return rows[row][static_cast<std::size_t>(column)];
}

/// A whole number below 100000 with five digits.
void EcritMetres(int metres, std::string& text) {
  char digits[5];
  for (int i = 4; i >= 0; --i, metres /= 10) digits[i] = static_cast<char>('0' + metres % 10);
  text.assign(digits, 5);
}

}  // namespace

void LatLonVersGrille(Grille grid, double latitude, double longitude, std::string& letters,
                      std::string& east, std::string& north) {
  letters.clear();
  east.clear();
  north.clear();
  const GridConstants& g = Constantes[static_cast<int>(grid)];
  const Metres m = Projette(g, latitude, longitude);
  // Written so that what is no number is outside.
  if (!(m.east >= 0 && m.east < g.columns * 100000.0)) return;
  if (!(m.north >= 0 && m.north < g.rows * 100000.0)) return;

  const int eastM = static_cast<int>(m.east);
  const int northM = static_cast<int>(m.north);
  const int column = eastM / 100000;
  const int row = northM / 100000;
  letters += grid == Grille::British ? Lettre500(column / 5, row / 5) : 'I';
  letters += Lettre100(column % 5, row % 5);
  EcritMetres(eastM % 100000, east);
  EcritMetres(northM % 100000, north);
}

}  // namespace talpena
