#include "coords/original.h"

#include <cmath>

#include "common/talpena_error.h"
#include "common/text.h"
#include "coords/datum.h"
#include "coords/mgrs.h"

namespace talpena {

std::string MgrsDuPoint(const DatumCatalogue& c, double latitude, double longitude) {
  std::int16_t zone = 0;
  double northing = 0, easting = 0;
  std::string mgrs;
  LatLonVersMgrs(c.DemiGrandAxe, c.Aplatissement, EnRadians(latitude), EnRadians(longitude), zone,
                 northing, easting, mgrs, c.EllipsoideCourant);
  return mgrs;
}

void DecodeOriginal(CoordState& state, std::string_view original, std::int16_t datum,
                    double& latitude, double& longitude, std::string& code) {
  ChoisitEllipsoide(state.Catalogue, datum);
  code = original.substr(0, 3);
  if (!EstAscii(code)) code = PremiersCaracteres(original, 3);
  Place place;
  if (const auto system = SystemeDe(code)) {
    try {
      place = InfoDe(*system).lit(state, *system, original);
    } catch (const TalpenaError&) {  // arithmetic without a result: no place
      place = {};
    }
  }
  if (!std::isfinite(place.latitude) || !std::isfinite(place.longitude)) place = {};
  latitude = place.latitude;
  longitude = place.longitude;
}

}  // namespace talpena
