#include "coords/forward_text.h"

#include <array>
#include <cmath>

#include "common/numbers.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coords/datum.h"
#include "coords/ifbl.h"
#include "coords/lambert.h"
#include "coords/notations.h"
#include "coords/original.h"

namespace talpena {

std::string TexteGrille(Grille grid, double latitude, double longitude) {
  std::string letters, east, north;
  LatLonVersGrille(grid, latitude, longitude, letters, east, north);
  return letters + " " + east + " " + north;
}

std::string TexteIfbl(double latitude, double longitude) {
  constexpr int level = 6;  // the 1 km square
  double x = 0, y = 0;
  LatLonVersLambertBelge(latitude, longitude, x, y);
  std::string code;
  std::int16_t error = 0;
  LambertVersIfbl(x, y, code, error, level);
  return code;
}

void MetresDuPoint(CoordState& state, CoordSystem system, double latitude, double longitude,
                   double& x, double& y) {
  x = y = 0;
  const Plane& plane = InfoDe(system).plane;
  if (plane.versMetres != nullptr) {
    plane.versMetres(state, plane.zone, latitude, longitude, x, y);
  }
}

std::string EcritGrades(CoordState&, CoordSystem system, double latitude, double longitude) {
  double x = 0, y = 0;
  LatLonVersGradesParis(latitude, longitude, y, x);
  const std::size_t behindCode = InfoDe(system).code.size() + 1;
  return AssembleNombres(system, std::array{y, x}).substr(behindCode);
}

std::string EcritBritish(CoordState&, CoordSystem, double latitude, double longitude) {
  return std::string(Rogne(TexteGrille(Grille::British, latitude, longitude)));
}

std::string EcritIrish(CoordState&, CoordSystem, double latitude, double longitude) {
  return std::string(Rogne(TexteGrille(Grille::Irish, latitude, longitude)));
}

std::string EcritMetres(CoordState& state, CoordSystem system, double latitude, double longitude) {
  double x = 0, y = 0;
  MetresDuPoint(state, system, latitude, longitude, x, y);
  return Str(std::round(x)) + " " + Str(std::round(y));
}

std::string EcritIfbl(CoordState&, CoordSystem, double latitude, double longitude) {
  const std::string code = TexteIfbl(latitude, longitude);
  return NommeCarreIfbl(code) ? code : std::string();
}

std::string ReferenceDuPoint(CoordState& state, CoordSystem system, std::int16_t datumFichier,
                             double latitude, double longitude) {
  const CoordSystemInfo& info = InfoDe(system);
  if (info.ecrit == nullptr) return {};
  try {
    ConvertitDatum(state.Catalogue, latitude, longitude, 0, latitude, longitude, datumFichier,
                   DatumDuSysteme(state, system));
    return info.ecrit(state, system, latitude, longitude);
  } catch (const TalpenaError&) {
    return {};
  }
}

}  // namespace talpena
