// The control notations of the record editor.
#include <cmath>
#include <optional>

#include "common/numbers.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coords/datum.h"
#include "coords/dms_text.h"
#include "coords/forward_text.h"
#include "coords/mgrs.h"
#include "coords/tokens.h"
#include "store/record/record_editor.h"

namespace talpena {
namespace {

/// What has no value is not shown; a fault in one notation does not take the others with it.
template <typename Body>
void Essaie(Body&& body) {
  try {
    body();
  } catch (const TalpenaError&) {
  }
}

/// Shows a coordinate as a plain number with its sign, and gives its value; empty when the field
/// is, or holds a number beyond all range.
std::optional<double> MontreNombre(std::string& field) {
  const std::string_view text = Rogne(field);
  if (text.empty()) return std::nullopt;
  try {
    const double value = NombreDe(text) + 0.0;  // no "-0"
    field = (value < 0 ? "" : "+") + Str(value);
    return value;
  } catch (const TalpenaError&) {
    return std::nullopt;
  }
}

/// "31 U FR1664016640"; a text of failure is parted in the same places.
std::string TexteMgrs(const std::string& mgrs) {
  return mgrs.substr(0, 2) + " " + mgrs.substr(2, 1) + " " + mgrs.substr(3);
}

void AfficheUtm(StoreState& state, RecordScreen& ecran, double latitude, double longitude) {
  DatumCatalogue& catalogue = state.Catalogue;
  ChoisitEllipsoide(catalogue, ecran.datum);
  ConvertitDatum(catalogue, latitude, longitude, 0, latitude, longitude, state.DatumFichier,
                 ecran.datum);
  if (latitude == 0 && longitude == 0) return;
  std::int16_t zone = 0;
  double northing = 0, easting = 0;
  std::string mgrs;
  LatLonVersMgrs(catalogue.DemiGrandAxe, catalogue.Aplatissement, EnRadians(latitude),
                 EnRadians(longitude), zone, northing, easting, mgrs, catalogue.EllipsoideCourant);
  ecran.ValeurUtmAlpha = TexteMgrs(mgrs);
  if (zone == 0) return;  // polar: no UTM
  ecran.ValeurUtmMetrique = "E=" + Str(std::round(easting)) + "   N=" + Str(std::round(northing));
}

}  // namespace

void AfficheControle(CommandContext c, RecordScreen& ecran) {
  ecran.ValeurDMS.clear();
  ecran.ValeurUtmMetrique.clear();
  ecran.ValeurUtmAlpha.clear();
  ecran.ValeurLibre.clear();
  const std::optional<double> latitude = MontreNombre(ecran.ChampLatitude);
  const std::optional<double> longitude = MontreNombre(ecran.ChampLongitude);
  if (!latitude || !longitude) return;
  Essaie([&] { ecran.ValeurDMS = TexteDmsSigne(*latitude) + "\n" + TexteDmsSigne(*longitude); });
  Essaie([&] { AfficheUtm(c.state, ecran, *latitude, *longitude); });
  ecran.ValeurLibre =
      ReferenceDuPoint(c.state, ecran.system, c.state.DatumFichier, *latitude, *longitude);
}

}  // namespace talpena
