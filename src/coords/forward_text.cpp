#include "coords/forward_text.h"

#include <array>
#include <cmath>

#include "common/numbers.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coords/datum.h"
#include "coords/ifbl.h"
#include "coords/lambert.h"
#include "coords/original.h"

namespace talpena {
namespace {

constexpr int ifblLevel = 6;  // the 1 km square

int Rang(CoordSystem system, CoordSystem first) {
  return static_cast<int>(system) - static_cast<int>(first) + 1;
}

/// The point on the datum of the system, written in it.
std::string Reference(CoordState& state, CoordSystem system, double latitude, double longitude) {
  double x = 0, y = 0;
  switch (InfoDe(system).notation) {
    case Notation::TwoAngles: {
      LatLonVersGradesParis(latitude, longitude, y, x);
      constexpr std::size_t code = 4;  // "grp "
      return AssembleNombres(system, std::array{y, x}).substr(code);
    }
    case Notation::Letters: {
      const Grille grid = system == CoordSystem::Bng ? Grille::British : Grille::Irish;
      return std::string(Rogne(TexteGrille(grid, latitude, longitude)));
    }
    case Notation::Square: {
      const std::string code = TexteIfbl(latitude, longitude);
      return NommeCarreIfbl(code) ? code : std::string();
    }
    default:
      MetresDuPoint(state, system, latitude, longitude, x, y);
      return Str(std::round(x)) + " " + Str(std::round(y));
  }
}

}  // namespace

std::string TexteGrille(Grille grid, double latitude, double longitude) {
  std::string letters, east, north;
  LatLonVersGrille(grid, latitude, longitude, letters, east, north);
  return letters + " " + east + " " + north;
}

std::string TexteIfbl(double latitude, double longitude) {
  double x = 0, y = 0;
  LatLonVersLambertBelge(latitude, longitude, x, y);
  std::string code;
  std::int16_t error = 0;
  LambertVersIfbl(x, y, code, error, ifblLevel);
  return code;
}

void MetresDuPoint(CoordState& state, CoordSystem system, double latitude, double longitude,
                   double& x, double& y) {
  x = y = 0;
  if (InfoDe(system).notation != Notation::Metres) return;
  if (system == CoordSystem::Lmb) {
    LatLonVersLambertBelge(latitude, longitude, x, y);
  } else if (system >= CoordSystem::Nma) {
    LatLonVersLambertUnParallele(state.LambertUnParallele, latitude, longitude, x, y,
                                 Rang(system, CoordSystem::Nma));
  } else {
    LatLonVersLambertFrance(state.LambertFrance, latitude, longitude, x, y,
                            Rang(system, CoordSystem::Lf1));
  }
}

std::string ReferenceDuPoint(CoordState& state, CoordSystem system, double latitude,
                             double longitude) {
  if (InfoDe(system).datumSlot == 0) return {};
  try {
    ConvertitDatum(state.Catalogue, latitude, longitude, 0, latitude, longitude, state.DatumFichier,
                   DatumDuSysteme(state, system));
    return Reference(state, system, latitude, longitude);
  } catch (const TalpenaError&) {
    return {};
  }
}

}  // namespace talpena
