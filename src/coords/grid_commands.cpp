#include "coords/grid_commands.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "common/msg_id.h"
#include "common/paths.h"
#include "common/string_table.h"
#include "coords/datum.h"
#include "coords/mif_files.h"
#include "coords/special_datums.h"
#include "platform/busy.h"
#include "platform/commands.h"

namespace talpena {
namespace {

void Annonce(const CoordState& state, Platform& io, const std::string& text) {
  Bip(state, io);
  io.dialogues.Demande({.text = text});
}

/// Index of a datum; 0 when it is absent, which the user has been told.
std::int16_t DatumPresent(const CoordState& state, Platform& io, std::string_view code) {
  const std::int16_t index = ChercheDatum(state.Catalogue, code);
  if (index == 0) DitDatumAbsent(state, io, code);
  return index;
}

std::optional<IfblDatums> TrouveDatums(const CoordState& state, Platform& io) {
  const std::int16_t bel72 = DatumPresent(state, io, CodeSpecial(SystemDatum::Bel72));
  if (bel72 == 0) return std::nullopt;
  const std::int16_t eurM = DatumPresent(state, io, CodeSpecial(SystemDatum::EurM));
  if (eurM == 0) return std::nullopt;
  return IfblDatums{state.Catalogue, bel72, eurM};
}

/// The folder to write to, with a separator behind it; Cancel is thrown.
/// @param question  id of the text that says what is written there
std::string ChoisitSortie(const CoordState& state, Platform& io, int question) {
  return AvecSeparateur(io.dialogues.ChoisitDossier(Texte(state.Langue, question), ""));
}

}  // namespace

void mnuGrid_Click(CoordState& state, Platform& io) {
  const auto datums = TrouveDatums(state, io);
  if (!datums) return;
  const auto file = io.files.Cree(ChoisitSortie(state, io, MsgId::DossierGrille) + "IFBL.PRN");
  EcritPrnGrille(*file, *datums);
  file->Remplace();
  Annonce(state, io, "Terminé");
}

void CreationIFBLGrid(CoordState& state, Platform& io) {
  const auto datums = TrouveDatums(state, io);
  if (!datums) return;
  const auto file = io.files.Cree(ChoisitSortie(state, io, MsgId::DossierMailles) + "ifbl.prn");
  EcritPrnMailles(*file, *datums);
  file->Remplace();
  Annonce(state, io, "traitement terminé");
}

void CreationIFBLGridPolygon(CoordState& state, Platform& io) {
  const std::string folder = ChoisitSortie(state, io, MsgId::DossierCarres);
  std::vector<std::unique_ptr<OutputFile>> files;
  const auto open = [&](const IfblPolygons& p, const char* extension) -> OutputFile& {
    files.push_back(io.files.Cree(folder + std::string(p.name) + extension));
    return *files.back();
  };
  for (const IfblPolygons& polygons : PairesDeFichiers()) {
    EcritMif(open(polygons, ".mif"), polygons);
    EcritMid(open(polygons, ".mid"), polygons);
  }
  for (const auto& file : files) file->Remplace();
  Annonce(state, io, "traitement terminé");
}

void CreationPrnNational(Platform& io, WaitView& attente, Grille grid,
                         const DessinePoint& dessine) {
  const std::string name = io.dialogues.EnregistreFichier(
      {.title = grid == Grille::British ? "File Name for the PRN British National Grid"
                                        : "File Name for the PRN Irish TM Grid",
       .filter = "Fichiers PRN (*.prn)|*.prn|Tous les fichiers (*.*)|*.*",
       .confirmReplace = true});
  if (name.empty()) return;
  const Busy busy(attente);
  const auto file = io.files.Cree(name);
  EcritPrnNational(*file, grid, dessine);
  file->Remplace();
}

}  // namespace talpena
