#include "interchange/waypoint_commands.h"

#include "common/msg_id_import.h"
#include "common/string_table.h"
#include "common/talpena_error.h"
#include "interchange/import_end.h"
#include "interchange/wpt_reader.h"
#include "platform/commands.h"

namespace talpena {
namespace {

void DitArret(const SharedState& state, Platform& io, const std::string& text,
              Icon icon = Icon::Stop) {
  Bip(state, io);
  io.dialogues.Demande({.text = text, .icon = icon});
}

void ImporteWpt(CommandContext c) {
  const std::string path = c.io.dialogues.OuvreFichier(
      {.filter = "Fichiers wpt (*.wpt)|*.wpt|Tous les fichiers (*.*)|*.*)"});
  if (path.empty()) return;
  WptReader reader(OuvreImport(c.io.files, path), c.state, c.document().Entete());
  if (!reader.LitEnTete()) {
    return DitArret(c.state, c.io,
                    "Les coordonnées doivent être exprimées en LAT LON DM.\n"
                    "Importation annulée.");
  }
  if (ImporteTout(c, "Waypoint import", reader) && reader.ADesDates()) {
    c.document().DitResultat(c.document().Montre().avis + ". " +
                             Texte(c.state.Langue, MsgId::SiecleWpt));
  }
}

/// What was not asked for does not count as dropped.
MapSourceChoice Coches(MapSourceChoice choice) {
  std::erase_if(choice.items, [](const WaypointChoice& item) { return !item.checked; });
  return choice;
}

void ImporteMapSource(CommandContext c, const MapSourceText& text, const MapSourceChoice& choice,
                      const objGraminImport& options) {
  if (options.AltitudeImport > 0 && !ChampAltitude(c.document().Entete())) {
    DitArret(c.state, c.io,
             "The altitude will not be imported since it is not used in the free fields");
  }
  MapSourceReader reader(text, Coches(choice), options, c.document().Entete());
  ImporteTout(c, "MapSource import", reader);
}

}  // namespace

void ImportGarmin(CommandContext c) {
  ExecuteCommande(c.state, c.io, {}, [&] { ImporteWpt(c); });
}

void ImportMapSource(ImportContext c, std::int16_t type) {
  ExecuteCommande(c.state, c.io, {}, [&] {
    const std::string path =
        c.io.dialogues.OuvreFichier({.filter = "Text file (*.txt)|*.txt|All files (*.*)|*.*"});
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
  ExecuteCommande(state, io, {}, [&] { RempliLV(io.files, path, text); });
  if (text.wrongType) DitArret(state, io, "Wrong file type!");
  return text;
}

void ImportMapSource(CommandContext c, const MapSourceText& text, const MapSourceChoice& choice,
                     const objGraminImport& options) {
  ExecuteCommande(c.state, c.io, {}, [&] { ImporteMapSource(c, text, choice, options); });
}

}  // namespace talpena
