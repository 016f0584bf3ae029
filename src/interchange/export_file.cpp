#include "interchange/export_file.h"

#include <algorithm>
#include <utility>

#include "common/msg_id.h"
#include "common/msg_id_export.h"
#include "common/paths.h"
#include "common/string_table.h"
#include "platform/commands.h"
#include "store/overwrite.h"

namespace talpena {
namespace {

/// Paths, one below the other.
std::string Liste(const std::vector<std::string>& paths) {
  std::string list;
  for (const std::string& path : paths) list += (list.empty() ? "" : "\n") + path;
  return list;
}

Answer DemandeRemplacement(CommandContext c, const std::vector<std::string>& standing) {
  Bip(c.state, c.io);
  return c.io.dialogues.Demande({.text = Texte(c.state.Langue, MsgId::RemplaceFichier),
                                 .icon = Icon::Exclamation,
                                 .buttons = Buttons::YesNoCancel,
                                 .defaultButton = Answer::No,
                                 .detail = Liste(standing)});
}

/// The rows on show would be lost with their file: it may not be replaced. Told where it is.
bool EstOuvert(CommandContext c, const std::string& path) {
  const std::string& open = c.document().Fichier.NomFichier;
  if (open.empty() || !c.io.files.MemeFichier(path, open)) return false;
  Bip(c.state, c.io);
  c.io.dialogues.Demande(
      {.text = Texte(c.state.Langue, MsgId::ExportSurOuvert), .icon = Icon::Exclamation});
  return true;
}

void DitFichiers(CommandContext c, int text, const std::vector<std::string>& paths) {
  if (paths.empty()) return;
  Bip(c.state, c.io);
  c.io.dialogues.Demande(
      {.text = Texte(c.state.Langue, text), .icon = Icon::Exclamation, .detail = Liste(paths)});
}

}  // namespace

void AcheveExports(CommandContext c, const std::string& path) {
  std::vector<std::string> former, fresh;
  for (const PlacedFile& file : c.io.files.AcheveEchanges(path)) {
    (file.nouveau ? fresh : former).push_back(file.path);
  }
  DitFichiers(c, MsgId::AnciensRendus, former);
  DitFichiers(c, MsgId::NouveauxPlaces, fresh);
}

std::string DemandeFichierExport(CommandContext c, std::string_view filter,
                                 const FormerFiles& former) {
  std::string folder = DossierDe(c.state.FichierExporte);
  if (folder.empty()) folder = DossierDe(c.document().Fichier.NomFichier);
  for (;;) {
    std::string path =
        c.io.dialogues.EnregistreFichier({.filter = std::string(filter), .folder = folder});
    if (path.empty()) return path;
    AcheveExports(c, path);
    const std::vector<std::string> standing = former(path);
    if (standing.empty()) return path;
    folder = DossierDe(path);
    const auto open = [&](const std::string& file) { return EstOuvert(c, file); };
    if (std::any_of(standing.begin(), standing.end(), open)) continue;
    const Answer answer = DemandeRemplacement(c, standing);
    if (answer == Answer::Cancel) return {};
    const auto free = [&](const std::string& file) { return PeutEcraser(c, file); };
    if (answer == Answer::Yes && std::all_of(standing.begin(), standing.end(), free)) return path;
  }
}

int ConseilDuReste(CommandContext c, const std::string& path,
                   const std::optional<FileStamp>& former) {
  if (!c.io.files.Existe(path)) return former ? 0 : MsgId::ExportSansFichier;
  return c.io.files.Empreinte(path) == former ? MsgId::AncienFichierReste : 0;
}

}  // namespace talpena
