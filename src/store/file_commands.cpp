#include "store/file_commands.h"

#include "common/msg_id.h"
#include "common/paths.h"
#include "common/string_table.h"
#include "common/text.h"
#include "platform/commands.h"
#include "store/deg_reader.h"
#include "store/deg_writer.h"
#include "store/filter.h"
#include "store/open_file.h"
#include "store/overwrite.h"
#include "store/recent_files.h"

namespace talpena {
namespace {

constexpr std::string_view openFilter = "Distribution (*.deg)|*.deg";

/// Runs a command's body under the common frame.
template <typename Body>
void Commande(CommandContext c, Body&& body) {
  ExecuteCommande(c.state, c.io, {}, std::forward<Body>(body));
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

void EcritLignes(CommandContext c, const std::string& path, SavePlan plan = {}) {
  const bool cachees = CacheDesLignes(CompteLignes(c.document()));
  plan.memeProtege = c.io.files.EstProtege(path);  // the user was asked
  EcritDeg(c, path, WriteMode::Rows, plan);
  if (!c.document().FichierModifie()) c.document().Fichier.LignesHorsFichier = cachees;
}

/// Writes the rows over the open file, without a backup.
void EcritSurPlace(CommandContext c) {
  const std::string path = c.document().Fichier.NomFichier;
  if (!AccepteLignesCachees(c) || !PeutEcraser(c, path)) return;
  const bool missing = c.document().Fichier.FichierIncomplet == path;
  EcritLignes(c, path, {.modele = missing ? CheminBak(path) : std::string()});
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

/// What is about a path, with the way round it below.
[[noreturn]] void LanceEchecRenomme(int number, const std::string& what, const std::string& path) {
  throw TalpenaError(number, what + path, {.about = {path}, .hint = MsgId::SauveSousMarche});
}

/// Raises what will keep the open file from becoming its backup, before anything is written.
void VerifieBak(CommandContext c, const std::string& backup) {
  const std::string& path = c.document().Fichier.NomFichier;
  if (path.find('.') < DossierDe(path).size()) {
    LanceEchecRenomme(ErrorNumber::PathFileAccess, "Path/File access error: ", backup);
  }
  if (!c.io.files.Existe(path)) {
    LanceEchecRenomme(ErrorNumber::FileNotFound, "File not found: ", path);
  }
  if (c.io.files.MemeFichier(path, backup)) {
    LanceEchecRenomme(ErrorNumber::FileExists, "File already exists: ", backup);
  }
  c.io.files.VerifieGarde(path, backup);
}

/// Nothing is written of a table without rows: the file goes to its backup, and that is all.
void MetDeCote(CommandContext c, const std::string& path, const std::string& backup) {
  if (c.io.files.Existe(backup)) c.io.files.Supprime(backup);
  c.io.files.Renomme(path, backup);
  c.document().Fichier.FichierIncomplet = path;
}

void Enregistre(CommandContext c) {
  const std::string path = c.document().Fichier.NomFichier;
  if (!AccepteLignesCachees(c)) return;
  const std::string backup = CheminBak(path);
  // Where a former save broke off, the backup holds the last whole state and stays.
  const bool keeps = c.document().Fichier.FichierIncomplet != path;
  if (keeps) VerifieBak(c, backup);
  if (!PeutEcraser(c, path)) return;
  if (CompteLignes(c.document()).montrees > 0) {
    EcritLignes(c, path, {.bak = backup, .modele = backup});
  } else if (keeps) {
    MetDeCote(c, path, backup);
  }
}

void EnregistreAutomatiquement(CommandContext c) {
  if (!ResteASauver(c.document())) return;
  if (c.document().Fichier.NomFichier.empty()) {
    EnregistreSous(c);
  } else {
    EcritSurPlace(c);
  }
}

/// Nobody is asked by the automatic save: it waits, and comes with the first tick behind what
/// stands in its way. Rows that a filter hides must not be left out, and a file that the user has
/// to be asked about must not be replaced, which the status bar says.
bool SauvegardeAttend(CommandContext c) {
  if (CacheDesLignes(CompteLignes(c.document()))) return true;
  if (!ResteASauver(c.document()) || !FautDemander(c, c.document().Fichier.NomFichier))
    return false;
  c.document().ChangeAvis(Texte(c.state.Langue, MsgId::AutoSaveAttend));
  return true;
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
    c.io.settings.Ecrit("TALPENA", "Paths", "LastDeg", DossierDe(path));
    OuvreDeg(c, path);
    c.document().CacheLbl1();
  });
}

void RouvreEnLf(CommandContext c) {
  Commande(c, [&] {
    if (!c.document().Fichier.FinsLf || CheckSauvegarde(c)) return;
    const std::string path = c.document().Fichier.NomFichier;
    LitDeg(c, path, MergeMode::Replace, DegLines::LineEnd::CrOrLf);
    c.document().ActiveMenus();
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
                                  .buttons = Buttons::YesNo,
                                  .detail = path});
      if (answer != Answer::Yes) return;
    }
    if (!PeutEcraser(c, path)) return;
    EcritDeg(c, path, WriteMode::Grouped, {.memeProtege = c.io.files.EstProtege(path)});
  });
}

void MnuLastFile_Click(CommandContext c, int index) {
  Commande(c, [&] {
    if (CheckSauvegarde(c)) return;
    const std::string& entry = c.state.LastFiles.at(static_cast<std::size_t>(index));
    const std::string caption = CheminDeLegende(LegendeDernierFichier(index, entry));
    if (caption.empty()) return;
    OuvreDeg(c, TrouveChemin(caption).value_or(caption), PathFrom::RecentFiles);
  });
}

void Timer1_Timer(CommandContext c) {
  if (!c.state.AutoSave) return;
  // A 16-bit counter that wraps: an interval set below it comes round again.
  const auto next =
      static_cast<std::int16_t>(static_cast<std::uint16_t>(c.state.CompteurTimer) + 1);
  if (next == c.state.SaveInterval && SauvegardeAttend(c)) return;
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
