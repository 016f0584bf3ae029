// UTM and the grid reference of the status bar. First terms of the series only: enough for a
// read-out, up to 170 m short at the edge of a zone; rows of the table go through coords/utm.h.
#include <array>
#include <cmath>
#include <cstdlib>
#include <string_view>

#include "common/free_decimal.h"
#include "common/numbers.h"
#include "maps/figure.h"
#include "maps/grid_overlay.h"
#include "maps/projection.h"

namespace talpena {
namespace {

constexpr double K0 = 0.9996;

/// Central meridian of the zone by longitude alone.
double MeridienDuFuseau(float lon) {
  if (lon < 0) return -((30 - Int(31 - std::abs(lon / 6.0))) * 6 + 3);
  return (Int(lon / 6.0 + 31) - 31) * 6 + 3;
}

/// The same with the wide zones of Norway and Svalbard.
double MeridienCentralUtm(float lat, float lon) {
  if (lat >= 56 && lat < 63 && lon >= 3 && lon < 12) return 9;
  if (lat >= 72 && lon >= 0 && lon < 42) return lon < 9 ? 3 : lon < 21 ? 15 : lon < 33 ? 27 : 39;
  return MeridienDuFuseau(lon);
}

struct Metres {
  float north = 0, east = 0;
};

/// @param lambda  from the central meridian, radians
Metres Projette(const UtmConstants& k, float phi, float lambda) {
  const double sinPhi = std::sin(static_cast<double>(phi)),
               cosPhi = std::cos(static_cast<double>(phi));
  const double eta2 = k.e2 * cosPhi * cosPhi, N = k.c / std::sqrt(1 + eta2);
  const double M =
      k.A * phi + k.B * std::sin(2.0 * phi) + k.C * std::sin(4.0 * phi) + k.D * std::sin(6.0 * phi);
  const double xi = std::atan(std::tan(static_cast<double>(phi)) / std::cos(lambda));
  const double P = K0 * N * xi;
  const double Q = 3 * K0 / 8 * N * eta2 * std::pow(cosPhi, 3) * sinPhi;
  const double north = P + (M - phi * N) * K0 + std::pow(lambda, 4) * Q;
  const double u = cosPhi * std::sin(static_cast<double>(lambda));
  const double R = K0 * N * std::log(std::tan(Figure::PiSur4 + u / 2));
  const double S = K0 / 6 * N * eta2 * std::pow(cosPhi, 3);
  return {EnSimple(north + (phi < 0 ? 1E7 : 0)), EnSimple(500000 + R + std::pow(lambda, 3) * S)};
}

/// The character at a position counted from 1, or none.
std::string Lettre(std::string_view set, double position) {
  if (!(position >= 1) || position > static_cast<double>(set.size())) return {};
  return std::string(1, set[static_cast<std::size_t>(position) - 1]);
}

std::string LettreDeBande(float phi) {
  const double n = std::abs(Int(Degre(phi) / 8.0)) + 1;
  return phi < 0 ? Lettre("MLKJHGFEDC", n - 1) : Lettre("NPQRSTUVWXX", n);
}

std::string LettreDeRangee(int zone, float north) {
  const double kn = Int(north / 1000.0);
  const double r = kn - Int(Int(kn / 1000) / 2) * 2000;
  return Lettre(zone % 2 == 0 ? "FGHJKLMNPQRSTUVABCDE" : "ABCDEFGHJKLMNPQRSTUV", Int(r / 100) + 1);
}

std::string LettreDeColonne(int zone, float east) {
  static constexpr std::array<std::string_view, 3> sets{"STUVWXYZ", "ABCDEFGH", "JKLMNPQR"};
  const auto set = static_cast<std::size_t>((zone % 3 + 3) % 3);
  return Lettre(sets[set], Int(Int(east / 1000.0) / 100));
}

/// Hundreds of metres within the square, three digits.
std::string Chiffres(float metres) { return Format(std::fmod(Int(metres / 100.0), 1000), "000"); }

/// @param m  central meridian, degrees
std::string Reference(double m, float phi, Metres place) {
  int zone = Arrondi16(Int((m + 180) / 6) + 1);
  if (zone > 60) zone -= 60;
  return FormeLibre(static_cast<double>(zone)) + LettreDeBande(phi) + " " +
         LettreDeColonne(zone, place.east) + LettreDeRangee(zone, place.north) + " " +
         Chiffres(place.east) + " " + Chiffres(place.north);
}

}  // namespace

void InitUtm(MapState& carte) {
  using Figure::A, Figure::B;
  UtmConstants& k = carte.utm;
  const double e2 = (A * A - B * B) / (B * B), e4 = e2 * e2, e6 = e4 * e2, e8 = e4 * e4;
  k.c = A * A / B;
  k.e2 = e2;
  k.A = k.c * (1 - 3.0 / 4 * e2 + 45.0 / 64 * e4 - 175.0 / 256 * e6 + 11025.0 / 16384 * e8);
  k.B = k.c * (-3.0 / 8 * e2 + 15.0 / 32 * e4 - 525.0 / 1024 * e6 + 2205.0 / 4096 * e8);
  k.C = k.c * (15.0 / 256 * e4 - 105.0 / 1024 * e6 + 2205.0 / 16384 * e8);
  k.D = k.c * (-35.0 / 3072 * e6 + 315.0 / 12288 * e8);
}

void UTM(const MapState& carte, float lat, float lon, float& north, float& east,
         std::string& text) {
  north = east = 0;
  text.clear();
  if (lat > 84 || lat < -80) return;
  const double m = MeridienCentralUtm(lat, lon);
  const float phi = radian(lat);
  const Metres place = Projette(carte.utm, phi, radian(EnSimple(lon - m)));
  text = Reference(m, phi, place);
  north = place.north;
  east = place.east;
}

}  // namespace talpena
