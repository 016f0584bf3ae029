#include "maps/raster/raster_readout.h"

#include <algorithm>
#include <array>

#include "common/numbers.h"
#include "common/paths.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coords/datum.h"
#include "coords/lambert.h"
#include "coords/mgrs.h"
#include "coords/national_grids.h"

namespace talpena {
namespace {

struct GridRow {
  GrilleLocale grille;
  std::string_view part;  ///< of the file's name in upper case
  std::string_view name;
};
constexpr std::array countryGrids = {
    GridRow{GrilleLocale::British, "BRITISLE", "British National Grid"},
    GridRow{GrilleLocale::Lambert, "BELGIUM", "Lambert belge"},
    GridRow{GrilleLocale::Grades, "GAULE", "Grades Paris"},
};

std::string EnMetres(double value) { return Format(value, "0"); }

/// The position on the datum of a grid; a catalogue without it, or without EUR-M, raises
/// SubscriptOutOfRange (9).
PointDegres SurDatum(const DatumCatalogue& catalogue, PointDegres place, SystemDatum datum) {
  const std::int16_t from = catalogue.DatumEur;
  const std::int16_t to = catalogue.DatumsSpeciaux[static_cast<std::size_t>(datum)];
  catalogue.Datum(from), catalogue.Datum(to);  // two that are absent would count as the same
  PointDegres moved;
  ConvertitDatum(catalogue, place.latitude, place.longitude, 0, moved.latitude, moved.longitude,
                 from, to);
  return moved;
}

struct GridReference {
  std::string letters, east, north;
  std::string Texte() const { return letters.empty() ? "" : letters + " " + east + " " + north; }
};

GridReference ReferenceSur(Grille grid, PointDegres place) {
  GridReference r;
  LatLonVersGrille(grid, place.latitude, place.longitude, r.letters, r.east, r.north);
  return r;
}

/// Whether an Irish reference lies where the island does: the squares go on far into the sea and
/// over Great Britain.
bool EstEnIrlande(const GridReference& r) {
  constexpr double falseEast = 300000, falseNorth = 5680030;  // of the frame of the inverse
  constexpr double eastMost = 370000, northMost = 470000;
  if (r.letters.empty()) return false;
  double northing = 0, easting = 0;
  LettresVersIrish(r.letters, Val(r.north) / 1000, Val(r.east) / 1000, northing, easting);
  const double east = easting - falseEast, north = northing - falseNorth;
  return east >= 0 && east <= eastMost && north >= 0 && north <= northMost;
}

std::string LitIles(const DatumCatalogue& catalogue, PointDegres place) {
  const GridReference irish =
      ReferenceSur(Grille::Irish, SurDatum(catalogue, place, SystemDatum::Irl));
  if (EstEnIrlande(irish)) return irish.Texte();
  return ReferenceSur(Grille::British, SurDatum(catalogue, place, SystemDatum::Ogb)).Texte();
}

std::string LitLambert(const DatumCatalogue& catalogue, PointDegres place) {
  const PointDegres moved = SurDatum(catalogue, place, SystemDatum::Bel72);
  double x = 0, y = 0;
  LatLonVersLambertBelge(moved.latitude, moved.longitude, x, y);
  return "x=" + EnMetres(x) + "   y=" + EnMetres(y);
}

std::string LitGrades(const DatumCatalogue& catalogue, PointDegres place) {
  const PointDegres moved = SurDatum(catalogue, place, SystemDatum::Ntf);
  double latitude = 0, longitude = 0;
  LatLonVersGradesParis(moved.latitude, moved.longitude, latitude, longitude);
  return "Lat=" + Format(latitude, "0.00000") + " / Lon=" + Format(longitude, "0.00000");
}

std::string LitGrille(const DatumCatalogue& catalogue, GrilleLocale grille, PointDegres place) {
  switch (grille) {
    case GrilleLocale::British:
      return LitIles(catalogue, place);
    case GrilleLocale::Lambert:
      return LitLambert(catalogue, place);
    case GrilleLocale::Grades:
      return LitGrades(catalogue, place);
    case GrilleLocale::None:
      break;
  }
  return {};
}

void LitUtm(PointDegres place, RasterLabels& labels) {
  std::int16_t zone = 0;
  double northing = 0, easting = 0;
  std::string reference;
  const UtmSeries& series = SeriesInternational();
  LatLonVersMgrs(series, EnRadians(place.latitude), EnRadians(place.longitude), zone, northing,
                 easting, reference, EllipsoideInternational);
  labels.LblMGRS = Rogne(reference);
  labels.LblUTM = EstEchecMgrs(reference) ? labels.LblMGRS
                                          : "E=" + EnMetres(easting) + "   N=" + EnMetres(northing);
}

/// What fails for a position leaves its label empty.
template <typename Body>
void Essaie(Body&& body) {
  try {
    body();
  } catch (const TalpenaError&) {  // no place of this notation
  }
}

}  // namespace

GrilleLocale GrilleDe(std::string_view fichierCarte) {
  const std::string name = Majuscules(NomDe(fichierCarte));
  const auto* found =
      std::find_if(countryGrids.begin(), countryGrids.end(),
                   [&](const GridRow& row) { return name.find(row.part) != std::string::npos; });
  return found == countryGrids.end() ? GrilleLocale::None : found->grille;
}

std::string_view NomGrille(GrilleLocale grille) {
  const auto* found = std::find_if(countryGrids.begin(), countryGrids.end(),
                                   [&](const GridRow& row) { return row.grille == grille; });
  return found == countryGrids.end() ? std::string_view() : found->name;
}

PointDegres SansTour(PointDegres place) {
  return {place.latitude, LongitudeSignee(place.longitude)};
}

const UtmSeries& SeriesInternational() {
  static const UtmSeries series(6378388, 1 / 297.0);
  return series;
}

RasterLabels LitPositionRaster(const DatumCatalogue& catalogue, const RasterMap& carte,
                               PointKm point) {
  RasterLabels labels;
  Essaie([&] {
    const PointDegres place = SansTour(InverseRaster(carte, point));
    labels.LblPosition = "Lat=" + Format(place.latitude, "+##.##;-##.##") +
                         " / Lon=" + Format(place.longitude, "+###.##;-##.###");
    Essaie([&] { LitUtm(place, labels); });
    Essaie([&] { labels.LblBNG = LitGrille(catalogue, GrilleDe(carte.FichierCarte), place); });
  });
  return labels;
}

}  // namespace talpena
