// The set-ups that frmGeoSetup saves and opens.
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "common/msg_id.h"
#include "common/msg_id_gazetteer.h"
#include "common/paths.h"
#include "common/string_table.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "gazetteer/geo_settings.h"
#include "gazetteer/geo_setup.h"
#include "platform/commands.h"
#include "platform/import_file.h"

namespace talpena {
namespace {

constexpr std::string_view filterOfSetups = "*.cfg|*.cfg|*.*|*.*";
constexpr std::string_view filterOfFiles = "*.*|*.*|*.mdb|*.mdb|*.dbf|*.dbf";

/// The file or folder that a path from another computer means on this one; else it as it stands.
std::string Retrouve(FileSystem& files, const std::string& path, const std::string& setupFile) {
  if (files.Existe(path)) return path;
  if (const auto found = TrouveChemin(path)) return *found;
  const std::string beside = DossierDe(setupFile) + NomDe(path);
  return files.Existe(beside) ? beside : TrouveChemin(beside).value_or(path);
}

}  // namespace

void GeoSetup::Sauve() {
  const std::string path = c_.io.dialogues.EnregistreFichier(
      {.filter = std::string(filterOfSetups), .folder = c_.state.AppDir});
  if (path.empty()) return;
  if (c_.io.files.Existe(path)) {
    Bip(c_.state, c_.io);
    const Answer answer =
        c_.io.dialogues.Demande({.text = Texte(c_.state.Langue, MsgId::RemplaceFichier),
                                 .icon = Icon::Question,
                                 .buttons = Buttons::YesNo,
                                 .defaultButton = Answer::No});
    if (answer != Answer::Yes) return;
  }
  const SetupFile setup = Releve();
  const auto file = c_.io.files.Cree(path);
  file->Ecrit(LignesSetup(setup));
  file->Remplace();
  if (const auto lost = SetupPerdu(setup)) {
    c_.io.dialogues.Demande(
        {.text = Remplace(Texte(c_.state.Langue, MsgId::SetupPerdu), "%1", *lost),
         .icon = Icon::Exclamation});
  }
}

void GeoSetup::OuvreSetup() {
  const std::string path = c_.io.dialogues.OuvreFichier(
      {.filter = std::string(filterOfSetups), .folder = c_.state.AppDir});
  if (path.empty()) return;
  SetupRead read = LitSetup(OuvreImport(c_.io.files, path, Encodage::Cp1252));
  if (read.Donne(SetupValue::File) && !TrouveFichier(read.setup, path)) return;
  Prend(read);
  MapGeo();
  if (read.echec) throw *read.echec;
}

/// Asks for an Access file that is gone; false when the user gives up.
bool GeoSetup::TrouveFichier(SetupFile& setup, const std::string& path) {
  setup.File = Retrouve(c_.io.files, setup.File, path);
  while (setup.DbType.empty() && !c_.io.files.Existe(setup.File)) {
    Bip(c_.state, c_.io);
    c_.io.dialogues.Demande({.text = setup.File + " " + Texte(c_.state.Langue, MsgId::Introuvable),
                             .icon = Icon::Stop});
    const std::string chosen = c_.io.dialogues.OuvreFichier(
        {.filter = std::string(filterOfFiles), .name = Minuscules(NomDe(setup.File))});
    if (chosen.empty()) return false;
    setup.DbType = ConnectDuFichier(chosen, setup.DbType);
    setup.File = chosen;
  }
  return true;
}

/// At once, whatever becomes of the dialog.
void GeoSetup::Prend(const SetupRead& read) {
  const SetupFile& setup = read.setup;
  if (read.Donne(SetupValue::File)) form_.lblFile = c_.state.GeoFile = setup.File;
  if (read.Donne(SetupValue::DbType)) form_.lblDbType = c_.state.GeoDbType = setup.DbType;
  if (read.Donne(SetupValue::Datum)) form_.lblDatum = c_.state.GeoDatum = setup.Datum;
  for (std::size_t i = 0; i < GeoListCount; ++i) {
    if (!read.Donne(SetupValue::Nom + i)) return;
    const bool absent = read.ancien && i >= static_cast<std::size_t>(GeoList::CountryName);
    if (!absent) NomGeo(c_.state, static_cast<GeoList>(i)) = setup.Noms[i];
  }
  for (std::size_t i = 0; i < 2; ++i) {
    if (setup.Option1[i]) form_.Option1 = static_cast<int>(i);
    if (setup.Option2[i]) form_.Option2 = static_cast<int>(i);
  }
}

}  // namespace talpena
