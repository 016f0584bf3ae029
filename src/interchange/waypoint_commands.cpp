#include "interchange/waypoint_commands.h"

#include <optional>
#include <utility>
#include <vector>

#include "common/msg_id_import.h"
#include "common/paths.h"
#include "common/string_table.h"
#include "common/talpena_error.h"
#include "interchange/import_end.h"
#include "interchange/imported_lists.h"
#include "interchange/wpt_reader.h"
#include "platform/commands.h"

namespace talpena {
namespace {

void DitArret(const SharedState& state, Platform& io, const std::string& text,
              Icon icon = Icon::Stop) {
  Bip(state, io);
  io.dialogues.Demande({.text = text, .icon = icon});
}

/// Looks where receivers' files were last found, else beside the open distribution. "" when nothing
/// was chosen.
std::string DemandeFichier(ImportContext c, std::string filter) {
  const std::string& last = c.interchange.DossierPoints;
  std::string path = c.io.dialogues.OuvreFichier(
      {.filter = std::move(filter),
       .folder = last.empty() ? DossierDe(c.document().Fichier.NomFichier) : last});
  if (!path.empty()) c.interchange.DossierPoints = DossierDe(path);
  return path;
}

/// Sentences behind the counts of the import in the status bar.
void Remarque(CommandContext c, const std::vector<std::string>& remarks) {
  std::string text = c.document().Montre().avis, between = ". ";
  for (const std::string& remark : remarks) {
    text += between + remark;
    between = " ";
  }
  c.document().DitResultat(text);
}

/// There is no rehearsal of such a file: what is wrong with it is told in a box too.
void RemarqueWpt(CommandContext c, const WptReader& reader) {
  const std::int16_t langue = c.state.Langue;
  std::vector<std::string> remarks = reader.Doutes().EnMots(langue);
  if (!reader.ADatum()) remarks.push_back(Texte(langue, MsgId::WptSansDatum));
  std::string told;
  for (const std::string& remark : remarks) told += (told.empty() ? "" : "\n") + remark;
  if (reader.ADesDates()) remarks.push_back(Texte(langue, MsgId::SiecleWpt));
  Remarque(c, remarks);
  if (!told.empty()) c.io.dialogues.Demande({.text = told, .icon = Icon::Information});
}

/// The file has come in before: its rows would be there twice. There is no window that tells it.
bool Renonce(ImportContext c, const std::optional<FileStamp>& file) {
  return EstDejaImportee(c.interchange, c.document(), file) &&
         c.io.dialogues.Demande({.text = Texte(c.state.Langue, MsgId::WptDejaImporte),
                                 .icon = Icon::Question,
                                 .buttons = Buttons::YesNo,
                                 .defaultButton = Answer::No}) != Answer::Yes;
}

void ImporteWpt(ImportContext c) {
  const std::string path =
      DemandeFichier(c, "Fichiers wpt (*.wpt)|*.wpt|Tous les fichiers (*.*)|*.*)");
  if (path.empty()) return;
  const auto file = c.io.files.Empreinte(path);
  if (Renonce(c, file)) return;
  WptReader reader(OuvreImport(c.io.files, path), c.state, c.document().Entete());
  if (!reader.LitEnTete()) {
    return DitArret(c.state, c.io,
                    "Les coordonnées doivent être exprimées en LAT LON DM.\n"
                    "Importation annulée.");
  }
  ImportedRows rows;
  const bool finished = ImporteTout(c, "Waypoint import", reader, rows);
  NoteListe(c.interchange, c.document(), file, rows.added);
  if (finished) RemarqueWpt(c, reader);
}

/// What was not asked for does not count as dropped.
MapSourceChoice Coches(MapSourceChoice choice) {
  std::erase_if(choice.items, [](const WaypointChoice& item) { return !item.checked; });
  return choice;
}

bool ImporteMapSource(CommandContext c, const MapSourceText& text, const MapSourceChoice& choice,
                      const objGraminImport& options, ImportedRows& rows) {
  if (options.AltitudeImport > 0 && !ChampAltitude(c.document().Entete())) {
    DitArret(c.state, c.io,
             "The altitude will not be imported since it is not used in the free fields");
  }
  MapSourceReader reader(text, Coches(choice), options, c.document().Entete());
  if (!ImporteTout(c, "MapSource import", reader, rows)) return false;
  Remarque(c, reader.Doutes().EnMots(c.state.Langue));
  return true;
}

}  // namespace

void ImportGarmin(ImportContext c) {
  ExecuteCommande(c.state, c.io, {}, [&] { ImporteWpt(c); });
}

void ImportMapSource(ImportContext c, std::int16_t type) {
  ExecuteCommande(c.state, c.io, {}, [&] {
    const std::string path = DemandeFichier(c, "Text file (*.txt)|*.txt|All files (*.*)|*.*");
    if (!path.empty()) c.dialogs.MontreImportGarmin(path, type);
  });
}

void mnuImportGarmin_Click(ImportContext c, int index) {
  if (index == 0) ImportMapSource(c, 0);
}

MapSourceText ChargeImportGarmin(const SharedState& state, Platform& io, const std::string& path,
                                 std::int16_t type, objGraminImport& options) {
  PoseOptionsDeChargement(options);
  MapSourceText text;
  if (type != 0) {
    DitArret(state, io, "This function is not yet abailable!", Icon::Information);
    return text;
  }
  text.file = io.files.Empreinte(path);
  ExecuteCommande(state, io, {}, [&] { RempliLV(io.files, path, text); });
  if (text.wrongType) DitArret(state, io, "Wrong file type!");
  return text;
}

MapSourceOutcome ImportMapSource(CommandContext c, InterchangeState& interchange,
                                 const MapSourceText& text, const MapSourceChoice& choice,
                                 const objGraminImport& options) {
  ImportedRows rows;
  bool finished = false;
  ExecuteCommande(c.state, c.io, {},
                  [&] { finished = ImporteMapSource(c, text, choice, options, rows); });
  NoteListe(interchange, c.document(), text.file, rows.added);
  return {finished, static_cast<std::int64_t>(rows.added.size())};
}

}  // namespace talpena
