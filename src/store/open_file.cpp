#include "store/open_file.h"

#include <optional>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "platform/commands.h"
#include "store/deg_reader.h"
#include "store/edition.h"
#include "store/file_commands.h"
#include "store/recent_files.h"
#include "store/save_file.h"

namespace talpena {
namespace {

/// The file whose rows are on show, while another one is about to be read.
struct OpenFile {
  FileOnDisk fichier;
  std::string titreFenetre;
};

/// Makes a path that is about to be read the open file; gives the one before it.
OpenFile ChangeNomFichier(Document& document, const std::string& path) {
  OpenFile before{document.Fichier, document.Montre().titreFenetre};
  document.Fichier.NomFichier = path;
  document.Fichier.EmpreinteFichier.reset();
  document.Fichier.LignesHorsFichier = false;
  return before;
}

/// Reads `source` as the file `path`. False when the rows on show have stayed.
bool Charge(CommandContext c, const std::string& path, const std::string& source) {
  const OpenFile before = ChangeNomFichier(c.document(), path);
  const LoadOutcome outcome = LitDeg(c, source, MergeMode::Replace);
  if (outcome == LoadOutcome::Loaded || outcome == LoadOutcome::Failed) return true;
  c.document().Fichier = before.fichier;
  c.document().ChangeTitreFenetre(before.titreFenetre);
  return false;
}

/// What is left of a file that is not there, and how that is told.
struct Remains {
  std::string path;
  int question = 0;
};

std::optional<Remains> ChercheRestes(CommandContext c, const std::string& path) {
  const std::vector<LeftOver> restes = c.io.files.Restes(path);
  if (!restes.empty() && restes.front().entier)
    return Remains{restes.front().path, MsgId::NouveauReste};
  const std::string backup = CheminSecours(path);
  if (backup != path && c.io.files.Existe(backup)) return Remains{backup, MsgId::BakReste};
  if (restes.empty()) return std::nullopt;
  return Remains{restes.front().path, MsgId::EcritReste};
}

bool DemandeSiAbsent(CommandContext c, int question, const std::string& named) {
  Bip(c.state, c.io);
  const std::string text = Texte(c.state.Langue, question) + "\n" + named;
  return c.io.dialogues.Demande({.text = "File not found\n\n" + text,
                                 .icon = Icon::Stop,
                                 .buttons = Buttons::YesNo}) == Answer::Yes;
}

/// The rows of what remains, as rows of the file that is gone: the next save makes it anew.
void OuvreRestes(CommandContext c, const std::string& path, const Remains& remains) {
  const auto recent = c.state.LastFiles;
  if (!Charge(c, path, remains.path)) return;
  c.state.LastFiles = recent;
  MajLastFiles(c.state, path);
  FileOnDisk& fichier = c.document().Fichier;
  fichier.EmpreinteFichier.reset();
  fichier.FichierIncomplet = path;
  c.document().ChangeTitreFenetre("Talpena - " + path);
  Edition edition(c.document(), "Open");
  edition.MarqueModifie();
  edition.Valide();
}

void TraiteAbsent(CommandContext c, const std::string& path, PathFrom from) {
  const std::optional<Remains> remains = ChercheRestes(c, path);
  if (remains && DemandeSiAbsent(c, remains->question, remains->path)) {
    OuvreRestes(c, path, *remains);
  } else if (from == PathFrom::RecentFiles) {
    if (DemandeSiAbsent(c, MsgId::RetireRecent, path)) RetireDernierFichier(c.state, path);
  } else if (!remains) {
    LitDeg(c, path, MergeMode::Replace);  // says that there is none
  }
}

}  // namespace

void OuvreDeg(CommandContext c, const std::string& path, PathFrom from) {
  if (c.io.files.Existe(path)) {
    c.io.files.SupprimeRestes(path);
    Charge(c, path, path);
  } else {
    TraiteAbsent(c, path, from);
  }
  c.document().ActiveMenus();
}

}  // namespace talpena
