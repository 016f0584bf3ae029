#include "coords/original.h"

#include <algorithm>
#include <cmath>

#include "common/numbers.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coords/datum.h"
#include "coords/ifbl.h"
#include "coords/lambert.h"
#include "coords/mgrs.h"
#include "coords/national_grids.h"
#include "coords/notations.h"
#include "coords/tokens.h"
#include "coords/utm.h"

namespace talpena {
namespace {

Place EnPlace(double phi, double lambda) { return {EnDegres(phi), EnDegres(lambda)}; }

/// The series of the current ellipsoid, made anew when it changed.
const UtmSeries& SeriesCourantes(CoordState& state) {
  const DatumCatalogue& c = state.Catalogue;
  std::optional<UtmSeries>& series = state.Series;
  if (!series || series->a != c.DemiGrandAxe || series->f != c.Aplatissement) {
    series.emplace(c.DemiGrandAxe, c.Aplatissement);
  }
  return *series;
}

/// The reference that ORIGINAL holds, in its complete form of 15 characters; "" when it has
/// another.
std::string ReferenceComplete(std::string_view text) {
  constexpr std::size_t complete = 15;
  std::string_view zoneText, band, square;
  DecoupeTrois(text, zoneText, band, square);
  if (zoneText.empty() || band.empty() || square.empty()) return {};
  std::string digits(square);
  CompleteGrille(digits);
  std::string mgrs(zoneText.size() == 1 ? "0" : "");
  mgrs.append(zoneText).append(band).append(digits);
  return mgrs.size() == complete ? mgrs : std::string();
}

/// The point of a complete reference; the text of failure takes its place when it is refused.
Place LitReference(CoordState& state, std::string& mgrs) {
  double phi = 0, lambda = 0, northing = 0, easting = 0;
  std::int16_t zone = 0;
  int error = 0;
  MgrsVersLatLon(mgrs, state.Catalogue.EllipsoideCourant, SeriesCourantes(state), phi, lambda, zone,
                 northing, easting, error);
  return EnPlace(phi, lambda);
}

Place LitLettres(Grille grid, std::string_view text) {
  std::string_view letters, square;
  DecoupeDeux(text, letters, square);
  if (letters.empty() || square.empty()) return {};
  std::string digits("**");  // in the place of the letters
  digits.append(square);
  CompleteGrille(digits);
  const std::string_view complete = digits;
  const double eastKm = NombreDe(complete.substr(2, 5)) / 1000;
  const double northKm =
      NombreDe(complete.substr(std::min<std::size_t>(7, complete.size())).substr(0, 5)) / 1000;
  double easting = 0, northing = 0;
  if (grid == Grille::British) {
    LettresVersBritish(Majuscules(letters), eastKm, northKm, easting, northing);
  } else {
    LettresVersIrish(Majuscules(letters), northKm, eastKm, northing, easting);
  }
  Place place;
  GrilleVersLatLon(grid, northing, easting, place.latitude, place.longitude);
  place.longitude = LongitudeSignee(place.longitude);
  return place;
}

}  // namespace

Place LitDegres(CoordState&, CoordSystem, std::string_view text) {
  std::string_view latitude, longitude;
  DecoupeDeux(text, latitude, longitude);
  return {NombreDe(latitude), NombreDe(longitude)};
}

// One set of variables for both: a longitude without seconds has those of the latitude.
// Held by DecodeOriginalTest.TheLongitudeInheritsSeconds.
Place LitDms(CoordState&, CoordSystem, std::string_view text) {
  std::string_view latitude, longitude;
  DecoupeDeux(text, latitude, longitude);
  Dms dms;
  Place place;
  DecoupeDms(latitude, dms);
  place.latitude = DmsVersDegres(dms);
  DecoupeDms(longitude, dms);
  place.longitude = DmsVersDegres(dms);
  return place;
}

Place LitUtm(CoordState& state, CoordSystem, std::string_view text) {
  std::string_view zoneText, eastingText, northingText;
  DecoupeTrois(text, zoneText, eastingText, northingText);
  const std::int16_t zone = Arrondi16(NombreDe(zoneText));
  const double easting = NombreDe(eastingText);
  double northing = NombreDe(northingText);
  if (zone == 0 || easting == 0) return {};
  double phi = 0, lambda = 0;
  UtmVersLatLon(SeriesCourantes(state), phi, lambda, zone, northing, easting);
  return EnPlace(phi, lambda);
}

// A reference of another length than the 15 characters of a complete one cannot be read; one that
// is refused for its letters is 0, 0.
Place LitMgrs(CoordState& state, CoordSystem, std::string_view text) {
  std::string mgrs = ReferenceComplete(text);
  if (mgrs.empty()) return {};
  return LitReference(state, mgrs);
}

Place LitGrades(CoordState&, CoordSystem, std::string_view text) {
  std::string_view latitude, longitude;
  DecoupeDeux(text, latitude, longitude);
  Place place;
  GradesParisVersLatLon(EnSimple(NombreDe(latitude)), EnSimple(NombreDe(longitude)), place.latitude,
                        place.longitude);
  return place;
}

Place LitBritish(CoordState&, CoordSystem, std::string_view text) {
  return LitLettres(Grille::British, text);
}

Place LitIrish(CoordState&, CoordSystem, std::string_view text) {
  return LitLettres(Grille::Irish, text);
}

// An x or y of 0 is no place.
Place LitMetres(CoordState& state, CoordSystem system, std::string_view text) {
  std::string_view xText, yText;
  DecoupeDeux(text, xText, yText);
  const double x = NombreDe(xText), y = NombreDe(yText);
  Place place;
  if (x == 0 || y == 0) return place;
  const Plane& plane = InfoDe(system).plane;
  plane.versLatLon(state, plane.zone, x, y, place.latitude, place.longitude);
  return place;
}

Place LitIfbl(CoordState&, CoordSystem, std::string_view text) {
  double x = 0, y = 0;
  std::int16_t error = 0;
  IfblVersLambert(text.substr(std::min<std::size_t>(4, text.size())), x, y, error);
  Place place;
  if (x == 0 || y == 0) return place;
  LambertBelgeVersLatLon(x, y, place.latitude, place.longitude);
  return place;
}

std::string EchecMgrs(CoordState& state, std::string_view original, std::int16_t datum) {
  ChoisitEllipsoide(state.Catalogue, datum);
  std::string text;
  OriginalLisible(original, text);
  std::string mgrs = ReferenceComplete(text);
  if (mgrs.empty()) return {};
  LitReference(state, mgrs);
  return EstEchecMgrs(mgrs) ? mgrs : std::string();
}

std::string MgrsDuPoint(const DatumCatalogue& c, double latitude, double longitude) {
  std::int16_t zone = 0;
  double northing = 0, easting = 0;
  std::string mgrs;
  LatLonVersMgrs(c.DemiGrandAxe, c.Aplatissement, EnRadians(latitude), EnRadians(longitude), zone,
                 northing, easting, mgrs, c.EllipsoideCourant);
  return mgrs;
}

namespace {

/// The point of a text in single bytes, and how it was read.
Lecture LitTexte(CoordState& state, CoordSystem system, std::string_view text, Place& place) {
  try {
    place = InfoDe(system).lit(state, system, text);
  } catch (const TalpenaError&) {  // arithmetic without a result: no place
    return Lecture::Faute;
  }
  if (!std::isfinite(place.latitude) || !std::isfinite(place.longitude)) return Lecture::Faute;
  const bool none = place.latitude == EchecCoord || place.longitude == EchecCoord;
  return none ? Lecture::Aucun : Lecture::Point;
}

}  // namespace

Lecture DecodeOriginal(CoordState& state, std::string_view original, std::int16_t datum,
                       double& latitude, double& longitude, std::string& code) {
  ChoisitEllipsoide(state.Catalogue, datum);
  std::string readable;
  std::string_view text = original;
  if (!EstAscii(original)) {
    OriginalLisible(original, readable);
    text = readable;
  }
  code = text.substr(0, 3);
  latitude = longitude = EchecCoord;
  const auto system = SystemeDe(code);
  if (!system) {
    code = PremiersCaracteres(original, 3);
    return Lecture::Aucun;
  }
  Place place;
  const Lecture read = LitTexte(state, *system, text, place);
  if (read == Lecture::Faute) return read;
  latitude = place.latitude;
  longitude = place.longitude;
  return read;
}

}  // namespace talpena
