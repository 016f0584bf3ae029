#include "gazetteer/geo_query.h"

#include <utility>

#include "common/error_words.h"
#include "common/numbers.h"
#include "common/text.h"
#include "gazetteer/drive.h"
#include "gazetteer/followed_reading.h"
#include "gazetteer/gazetteer_settings.h"
#include "gazetteer/geo_settings.h"
#include "platform/busy.h"
#include "platform/commands.h"

namespace talpena {
namespace {

constexpr int PathInvalid = 3044;  // the engine of other makers raises it for a path without sense

void ControleLecteur(GazetteerContext c) {
  const std::string path = FichierGazetier(c.state, c.io);
  if (!LecteurPret(c.io.files, path)) DemandeLecteur(c.state, c.io, c.state.GeoFile);
}

void VideListe(GeoQueryScreen& ecran) {
  ecran.ListView1 = {};
  ecran.choisi.reset();
  ecran.PicName.clear();
}

void MontreLieux(GazetteerContext c, GeoQueryScreen& ecran, Database& base, GeoSearch kind) {
  const FollowedReading reading(base, c.attente);
  ecran.ListView1 =
      PlaceList(c.state, base.OpenRecordset(InstructionRecherche(c.state, kind, ecran.txt)));
  ecran.lblNbre = Str(static_cast<std::int64_t>(ecran.ListView1.Nombre()));
  if (ecran.ListView1.Nombre() == 0) return;
  ecran.choisi = 0;
  AfficheNom(c, ecran, ecran.ListView1.Item(0));
}

void DitEchec(GazetteerContext c, GeoQueryScreen& ecran, const TalpenaError& error) {
  c.io.dialogues.Demande({.text = "Error during database Query\n" +
                                  DescriptionErreur(c.state.Langue, error) + " " +
                                  Str(std::int64_t{error.number()})});
  ecran.base.Ferme();
  if (error.number() == ErrorNumber::DatabaseNotFound || error.number() == PathInvalid) {
    c.dialogs.MontreGeoSetup();
    return;
  }
  c.gazetteer.TexteTape = ecran.txt;
  ecran.suite = GeoAfter::Closes;
}

void Recherche(GazetteerContext c, GeoQueryScreen& ecran, GeoSearch kind) {
  ecran.base.Lit(c.state, c.io, [&](Database& base) {
    VideListe(ecran);
    if (ecran.txt.empty()) return Bip(c.state, c.io);
    MontreLieux(c, ecran, base, kind);
  });
}

}  // namespace

void ChargeGeoQuery(GazetteerContext c, GeoQueryScreen& ecran) {
  c.gazetteer.Polices = ChargePolices(c.io.settings);
  ecran.txt = std::exchange(c.gazetteer.TexteTape, {});
}

std::string InstructionRecherche(const SettingsState& settings, GeoSearch kind,
                                 std::string_view typed) {
  std::string text(typed);
  // Only the exact name: its search keys have neither blanks nor hyphens.
  // Held by GeoQuery.OnlyTheTableNamedExactlySoLosesBlanksAndHyphens.
  if (settings.GeoTable == "bgntable") text = Remplace(Remplace(text, " ", ""), "-", "");
  text = Rogne(Majuscules(text));
  const std::string& order =
      settings.GeoSort != 0 ? settings.GeoFipsField : settings.GeoResearchField;
  return ToutesLesLignes(settings) + " WHERE [" + settings.GeoResearchField + "]" +
         (kind == GeoSearch::Exact ? " = '" + text + "'" : " LIKE '" + text + "*'") +
         " ORDER BY [" + order + "];";
}

void cmd_Click(GazetteerContext c, GeoQueryScreen& ecran, GeoSearch kind) {
  ExecuteCommande(c.state, c.io, {}, [&] {
    ControleLecteur(c);
    try {
      Recherche(c, ecran, kind);
    } catch (const TalpenaError& error) {
      if (error.number() == ErrorNumber::Cancelled) throw;
      VideListe(ecran);
      DitEchec(c, ecran, error);
    }
  });
}

std::optional<RegionFont> PoliceDe(const GazetteerState& gazetteer, const PlaceItem& item) {
  const double font = Val(item.Texte(PlaceColumn::Font));
  if (font < 1 || font > static_cast<double>(RegionCount)) return {};
  return gazetteer.Polices[static_cast<std::size_t>(font) - 1];
}

void AfficheNom(GazetteerContext c, GeoQueryScreen& ecran, const PlaceItem& item) {
  const auto font = PoliceDe(c.gazetteer, item);
  ecran.PicName = item.Texte(PlaceColumn::Name);
  ecran.police = font.value_or(c.gazetteer.Polices[0]);
  ExecuteCommande(c.state, c.io, {}, [&] {
    if (!font) throw TalpenaError(ErrorNumber::SubscriptOutOfRange, "Subscript out of range");
  });
}

void ListView1_ItemClick(GazetteerContext c, GeoQueryScreen& ecran, std::size_t place) {
  if (place >= ecran.ListView1.Nombre()) return;
  ecran.choisi = place;
  ExecuteCommande(c.state, c.io, {}, [&] { AfficheNom(c, ecran, ecran.ListView1.Item(place)); });
}

void ListView1_ColumnClick(GazetteerContext c, GeoQueryScreen& ecran, PlaceColumn column) {
  ExecuteCommande(c.state, c.io, {}, [&] {
    const Busy busy(c.attente);
    const auto row =
        ecran.choisi ? std::optional(ecran.ListView1.RangeeDe(*ecran.choisi)) : std::nullopt;
    ecran.ListView1.TrieParColonne(column);
    if (row) ecran.choisi = ecran.ListView1.PlaceDe(*row);
  });
}

void ListView1_DblClick(GazetteerContext c, GeoQueryScreen& ecran, RecordScreen& fiche) {
  if (!ecran.choisi) return;
  ExecuteCommande(c.state, c.io, {}, [&] {
    ChoisitLieu(c, ecran, PlaceItem(ecran.ListView1.Item(*ecran.choisi)), fiche);
  });
}

}  // namespace talpena
