// Maps for tests, set up as the view does when it has read a map file.
#pragma once
#include "maps/projection.h"

namespace talpena::test {

/// Europe from 30 to 70 degrees north and 10 west to 30 east, in any of the projections.
inline MapState LimitesEurope(int code) {
  MapState carte;
  InitFacteurs(carte);
  carte.CodeProjection = static_cast<std::int16_t>(code);
  carte.ParallelePrincipal = 40;
  carte.LatNord = 70;
  carte.LatSud = 30;
  carte.LonEst = 30;
  carte.LonOuest = -10;
  carte.Parallele1 = 40;
  carte.Parallele2 = 60;
  carte.MeridienCentralDeg = 10;
  return carte;
}

inline void Prepare(MapState& carte) {
  InitProjection(carte);
  InitBoite(carte);
}

inline MapState CarteDe(int code) {
  MapState carte = LimitesEurope(code);
  Prepare(carte);
  return carte;
}

/// A map of code 0 in units of its own.
inline MapState CarteSansCode(float left, float right, float bottom, float top) {
  MapState carte;
  carte.Gauche = left;
  carte.Droite = right;
  carte.Bas = bottom;
  carte.Haut = top;
  Prepare(carte);
  return carte;
}

struct Xy {
  float X = 0, Y = 0;
};

/// Of a place in degrees; X and Y are `before` where the projection writes nothing.
inline Xy Projette(const MapState& carte, float latitude, float longitude, Xy before = {}) {
  Project(carte, radian(latitude), radian(longitude), before.X, before.Y);
  return before;
}

struct LatLon {
  float lat = 0, lon = 0;
};

inline LatLon Inverse(const MapState& carte, float X, float Y, LatLon before = {}) {
  ProjectionInverse(carte, X, Y, before.lat, before.lon);
  return before;
}

}  // namespace talpena::test
