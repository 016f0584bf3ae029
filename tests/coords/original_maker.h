// Originals of every notation, drawn at random inside the area of each.
#pragma once
#include <array>
#include <random>
#include <string>
#include <vector>

#include "common/numbers.h"
#include "common/text.h"
#include "coords/datum.h"
#include "coords/ifbl.h"
#include "coords/lambert.h"
#include "coords/mgrs.h"
#include "coords/national_grids.h"
#include "coords/original.h"
#include "coords/test_catalogue.h"
#include "coords/utm.h"
#include "platform/settings_state.h"

namespace talpena::test {

/// A state with the shipped catalogue; the default datums are WGS84.
inline void PoseCatalogue(CoordState& state) {
  state.Catalogue = CatalogueDesSources();
  state.DatumUtm = state.DatumSpherique = state.Catalogue.DatumWgs84;
}

struct Area {
  double south, north, west, east;
};

inline Area AreaOf(CoordSystem system) {
  constexpr std::array<Area, CoordSystemCount> areas{{{-60, 70, -170, 170},
                                                      {-60, 70, -170, 170},
                                                      {-60, 70, -170, 170},
                                                      {-60, 70, -170, 170},
                                                      {42, 51, -4, 8},
                                                      {50.5, 58, -5, 1},
                                                      {51.6, 55.2, -10, -6},
                                                      {49.6, 51.4, 2.7, 6.2},
                                                      {49.8, 51.3, 3, 5.9},
                                                      {48.2, 51, -4, 7.8},
                                                      {45.5, 48, -2, 6.5},
                                                      {43, 45.4, -1.5, 7},
                                                      {41.4, 43, 8.6, 9.5},
                                                      {42, 51, -4, 8},
                                                      {32, 35.5, -9, -2},
                                                      {28.5, 31.5, -10, -4}}};
  return areas[static_cast<std::size_t>(system)];
}

class OriginalMaker {
 public:
  explicit OriginalMaker(CoordState& state) : state_(state) {}

  /// A point of the system's area as its ORIGINAL, in upper case.
  std::string Original(CoordSystem system) {
    const Area area = AreaOf(system);
    const double latitude = Draw(area.south, area.north);
    const double longitude = Draw(area.west, area.east);
    return Original(system, latitude, longitude);
  }
  /// A point on the datum of the system (UTM and MGRS: on WGS84).
  std::string Original(CoordSystem system, double latitude, double longitude) {
    return Majuscules(Write(system, latitude, longitude));
  }

 private:
  double Draw(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random_);
  }

  std::string Write(CoordSystem system, double latitude, double longitude) {
    double x = 0, y = 0;
    const auto metres = [&] { return AssembleNombres(system, std::array{Fix(x), Fix(y)}); };
    const int index = static_cast<int>(system);
    switch (system) {
      case CoordSystem::Deg:
      case CoordSystem::Dms:
        return AssembleNombres(system, std::array{latitude, longitude});
      case CoordSystem::Utm:
      case CoordSystem::Mgr:
        return WriteUtm(system, latitude, longitude);
      case CoordSystem::Grp:
        LatLonVersGradesParis(latitude, longitude, y, x);
        return AssembleNombres(system, std::array{y, x});
      case CoordSystem::Bng:
      case CoordSystem::Itm:
        return WriteNational(system, latitude, longitude);
      case CoordSystem::Lmb:
        LatLonVersLambertBelge(latitude, longitude, x, y);
        return metres();
      case CoordSystem::Ifb:
        return WriteIfbl(latitude, longitude);
      case CoordSystem::Nma:
      case CoordSystem::Sma:
        LatLonVersLambertUnParallele(state_.LambertUnParallele, latitude, longitude, x, y,
                                     index - static_cast<int>(CoordSystem::Nma) + 1);
        return metres();
      default:
        LatLonVersLambertFrance(state_.LambertFrance, latitude, longitude, x, y,
                                index - static_cast<int>(CoordSystem::Lf1) + 1);
        return metres();
    }
  }

  std::string WriteUtm(CoordSystem system, double latitude, double longitude) {
    ChoisitEllipsoide(state_.Catalogue, state_.Catalogue.DatumWgs84);
    const DatumCatalogue& c = state_.Catalogue;
    std::int16_t zone = 0;
    double northing = 0, easting = 0;
    std::string mgrs;
    LatLonVersMgrs(c.DemiGrandAxe, c.Aplatissement, EnRadians(latitude), EnRadians(longitude), zone,
                   northing, easting, mgrs, c.EllipsoideCourant);
    if (system == CoordSystem::Mgr) {
      if (mgrs[0] == ' ') mgrs[0] = '0';
      return AssembleReference(system, mgrs);
    }
    const double signed_ = latitude < 0 ? -northing : northing;
    return AssembleNombres(system, std::array{double(zone), Fix(easting), Fix(signed_)});
  }

  static std::string WriteNational(CoordSystem system, double latitude, double longitude) {
    std::string letters, east, north;
    LatLonVersGrille(system == CoordSystem::Bng ? Grille::British : Grille::Irish, latitude,
                     longitude, letters, east, north);
    return AssembleReference(system, letters + east + north);
  }

  static std::string WriteIfbl(double latitude, double longitude) {
    double x = 0, y = 0;
    LatLonVersLambertBelge(latitude, longitude, x, y);
    std::string code;
    std::int16_t error = 0;
    LambertVersIfbl(x, y, code, error, 6);
    return AssembleReference(CoordSystem::Ifb, code);
  }

  CoordState& state_;
  std::mt19937 random_{20260301};
};

}  // namespace talpena::test
