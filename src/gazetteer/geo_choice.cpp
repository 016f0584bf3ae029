// A place that was chosen fills the record form.
#include <array>
#include <string>

#include "common/numbers.h"
#include "common/text.h"
#include "coords/datum.h"
#include "gazetteer/geo_query.h"
#include "gazetteer/state.h"
#include "platform/commands.h"
#include "store/record/compute.h"
#include "store/record/input_boxes.h"
#include "store/record/input_modes.h"
#include "store/record/record_editor.h"

namespace talpena {
namespace {

double Nombre(const PlaceItem& item, PlaceColumn column) {
  return Val(Remplace(item.Texte(column), ",", "."));
}

std::string SansBarre(std::string_view text) { return Remplace(text, "/", "-"); }

/// Which input the place needs, and what its two boxes get.
struct PlaceInput {
  CoordSystem system;
  std::string latitude;
  std::string longitude;
};

PlaceInput SaisieDe(const SettingsState& settings, const PlaceItem& item) {
  const double latitude = Nombre(item, PlaceColumn::Latitude);
  const double longitude = Nombre(item, PlaceColumn::Longitude);
  // The eight characters of the list are what a place has: four decimals of a latitude, three of a
  // longitude. Held by GeoChoice.DecimalDegreesComeWithTheDecimalsOfTheList.
  if (settings.GeoCoordType == GeoCoord::Degres) {
    return {CoordSystem::Deg, Str(EnSimple(latitude)), Str(EnSimple(longitude))};
  }
  constexpr double unit = 10000;  // DDMMSS to DD.MMSS
  return {CoordSystem::Dms, Format(latitude / unit, "+00.00000;-00.00000"),
          Format(longitude / unit, "+000.00000;-000.00000")};
}

void RemplitReference(GazetteerContext c, RecordScreen& fiche, const PlaceItem& item,
                      std::int16_t datum) {
  const PlaceInput input = SaisieDe(c.state, item);
  c.state.InputMode = static_cast<std::int16_t>(input.system);
  AdapteInputbox(c.state, fiche);
  fiche.EditBox = {};
  const auto boxes = BoitesDe(input.system);
  fiche.EditBox[static_cast<std::size_t>(boxes[0])] = input.latitude;
  fiche.EditBox[static_cast<std::size_t>(boxes[1])] = input.longitude;
  PrendDatum(c.state, fiche, datum);
  fiche.datumPropre = datum;
  ChoisitEllipsoide(c.state.Catalogue, datum);
}

/// @return true when a field holds the name
bool RemplitChampsLibres(const StoreState& state, RecordScreen& fiche, const PlaceItem& item) {
  const auto& fields = state.document.Entete().FreeFieldDefs;
  bool named = false;
  for (std::size_t i = 0; i < fields.size() && i < fiche.Grid.size(); ++i) {
    const std::string code = Majuscules(fields[i].Code);
    if (code == "STAT.TOPO") {
      fiche.Grid[i] = SansBarre(item.Texte(PlaceColumn::Name));
      named = true;
    } else if (code == "STAT.FIPS") {
      fiche.Grid[i] = SansBarre(RogneDroite(item.Texte(PlaceColumn::Fips)));
    } else if (code == "STAT.DESI") {
      // The country, not the feature. Held by GeoChoice.TheDesignationGetsTheCountry.
      fiche.Grid[i] = SansBarre(item.Texte(PlaceColumn::Country));
    }
  }
  return named;
}

void AjouteRemarque(RecordScreen& fiche, const PlaceItem& item) {
  const std::string fips(Rogne(item.Texte(PlaceColumn::Fips)));
  fiche.ChampLibre =
      item.Texte(PlaceColumn::Name) + (fips.empty() ? "" : " (" + fips + ")") + fiche.ChampLibre;
}

void CalculeEtMontre(GazetteerContext c, RecordScreen& fiche) {
  NettoieBoites(fiche);
  NoteChangement(fiche);
  CalculePoint(c, fiche);
  AfficheControle(c, fiche);
  MetAvis(c.state, fiche);
}

}  // namespace

void ChoisitLieu(GazetteerContext c, GeoQueryScreen& ecran, const PlaceItem& item,
                 RecordScreen& fiche) {
  if (item.Texte(PlaceColumn::Latitude).empty() || item.Texte(PlaceColumn::Longitude).empty()) {
    return Bip(c.state, c.io);
  }
  const std::string code = c.state.GeoDatum.empty() ? "WGS84" : c.state.GeoDatum;
  const std::int16_t datum = ChercheDatum(c.state.Catalogue, code);
  if (datum == 0) return DitDatumAbsent(c.state, c.io, code);
  c.state.GeoDatum = code;
  RemplitReference(c, fiche, item, datum);
  if (!RemplitChampsLibres(c.state, fiche, item)) AjouteRemarque(fiche, item);
  CalculeEtMontre(c, fiche);
  ecran.focusTxt = true;
  ecran.suite = GeoAfter::Hides;
}

}  // namespace talpena
