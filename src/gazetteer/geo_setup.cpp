#include "gazetteer/geo_setup.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "common/error_words.h"
#include "common/msg_id.h"
#include "common/paths.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coords/datum.h"
#include "coords/datum_choice.h"
#include "gazetteer/drive.h"
#include "gazetteer/followed_reading.h"
#include "gazetteer/gazetteer_file.h"
#include "gazetteer/geo_settings.h"
#include "gazetteer/state.h"
#include "platform/busy.h"
#include "platform/commands.h"
#include "platform/foreign_format.h"

namespace talpena {
namespace {

constexpr std::string_view normalisedTable = "BGNTABLE";
constexpr std::int16_t ellipsoidOfNormalised = 21;
constexpr std::string_view filterOfTables =
    "Access (*.mdb)|*.mdb|dBase IV (*.dbf)|*.dbf|Paradox 4.x (*.db)|*.db";

/// The folder of a file without a separator behind it, but for a root.
std::string DossierSeul(const std::string& path) {
  std::string folder = DossierDe(path);
  const bool root = folder.size() == 1 || folder.ends_with(":\\");
  if (folder.empty() || root) return folder.empty() ? path : folder;
  folder.pop_back();
  return folder;
}

std::string SansExtension(const std::string& name) { return name.substr(0, name.rfind('.')); }

/// What the maker shows of its tables. Those of an Access file without fields are elsewhere.
bool EstMontree(const TableDef& table, std::string_view connect) {
  const bool away = connect.empty() && table.fields.empty();
  return (table.attributes & TableAttribute::System) == 0 && !away;
}

bool EstMontree(const QueryDef& query) {
  return query.kind == QueryDef::Select && !query.name.starts_with('~');
}

}  // namespace

void GeoChoices::Choisit(std::string_view text) {
  const auto found = std::ranges::find(entrees, text);
  choix = found == entrees.end() ? -1 : static_cast<int>(found - entrees.begin());
}

void GeoChoices::Choisit(int position) {
  choix = position < static_cast<int>(entrees.size()) ? std::max(position, -1) : -1;
}

void GeoSetup::Charge() {
  form_.lblFile = GazetierFourni(c_.state, c_.io).value_or(c_.state.GeoFile);
  form_.lblDbType = c_.state.GeoDbType;
  form_.lblDatum = c_.state.GeoDatum;
  form_.Option1 = c_.state.GeoSort;
  form_.Option2 = c_.state.GeoCoordType;
  MapGeo();
}

void GeoSetup::ControleDisque() {
  if (disqueDit_ || form_.lblFile.empty() || LecteurPret(c_.io.files, form_.lblFile)) return;
  disqueDit_ = true;
  DemandeLecteur(c_.state, c_.io, form_.lblFile);
}

void GeoSetup::MapGeo() {
  ControleDisque();
  if (form_.lblFile.empty()) return;
  try {
    Busy busy(c_.attente);
    busy.Annulable();
    OuvreBase();
    ListeTables();
    form_.Liste(GeoList::Table).Choisit(c_.state.GeoTable);
    if (form_.Liste(GeoList::Table).choix < 0) {
      form_.Liste(GeoList::Table).Choisit(tableDuFichier_);
    }
    MapFieldGeo();
  } catch (const TalpenaError& error) {
    DitEchec(error);
  }
}

/// Nothing is listed until something is open: a list of another file would be taken for its own.
void GeoSetup::OuvreBase() {
  base_.reset();
  sources_.clear();
  champs_.clear();
  tableDuFichier_.clear();
  for (GeoChoices& list : form_.cmb) list = {};
  if (ContientExtension(form_.lblFile, AccessExtension)) {
    form_.lblDbType = Connect::Access;
    base_ = Ouvre({});
    return;
  }
  for (const FolderFormat& format : FolderFormats) {
    if (!EgalSansCasse(form_.lblDbType, format.connect)) continue;
    form_.lblFile = OuvreDossier(format.extension);
    form_.lblDbType = format.connect;
    base_ = Ouvre(form_.lblDbType);
  }
}

/// The folder of the tables, whose file may have been named.
std::string GeoSetup::OuvreDossier(std::string_view extension) {
  if (!ContientExtension(form_.lblFile, extension)) return form_.lblFile;
  tableDuFichier_ = SansExtension(NomDe(form_.lblFile));
  return DossierSeul(form_.lblFile);
}

std::unique_ptr<Database> GeoSetup::Ouvre(const std::string& connect) {
  return c_.io.engine.OpenDatabase(RendNatif(form_.lblFile), true, connect);
}

void GeoSetup::ListeTables() {
  if (!base_) return;
  for (const TableDef& table : base_->Tables()) {
    if (EstMontree(table, form_.lblDbType))
      sources_.push_back({.nom = table.name, .abimee = table.fields.empty()});
  }
  const auto sansCasse = [](const Source& a, const Source& b) {
    return Minuscules(a.nom) < Minuscules(b.nom);
  };
  if (!form_.lblDbType.empty()) std::ranges::stable_sort(sources_, sansCasse);
  for (const QueryDef& query : base_->Queries()) {
    if (EstMontree(query)) sources_.push_back({.nom = query.name, .requete = true});
  }
  std::vector<std::string>& entries = form_.Liste(GeoList::Table).entrees;
  std::ranges::transform(sources_, std::back_inserter(entries), &Source::nom);
}

/// A table that cannot be read is told and has no fields.
void GeoSetup::MapFieldGeo() {
  champs_.clear();
  try {
    LitChamps();
  } catch (const TalpenaError& error) {
    DitEchec(error);
  }
  RempliChamps();
  AppliqueRegleFips();
}

void GeoSetup::LitChamps() {
  const int chosen = form_.Liste(GeoList::Table).choix;
  if (chosen < 0) return;
  const Source& source = sources_[static_cast<std::size_t>(chosen)];
  if (source.abimee) OuvreAbimee(source.nom);
  const FollowedReading reading(*base_, c_.attente);  // a query is run for its fields
  champs_ = source.requete ? base_->Query(source.nom).fields : base_->Table(source.nom).fields;
}

/// The file of a table that a folder lists without fields: opened alone it tells what is wrong.
void GeoSetup::OuvreAbimee(const std::string& table) {
  for (const FolderFormat& format : FolderFormats) {
    if (!EgalSansCasse(form_.lblDbType, format.connect)) continue;
    const std::string path =
        AvecSeparateur(RendNatif(form_.lblFile)) + table + std::string(format.extension);
    c_.io.engine.OpenDatabase(RendNatif(path), true, form_.lblDbType);
  }
}

void GeoSetup::RempliChamps() {
  const PerGeoList<std::string> names = NomsGeo(c_.state);
  for (std::size_t i = 1; i < GeoListCount; ++i) {
    GeoChoices& list = form_.cmb[i];
    list = {};
    if (form_.Liste(GeoList::Table).choix < 0) continue;
    if (i >= GeoRequiredCount) list.entrees.emplace_back();
    std::ranges::transform(champs_, std::back_inserter(list.entrees), &FieldDef::name);
    list.Choisit(names[i]);
  }
}

void GeoSetup::DitEchec(const TalpenaError& error) {
  if (error.number() == ErrorNumber::Cancelled) return;
  c_.io.dialogues.Demande(
      {.text = DescriptionErreur(c_.state.Langue, error) + "\n" + std::to_string(error.number()),
       .icon = Icon::Stop});
}

/// Without a FIPS field nothing can be sorted by it.
void GeoSetup::AppliqueRegleFips() {
  if (!champs_.empty() && form_.Liste(GeoList::Fips).Texte().empty()) form_.Option1 = 0;
}

void GeoSetup::cmb_Click(GeoList list, int index) {
  form_.Liste(list).Choisit(index);
  if (list == GeoList::Table) {
    Busy busy(c_.attente);
    busy.Annulable();
    MapFieldGeo();
  }
  if (list == GeoList::Fips) AppliqueRegleFips();
}

void GeoSetup::Option1_Click(int index) {
  form_.Option1 = form_.Liste(GeoList::Fips).Texte().empty() ? 0 : index;
}

GeoSuite GeoSetup::Command1_Click(GeoCommand command) {
  GeoSuite next;
  ExecuteCommande(c_.state, c_.io, {}, [&] {
    switch (command) {
      case GeoCommand::Change:
        return Change();
      case GeoCommand::Ok:
        next = Accepte();
        return;
      case GeoCommand::Escape:
        next.ferme = true;
        return;
      case GeoCommand::Save:
        return Sauve();
      case GeoCommand::Open:
        return OuvreSetup();
    }
  });
  return next;
}

void GeoSetup::Change() {
  const std::string path = c_.io.dialogues.OuvreFichier(
      {.filter = std::string(filterOfTables), .name = c_.state.GeoFile});
  if (!path.empty()) form_.lblDbType = ConnectDuFichier(path, form_.lblDbType);
  form_.lblFile = path;
  MapGeo();
}

/// With the disc not in its drive every list is empty: what was set up stays.
GeoSuite GeoSetup::Accepte() {
  for (std::size_t i = 0; i < GeoRequiredCount; ++i) {
    if (!form_.cmb[i].Texte().empty()) continue;
    Bip(c_.state, c_.io);
    return {.focus = static_cast<GeoList>(i)};
  }
  PrendReglages(c_.state, Releve());
  c_.state.GeoSort = form_.Option1 == 0 ? 0 : 1;
  c_.state.GeoCoordType = form_.Option2 == 0 ? GeoCoord::Ddmmss : GeoCoord::Degres;
  if (Majuscules(c_.state.GeoTable) == normalisedTable) {
    c_.state.EllipsoideReglage = ellipsoidOfNormalised;
    ChoisitEllipsoide(c_.state.Catalogue, c_.state.Catalogue.DatumWgs84);
  }
  return {.ferme = true};
}

void GeoSetup::cmdChangeDatum_Click() {
  ExecuteCommande(c_.state, c_.io, {}, [&] {
    const std::string code = dialogs_.MontreDatums(CodeDuLabel(form_.lblDatum));
    const DatumChoisi chosen = ChoisitDatum(c_.state, c_.io, form_.lblDatum, code);
    if (!chosen.permis) return;
    form_.lblDatum = chosen.label;
    c_.state.GeoDatum = chosen.label;
  });
}

SetupFile GeoSetup::Releve() const {
  SetupFile setup{.File = form_.lblFile, .DbType = form_.lblDbType, .Datum = form_.lblDatum};
  std::ranges::transform(form_.cmb, setup.Noms.begin(), &GeoChoices::Texte);
  setup.Option1 = {form_.Option1 == 0, form_.Option1 == 1};
  setup.Option2 = {form_.Option2 == 0, form_.Option2 == 1};
  return setup;
}

}  // namespace talpena
