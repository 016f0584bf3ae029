#include "gazetteer/typed_search.h"

#include <algorithm>
#include <utility>

#include "common/numbers.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "gazetteer/followed_reading.h"
#include "gazetteer/geo_settings.h"
#include "gazetteer/place_point.h"

namespace talpena {
namespace {

constexpr std::size_t rowsPerStep = 200, measuresPerStep = 1000;

/// Everything that a set-up may change about what is read.
std::string Lu(const StoreState& state, Platform& io) {
  std::string read = EmpreinteGazetier(state, io.files, FichierGazetier(state, io));
  if (read.empty()) return read;
  for (const std::string& name : NomsGeo(state)) read += '\n' + name;
  return read + '\n' + std::to_string(state.GeoCoordType);
}

std::optional<double> Degres(const std::string& text, double highest) {
  if (!EstNumerique(text)) return {};
  const double value = Val(Remplace(text, ",", "."));
  return value >= -highest && value <= highest ? std::optional(value) : std::nullopt;
}

}  // namespace

void TypedSearch::Commence(GazetteerContext c) {
  LitLignes(c);
  const std::string now = Lu(c.state, c.io);
  if (etape_ != Step::Nothing && !now.empty() && now == lu_) return;
  etape_ = Step::Nothing;
  liste_ = {};
  index_ = {};
  prochain_ = 0;
  Ouvre(c);
  lu_ = now;
  etape_ = Step::Read;
}

void TypedSearch::Ouvre(GazetteerContext c) {
  base_.Lit(c.state, c.io, [&](Database& base) {
    const FollowedReading reading(base, c.attente);
    liste_ = PlaceList(c.state, base.OpenRecordset(ToutesLesLignes(c.state) + ";"));
  });
}

/// The records, when rows of the file came, went or changed.
void TypedSearch::LitLignes(GazetteerContext c) {
  suivi_ = c.document().Observe([this](Changes changes) {
    lignesChangees_ |= changes.Touche(Aspect::Rows) || changes.Touche(Aspect::Values);
  });
  if (!std::exchange(lignesChangees_, false)) return;
  lignes_ = FileRecords(c.document());
  index_.OublieMesures();
  if (etape_ == Step::Done) etape_ = Step::Measure;
}

bool TypedSearch::Avance() {
  if (etape_ == Step::Read && !LitNoms()) {
    index_.Termine();
    etape_ = Step::Measure;
  } else if (etape_ == Step::Measure &&
             (lignes_.Vide() || !index_.Mesure(lignes_.LePlusProche(), measuresPerStep))) {
    etape_ = Step::Done;
  }
  return etape_ == Step::Read || etape_ == Step::Measure;
}

bool TypedSearch::LitNoms() {
  const std::size_t end = std::min(prochain_ + rowsPerStep, liste_.Nombre());
  for (; prochain_ < end; ++prochain_) {
    const NamedPoint place = liste_.NomEtPoint(prochain_);
    index_.Ajoute(place.nom, place.point);
  }
  return prochain_ < liste_.Nombre();
}

bool TypedSearch::EstPerime(GazetteerContext c) const {
  return EstPret() && Lu(c.state, c.io) != lu_;
}

std::vector<TypedPlace> TypedSearch::Cherche(std::string_view typed, std::optional<GeoPoint> near) {
  std::vector<TypedPlace> places;
  if (!EstPret()) return places;
  for (const PlaceHit& hit : index_.Cherche(typed, near)) {
    TypedPlace& place = places.emplace_back();
    place.lieu = liste_.Item(hit.row);
    place.match = hit.match;
    place.point = liste_.NomEtPoint(hit.row).point;
    if (place.point) place.km = lignes_.DistanceKm(*place.point);
  }
  return places;
}

std::optional<GeoPoint> PointDeLaFiche(const RecordScreen& fiche) {
  const auto latitude = Degres(fiche.ChampLatitude, HighestLatitude);
  const auto longitude = Degres(fiche.ChampLongitude, HighestLongitude);
  if (!latitude || !longitude) return {};
  return GeoPoint{*latitude, *longitude};
}

}  // namespace talpena
