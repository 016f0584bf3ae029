// The map on show: what its file says, and what the projections derive from it.
#pragma once
#include <array>
#include <cstdint>
#include <string>

#include "maps/polygon.h"

namespace talpena {

/// An X and Y that mark a point behind an orthographic globe; bit pattern 7F7FC99E.
inline constexpr float HORS_CARTE = 3.4E+38F;

/// Centre of an azimuthal projection. All three are 0 until it is set.
struct Centre {
  float latitude = 0;  ///< radians
  float sine = 0;
  float cosine = 0;
};

/// Constants of the conformal conic.
struct LambertConstants {
  float e = 0;
  float halfE = 0;
  float n = 0;  ///< cone constant
  float F = 0;  ///< scale, metres
};

/// Constants of the grid reference in the status bar, by InitUtm.
struct UtmConstants {
  double c = 0, e2 = 0, A = 0, B = 0, C = 0, D = 0;
};

/// One map is open at a time; the view owns its state. Angles are degrees unless they say so,
/// projected coordinates kilometres, X east and Y north.
struct MapState {
  // From the map file.
  std::string DossierCarte;         ///< folder of the map file, separator behind it; "" without one
  std::string FichierPS;            ///< PostScript drawing of the map
  std::string FichierImage;         ///< picture of the canvas
  std::int16_t CodeProjection = 0;  ///< 0: not georeferenced; else of Projections()
  float ParallelePrincipal = 0;     ///< codes 9 and 13
  float LatNord = 0, LatSud = 0, LonEst = 0, LonOuest = 0;
  float Parallele1 = 0, Parallele2 = 0;  ///< code 1
  float MeridienCentralDeg = 0;
  float Gauche = 0, Droite = 0, Bas = 0, Haut = 0;  ///< extents of a map of code 0, its own units
  std::array<std::int16_t, 4> CadreEPS{};           ///< computed anew by every export
  float DecalageLongitude = 0;                      ///< acts on nothing

  // Derived from it.
  float MeridienCentral = 0;  ///< radians
  LambertConstants lambert;
  Centre stereo;
  Centre ortho;
  float k6 = 0, k7 = 0, k8 = 0, k9 = 0;  ///< factors of the cylinders
  UtmConstants utm;
  float XGauche = 0, XDroite = 0, YBas = 0, YHaut = 0;
  float LargeurKm = 0, HauteurKm = 0;
  float CoteKm = 0;  ///< the larger of the two; the height when they are equal

  // The view.
  Polygon polygone;     ///< a line that a layer left without an end waits here for the next pen
  float Pas = 0;        ///< step of the grid, degrees or units of a map of code 0
  bool Grille = false;  ///< the grid is on show
};

}  // namespace talpena
