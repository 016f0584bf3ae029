#include "store/file_commands.h"

#include "common/msg_id.h"
#include "common/paths.h"
#include "common/string_table.h"
#include "common/text.h"
#include "platform/commands.h"
#include "store/deg_reader.h"
#include "store/deg_writer.h"
#include "store/filter.h"
#include "store/recent_files.h"

namespace talpena {
namespace {

constexpr std::string_view openFilter = "Distribution (*.deg)|*.deg";

/// Runs a command's body under the common frame.
template <typename Body>
void Commande(CommandContext c, Body&& body) {
  ExecuteCommande(c.state, c.io, {}, std::forward<Body>(body));
}

/// What speaks against writing over the open file: another program changed it, or only part of it
/// could be read. 0 when nothing does.
int ObjectionARemplacer(CommandContext c, const std::string& path) {
  if (path != c.document().Fichier.NomFichier) return 0;
  const auto now = c.io.files.Empreinte(path);
  if (!now) return 0;
  if (c.document().Fichier.LecturePartielle) return MsgId::FichierPartiel;
  const auto& then = c.document().Fichier.EmpreinteFichier;
  const bool changed = then && now != then;
  return changed ? MsgId::FichierChange : 0;
}

/// False when something speaks against replacing the file and the user does not want it replaced.
bool PeutEcraser(CommandContext c, const std::string& path) {
  const int objection = ObjectionARemplacer(c, path);
  if (objection == 0) return true;
  Bip(c.state, c.io);
  return c.io.dialogues.Demande({.text = Texte(c.state.Langue, objection),
                                 .icon = Icon::Exclamation,
                                 .buttons = Buttons::YesNo}) == Answer::Yes;
}

bool CacheDesLignes(NombresDeLignes lignes) { return lignes.montrees < lignes.toutes; }

/// False when a filter hides rows, which a save leaves out, and the user does not want that.
bool AccepteLignesCachees(CommandContext c) {
  const NombresDeLignes lignes = CompteLignes(c.document());
  if (!CacheDesLignes(lignes)) return true;
  Bip(c.state, c.io);
  if (lignes.montrees == 0) {  // a save would move the file away and write none
    c.io.dialogues.Demande(
        {.text = Texte(c.state.Langue, MsgId::FiltreSansLigne), .icon = Icon::Exclamation});
    return false;
  }
  const std::string text = Texte(c.state.Langue, MsgId::SauveFiltre);
  return c.io.dialogues.Demande({.text = AvecNombres(c.state.Langue, text, lignes),
                                 .icon = Icon::Exclamation,
                                 .buttons = Buttons::YesNo,
                                 .defaultButton = Answer::No}) == Answer::Yes;
}

/// Rows that are in no file yet, or no longer in this one: a save under a filter left them out,
/// and the filter is gone.
bool ResteASauver(const Document& document) {
  return document.FichierModifie() ||
         (document.Fichier.LignesHorsFichier && !document.FiltreActif());
}

void EcritLignes(CommandContext c, const std::string& path, const std::string& modele = {}) {
  const bool cachees = CacheDesLignes(CompteLignes(c.document()));
  EcritDeg(c, path, WriteMode::Rows, modele);
  if (!c.document().FichierModifie()) c.document().Fichier.LignesHorsFichier = cachees;
}

/// Writes the rows over the open file, without a backup.
void EcritSurPlace(CommandContext c) {
  const std::string path = c.document().Fichier.NomFichier;
  if (!AccepteLignesCachees(c) || !PeutEcraser(c, path)) return;
  const bool missing = c.document().Fichier.FichierIncomplet == path;
  EcritLignes(c, path, missing ? CheminBak(path) : "");
}

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

void EnregistreSous(CommandContext c) {
  if (!AccepteLignesCachees(c)) return;
  const std::string path =
      c.io.dialogues.EnregistreFichier({.filter = "Distribution files (*.deg)|*.deg",
                                        .name = c.document().Fichier.NomFichier,
                                        .confirmReplace = true});
  if (path.empty() || !PeutEcraser(c, path)) return;
  EcritLignes(c, path);
  FileOnDisk& fichier = c.document().Fichier;
  fichier.NomFichier = path;
  fichier.EmpreinteFichier = c.io.files.Empreinte(path);
  fichier.LecturePartielle = false;
  c.document().ChangeTitreFenetre("Talpena - " + path);
}

/// The same file by two names.
bool MemeFichier(FileSystem& files, const std::string& a, const std::string& b) {
  const auto stamp = files.Empreinte(a);
  return a == b || (stamp && stamp == files.Empreinte(b));
}

/// What is about a path, with the way round it below.
[[noreturn]] void LanceEchecRenomme(int number, const std::string& what, const std::string& path) {
  throw TalpenaError(number, what + path, {.about = {path}, .hint = MsgId::SauveSousMarche});
}

/// Moves the open file to its backup. What would make the rename fail is raised before anything
/// is deleted.
void GardeBak(CommandContext c, const std::string& backup) {
  const std::string& path = c.document().Fichier.NomFichier;
  if (path.find('.') < DossierDe(path).size()) {
    LanceEchecRenomme(ErrorNumber::PathFileAccess, "Path/File access error: ", backup);
  }
  if (!c.io.files.Existe(path)) {
    LanceEchecRenomme(ErrorNumber::FileNotFound, "File not found: ", path);
  }
  if (MemeFichier(c.io.files, path, backup)) {
    LanceEchecRenomme(ErrorNumber::FileExists, "File already exists: ", backup);
  }
  if (c.io.files.Existe(backup)) c.io.files.Supprime(backup);
  c.io.files.Renomme(path, backup);
}

void Enregistre(CommandContext c) {
  const std::string path = c.document().Fichier.NomFichier;
  if (!AccepteLignesCachees(c) || !PeutEcraser(c, path)) return;
  const std::string backup = CheminBak(path);
  // Where a former save broke off, the backup holds the last whole state and stays.
  if (c.document().Fichier.FichierIncomplet != path) GardeBak(c, backup);
  EcritLignes(c, path, backup);
  if (!c.io.files.Existe(path)) c.document().Fichier.FichierIncomplet = path;
}

/// Reads the file in place of `before`, whose rows stay, with their name, where it cannot be
/// opened.
void Charge(CommandContext c, const std::string& path, const OpenFile& before) {
  if (LitDeg(c, path, MergeMode::Replace) == LoadOutcome::NotOpened) {
    c.document().Fichier = before.fichier;
    c.document().ChangeTitreFenetre(before.titreFenetre);
  }
  c.document().ActiveMenus();
}

void EnregistreAutomatiquement(CommandContext c) {
  if (!ResteASauver(c.document())) return;
  if (c.document().Fichier.NomFichier.empty()) {
    EnregistreSous(c);
  } else {
    EcritSurPlace(c);
  }
}

}  // namespace

bool CheckSauvegarde(CommandContext c) {
  if (!ResteASauver(c.document())) return false;
  Bip(c.state, c.io);
  const Answer answer = c.io.dialogues.Demande({.text = Texte(c.state.Langue, MsgId::SauveFichier),
                                                .icon = Icon::Exclamation,
                                                .buttons = Buttons::YesNoCancel});
  if (answer == Answer::Cancel) return true;
  if (answer == Answer::No) return false;
  EnregistreAutomatiquement(c);
  // An empty table is never written and stays modified; there is nothing to lose in it.
  return ResteASauver(c.document()) && CompteLignes(c.document()).toutes > 0;
}

void MnuNouveau_Click(CommandContext c) {
  Commande(c, [&] { CreationNouveau(c, 0); });
}

void MnuOuvrir_Click(CommandContext c) {
  Commande(c, [&] {
    if (CheckSauvegarde(c)) return;
    const std::string folder = c.io.settings.Lit("TALPENA", "Paths", "LastDeg", c.state.AppDir);
    const std::string path =
        c.io.dialogues.OuvreFichier({.filter = std::string(openFilter), .folder = folder});
    if (path.empty()) return;
    const OpenFile before = ChangeNomFichier(c.document(), path);
    c.io.settings.Ecrit("TALPENA", "Paths", "LastDeg", DossierDe(path));
    Charge(c, path, before);
    c.document().CacheLbl1();
  });
}

void MnuEnregistrer_Click(CommandContext c) {
  Commande(c, [&] {
    if (!c.document().Fichier.NomFichier.empty()) {
      Enregistre(c);
      return;
    }
    MnuEnrSous_Click(c);
    c.vue.PlaceFocusGrille();
  });
}

void MnuEnrSous_Click(CommandContext c) {
  Commande(c, [&] { EnregistreSous(c); });
}

void MnuFusionner_Click(CommandContext c) {
  Commande(c, [&] {
    const std::string path = c.io.dialogues.OuvreFichier({.filter = std::string(openFilter)});
    if (path.empty()) return;
    LitDeg(c, path, MergeMode::Merge);
    c.document().ActiveMenus();
  });
}

void MnuGrouper_Click(CommandContext c) {
  Commande(c, [&] {
    const std::string path =
        c.io.dialogues.OuvreFichier({.filter = "Fichiers distribution (*.deg)|*.deg"});
    if (path.empty()) return;
    if (c.io.files.Existe(path)) {
      Bip(c.state, c.io);
      const Answer answer =
          c.io.dialogues.Demande({.text = Texte(c.state.Langue, MsgId::RemplaceFichier),
                                  .icon = Icon::Question,
                                  .buttons = Buttons::YesNo});
      if (answer != Answer::Yes) return;
    }
    if (PeutEcraser(c, path)) EcritDeg(c, path, WriteMode::Grouped);
  });
}

void MnuLastFile_Click(CommandContext c, int index) {
  Commande(c, [&] {
    if (CheckSauvegarde(c)) return;
    const std::string& entry = c.state.LastFiles.at(static_cast<std::size_t>(index));
    const std::string caption = CheminDeLegende(LegendeDernierFichier(index, entry));
    if (caption.empty()) return;
    const std::string path = TrouveChemin(caption).value_or(caption);
    const OpenFile before = ChangeNomFichier(c.document(), path);
    c.document().ChangeTitreFenetre("Talpena - " + path);
    Charge(c, path, before);
  });
}

void Timer1_Timer(CommandContext c) {
  if (!c.state.AutoSave) return;
  // A 16-bit counter that wraps: an interval set below it comes round again.
  const auto next =
      static_cast<std::int16_t>(static_cast<std::uint16_t>(c.state.CompteurTimer) + 1);
  // Nobody is asked, so rows that a filter hides must not be left out: the save waits, and comes
  // with the first tick behind the filter.
  if (next == c.state.SaveInterval && CacheDesLignes(CompteLignes(c.document()))) return;
  c.state.CompteurTimer = next;
  if (next != c.state.SaveInterval) return;
  c.state.CompteurTimer = 0;
  Commande(c, [&] { EnregistreAutomatiquement(c); });
}

std::string CheminBak(std::string_view path) {
  const std::size_t dot = path.find('.');
  const std::size_t kept = dot == std::string_view::npos ? 0 : dot + 1;
  return std::string(path.substr(0, kept)) + "BAK";
}

}  // namespace talpena
