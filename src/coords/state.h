// Datums and the current ellipsoid, as process globals.
#pragma once
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "coords/lambert.h"
#include "coords/special_datums.h"
#include "coords/utm.h"
#include "platform/settings_state.h"

namespace talpena {

/// One datum of the catalogue: an ellipsoid and three shifts to WGS84.
struct DatumRecord {
  std::int16_t da = 0;         ///< 6378137 less the semi-major axis, whole metres
  double df = 0;               ///< flattening difference to WGS84, no scale factor
  double dx = 0;               ///< shift to WGS84, metres
  double dy = 0;               ///< metres
  double dz = 0;               ///< metres
  std::int16_t ellipsoid = 0;  ///< row of Ellipsoides, from 1
  std::string code;            ///< five characters, blank padded
  std::string name;
  std::string application;  ///< area of use
  std::int16_t use = 0;     ///< 2 and above: valid for UTM and MGRS
};

struct EllipsoidRecord {
  std::int16_t id = 0;
  std::string code;  ///< two letters
  std::string name;
  double a = 0;                  ///< semi-major axis, metres
  double inverseFlattening = 0;  ///< 1/f
};

/// The catalogue of DATUM.MDB. Indices count from 1 as everywhere in the program; 0 is none.
struct DatumCatalogue {
  std::vector<DatumRecord> Datums;           ///< element 0 is index 1
  std::vector<EllipsoidRecord> Ellipsoides;  ///< likewise
  std::int16_t DatumWgs84 = 0;
  std::int16_t DatumEur = 0;  ///< "EUR-M"
  /// Indices of the datums of CodesSpeciaux in slots 1 to 6, 0 when absent; slot 0 unused.
  std::array<std::int16_t, CodesSpeciaux.size()> DatumsSpeciaux{};

  // The current ellipsoid, set by ChoisitEllipsoide and valid until its next call.
  double DemiGrandAxe = 0;   ///< semi-major axis, metres
  double Aplatissement = 0;  ///< flattening, not its inverse
  double DemiPetitAxe = 0;   ///< semi-minor axis, metres
  std::int16_t EllipsoideCourant = 0;

  const DatumRecord& Datum(std::int16_t index) const;        ///< outside: SubscriptOutOfRange (9)
  const EllipsoidRecord& Ellipsoide(std::int16_t id) const;  ///< outside: SubscriptOutOfRange (9)
};

struct CoordState : SharedState {
  DatumCatalogue Catalogue;
  std::string DatumFichierCode = "EUR-M";  ///< datum of LATITUDE and LONGITUDE of the open file
  std::int16_t DatumFichier = 0;           ///< its index, 0 when the catalogue lacks it
  std::string DatumUtmCode = "EUR-M";      ///< default datum of original UTM coordinates
  std::int16_t DatumUtm = 0;
  std::string DatumSpheriqueCode = "EUR-M";  ///< default datum of original spherical coordinates
  std::int16_t DatumSpherique = 0;

  LambertParametres LambertFrance;       ///< of the two-parallel zone used last
  LambertParametres LambertUnParallele;  ///< of the one-parallel zone used last

  std::optional<UtmSeries> Series;  ///< of the ellipsoid that UTM was read on last

  std::int16_t MailleChoisie = 0;  ///< mesh of the adjustment: 0 none, 1 to 7 for 100 m to 100 km
  std::int16_t GrilleChoisie = 1;  ///< grid that it is laid on: 1 UTM, 2 British, 3 Irish
};

}  // namespace talpena
