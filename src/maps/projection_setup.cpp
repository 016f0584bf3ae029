// What the projections derive from a map file: constants by code, and the box of the map.
#include <cmath>

#include "common/numbers.h"
#include "maps/figure.h"
#include "maps/map_projection.h"
#include "maps/projection.h"

namespace talpena {
namespace {

struct Place {
  float lat, lon;
};

/// The four points whose projections bound a map.
struct Reperes {
  Place gauche, bas, droite, haut;
};

/// The limits of a map, radians.
struct Limites {
  float N, S, E, W;
};

/// Latitude of the widest row of the sinusoidal.
float RangeeLaPlusLarge(const Limites& l) {
  if (l.S > 0) return l.S;
  return l.N >= 0 ? 0 : l.N;
}

/// @param rim     latitude of the edge of a polar map
/// @param bottom  longitude, from the central meridian, of its lower end
Reperes ReperesDuPole(float rim, float lon0, double bottom) {
  return {{rim, EnSimple(lon0 + Figure::TroisPiSur2)},
          {rim, EnSimple(lon0 + bottom)},
          {rim, EnSimple(lon0 + Figure::PiSur2)},
          {rim, EnSimple(lon0 + (Figure::Pi - bottom))}};
}

Limites LimitesDe(const MapState& carte) {
  return {radian(carte.LatNord), radian(carte.LatSud), radian(carte.LonEst),
          radian(carte.LonOuest)};
}

void BoiteDesReperes(MapState& carte, const Reperes& r) {
  float X = 0, Y = 0;
  Project(carte, r.gauche.lat, r.gauche.lon, X, Y);
  carte.XGauche = X;
  Project(carte, r.bas.lat, r.bas.lon, X, Y);
  carte.YBas = Y;
  Project(carte, r.droite.lat, r.droite.lon, X, Y);
  carte.XDroite = X;
  Project(carte, r.haut.lat, r.haut.lon, X, Y);
  carte.YHaut = Y;
}

float Etendue(float from, float to) { return EnSimple(std::abs(static_cast<double>(to) - from)); }

void PoseEtendues(MapState& carte, float width, float height) {
  carte.LargeurKm = width;
  carte.HauteurKm = height;
  carte.CoteKm = width > height ? width : height;
}

}  // namespace

void InitFacteurs(MapState& carte) {
  carte.k7 = EnSimple(std::cos(0.523598776));
  carte.k8 = EnSimple(std::cos(0.785398163));
  carte.k6 = EnSimple(Figure::A * std::cos(0.8813913));
}

void ConstantesLambert(MapState& carte) {
  DefConstantes(carte, carte.Parallele1, carte.Parallele2);
}

// Half the difference of the limits, not their mean: maps are made for that centre.
// Held by ProjectionOracle.KeepsTheStereographicCentreFromTheMean.
void CentreStereo(MapState& carte) {
  StereoInit(carte, radian(EnSimple((static_cast<double>(carte.LatNord) - carte.LatSud) / 2)));
}

void FacteurBSAM9(MapState& carte) {
  carte.k9 = EnSimple(std::cos(static_cast<double>(radian(carte.ParallelePrincipal))));
}

void CentreOrtho(MapState& carte) { OrthoInit(carte, radian(carte.ParallelePrincipal)); }

void BoiteDuMeridien(MapState& carte) {
  const Limites l = LimitesDe(carte);
  const float lon0 = carte.MeridienCentral;
  BoiteDesReperes(carte, {{l.S, l.W}, {l.S, lon0}, {l.S, l.E}, {l.N, lon0}});
}

void BoiteDuCoin(MapState& carte) {
  const Limites l = LimitesDe(carte);
  BoiteDesReperes(carte, {{l.S, l.W}, {l.S, carte.MeridienCentral}, {l.S, l.E}, {l.N, l.E}});
}

void BoiteSinusoidale(MapState& carte) {
  const Limites l = LimitesDe(carte);
  const float m = RangeeLaPlusLarge(l), lon0 = carte.MeridienCentral;
  BoiteDesReperes(carte, {{m, l.W}, {l.S, lon0}, {m, l.E}, {l.N, lon0}});
}

void BoiteDuPoleNord(MapState& carte) {
  BoiteDesReperes(carte, ReperesDuPole(LimitesDe(carte).S, carte.MeridienCentral, 0));
}

void BoiteDuPoleSud(MapState& carte) {
  BoiteDesReperes(carte, ReperesDuPole(LimitesDe(carte).N, carte.MeridienCentral, Figure::Pi));
}

void BoiteDuGlobe(MapState& carte) {
  constexpr auto rayon = static_cast<float>(Figure::A / 1000);
  carte.XGauche = carte.YBas = -rayon;
  carte.XDroite = carte.YHaut = rayon;
}

void InitProjection(MapState& carte) {
  const MapProjection* projection = ProjectionDe(carte);
  if (projection != nullptr && projection->constantes != nullptr) projection->constantes(carte);
}

void InitBoite(MapState& carte) {
  if (carte.CodeProjection == 0)
    return PoseEtendues(carte, Etendue(carte.Gauche, carte.Droite), Etendue(carte.Bas, carte.Haut));
  carte.MeridienCentral = radian(carte.MeridienCentralDeg);
  const MapProjection* projection = ProjectionDe(carte);
  if (projection != nullptr) projection->boite(carte);
  PoseEtendues(carte, Etendue(carte.XGauche, carte.XDroite), Etendue(carte.YBas, carte.YHaut));
}

}  // namespace talpena
