// Codes 3 and 10 to 13: stereographic and orthographic, on the sphere of the semi-major axis.
#include <cmath>

#include "common/numbers.h"
#include "maps/figure.h"
#include "maps/projection.h"
#include "maps/projection_forward.h"
#include "maps/projection_inverse.h"

namespace talpena {
namespace {

/// A sliver behind the limb of the globe is still shown.
constexpr double Limbe = -0.01;

Centre CentreDe(float lat0) {
  const double phi0 = lat0;
  return {lat0, EnSimple(std::sin(phi0)), EnSimple(std::cos(phi0))};
}

/// The sines and cosines of a point that both azimuthal families combine.
struct Direction {
  Direction(const MapState& carte, float lat, float lon)
      : sinLat(std::sin(static_cast<double>(lat))),
        cosLat(std::cos(static_cast<double>(lat))),
        sinDl(std::sin(static_cast<double>(Ecart(carte, lon)))),
        cosDl(std::cos(static_cast<double>(Ecart(carte, lon)))) {}

  /// Cosine of the distance from the centre.
  float Cosinus(const Centre& centre) const {
    return static_cast<float>(centre.sine * sinLat + centre.cosine * cosLat * cosDl);
  }
  double Est() const { return cosLat * sinDl; }
  double Nord(const Centre& centre) const {
    return centre.cosine * sinLat - centre.sine * cosLat * cosDl;
  }

  double sinLat, cosLat, sinDl, cosDl;
};

/// @param side  1 for the north pole in the middle, -1 for the south pole
Fault OrthographiquePole(const MapState& carte, float lat, float lon, int side, float& X,
                         float& Y) {
  if (lat * static_cast<float>(side) < 0) {
    X = HORS_CARTE;
    return Fault::None;
  }
  const Direction d(carte, lat, lon);
  return EnKilometres(Figure::A * d.Est(), -side * Figure::A * d.cosLat * d.cosDl, X, Y);
}

/// A point of the plane on the way back to the sphere.
struct Recul {
  Recul(float xM, float yM)
      : x(xM), y(yM), rho(EnSimple(std::hypot(static_cast<double>(xM), static_cast<double>(yM)))) {}

  /// @param angle  distance from the centre, radians
  void PoseDistance(float angle) {
    sine = EnSimple(std::sin(static_cast<double>(angle)));
    cosine = EnSimple(std::cos(static_cast<double>(angle)));
  }

  float Latitude(const Centre& centre) const {
    const double north = static_cast<double>(y) * sine * centre.cosine / rho;
    return ArcSinus(EnSimple(static_cast<double>(cosine) * centre.sine + north));
  }
  /// The d of both families, by which the longitude is told.
  float Profondeur(const Centre& centre, float lat) const {
    return EnSimple(cosine - centre.sine * std::sin(static_cast<double>(lat)));
  }
  float LongitudePolaire(const MapState& carte, const Centre& centre) const {
    return centre.latitude < 0 ? carte.MeridienCentral - ATN2(-x, y)
                               : carte.MeridienCentral + ATN2(x, -y);
  }
  float LongitudeOblique(const MapState& carte, const Centre& centre, float d) const {
    return carte.MeridienCentral + ATN2(EnSimple(static_cast<double>(x) * sine * centre.cosine),
                                        EnSimple(static_cast<double>(d) * rho));
  }

  float x, y, rho;
  float sine = 0, cosine = 1;
};

bool EstPolaire(const Centre& centre, double within) {
  return std::abs(Figure::PiSur2 - std::abs(centre.latitude)) <= within;
}

}  // namespace

void StereoInit(MapState& carte, float lat0) { carte.stereo = CentreDe(lat0); }
void OrthoInit(MapState& carte, float lat0) { carte.ortho = CentreDe(lat0); }

Fault Stereo(const MapState& carte, float lat, float lon, float& X, float& Y) {
  const Direction d(carte, lat, lon);
  const float c = d.Cosinus(carte.stereo);
  if (c == -1) return Fault::DivisionByZero;  // the antipode of the centre
  const auto k = static_cast<float>(2 / (1.0 + c));
  return EnKilometres(k * Figure::A * d.Est(), k * Figure::A * d.Nord(carte.stereo), X, Y);
}

Fault OrthographiqueObli(const MapState& carte, float lat, float lon, float& X, float& Y) {
  const Direction d(carte, lat, lon);
  if (d.Cosinus(carte.ortho) < Limbe) {
    X = Y = HORS_CARTE;
    return Fault::None;
  }
  return EnKilometresNonNuls(Figure::A * d.Est(), Figure::A * d.Nord(carte.ortho), X, Y);
}

Fault OrthographiquePoleNord(const MapState& carte, float lat, float lon, float& X, float& Y) {
  return OrthographiquePole(carte, lat, lon, 1, X, Y);
}
Fault OrthographiquePoleSud(const MapState& carte, float lat, float lon, float& X, float& Y) {
  return OrthographiquePole(carte, lat, lon, -1, X, Y);
}

void StereoInverse(const MapState& carte, float x, float y, float& lat, float& lon) {
  constexpr double near = 1E-10;  // metres and radians
  const Centre& centre = carte.stereo;
  Recul p(x, y);
  p.PoseDistance(EnSimple(2 * std::atan(p.rho / (2 * Figure::A))));
  if (p.rho <= near) {
    lat = centre.latitude;
    lon = carte.MeridienCentral;
    return;
  }
  lat = p.Latitude(centre);
  if (EstPolaire(centre, near)) {
    lon = EnSimple(p.LongitudePolaire(carte, centre));
    return;
  }
  const float d = p.Profondeur(centre, lat);
  if (std::abs(d) < near && std::abs(x) < near) return;
  lon = EnSimple(p.LongitudeOblique(carte, centre, d));
}

void OrthoObliqueInverse(const MapState& carte, float x, float y, float& lat, float& lon) {
  constexpr double near = 0.1;  // a tenth of a metre, and of a radian
  const Centre& centre = carte.ortho;
  Recul p(x, y);
  if (p.rho > Figure::A) {
    lat = lon = 0;
    return;
  }
  p.PoseDistance(ArcSinus(EnSimple(p.rho / Figure::A)));
  lon = carte.MeridienCentral;
  if (p.rho <= near) {
    lat = centre.latitude;
    return;
  }
  lat = p.Latitude(centre);
  if (EstPolaire(centre, near)) {
    lon = ADJLZ0(p.LongitudePolaire(carte, centre));
    return;
  }
  const float d = p.Profondeur(centre, lat);
  if (std::abs(d) < near && std::abs(x) < near) return;
  lon = ADJLZ0(p.LongitudeOblique(carte, centre, d));
}

}  // namespace talpena
