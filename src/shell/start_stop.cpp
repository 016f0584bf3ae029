#include "shell/start_stop.h"

#include <array>
#include <string>
#include <vector>

#include "common/error_words.h"
#include "common/msg_id.h"
#include "common/paths.h"
#include "common/string_table.h"
#include "common/text.h"
#include "coords/datum.h"
#include "interchange/export_file.h"
#include "platform/commands.h"
#include "store/file_commands.h"
#include "store/open_file.h"
#include "store/table.h"

namespace talpena {
namespace {

struct Load {
  ShellContext c;
  const std::string& commandLine;
};

void PrendDossier(ProcessState& state, const std::string& folder) {
  state.WorkingDir = folder.empty() ? std::string() : AvecSeparateur(RendNatif(folder));
  state.WorkingDbPath = state.WorkingDir + "talpena_tmp.mdb";
}

void ChoisitWorkingDir(Load& l) {
  PrendDossier(l.c.state, l.c.io.settings.Lit("Talpena", "Config", "WorkingDir",
                                              l.c.io.environment.DossierTemporaire()));
}

// Left by the run before, or by its crash; the rows in it are nobody's any more. What somebody else
// put there, or holds, stays.
void SupprimeBaseAncienne(Load& l) {
  const std::string& path = l.c.state.WorkingDbPath;
  if (!l.c.io.files.EstLibre(path)) {
    throw TalpenaError(ErrorNumber::PermissionDenied, "Permission denied: " + path,
                       {.about = {path}});
  }
  if (l.c.io.files.Existe(path)) l.c.io.files.Supprime(path);
}

void CreeBase(Load& l) {
  auto& database = l.c.document().WorkingDb;
  database = l.c.io.engine.CreateDatabase(l.c.state.WorkingDbPath, NewDatabase{});
  database->SuitTravail([&attente = l.c.attente] { return attente.Bat(); });
}

void CreeTable(Load& l) { CreateTable(l.c.document().Base()); }

/// Work that the user may give up while this lives, and what the wait window says of it.
class Abandonnable {
 public:
  Abandonnable(WaitView& attente, const std::string& text) : attente_(attente) {
    attente_.NommeTravail(text);
    attente_.PermetAnnulation(Annulation::Instruction);
  }
  Abandonnable(const Abandonnable&) = delete;
  Abandonnable& operator=(const Abandonnable&) = delete;
  ~Abandonnable() {
    attente_.PermetAnnulation(Annulation::Aucune);
    attente_.NommeTravail({});
  }

 private:
  WaitView& attente_;
};

// The catalogue may be an Access file of the user's own, and damaged.
void LitDatums(Load& l) {
  const Abandonnable reading(l.c.attente, Texte(l.c.state.Langue, MsgId::Ouverture) + "\n" +
                                              CheminDatums(l.c.state, l.c.io.settings));
  ChargeDatums(l.c.state, l.c.io);
}

void LitReglages(Load& l) {
  ChargeReglages(l.c.state, l.c.io, l.c.shell.TailleEcran());
  l.c.shell.AppliqueReglages();
}

void AppliqueLangue(ShellContext c) {
  c.shell.AppliqueLangue();
  c.state.FichierAide = CheminAide(c.state);
}

/// Where the files lie that were worked on last.
std::vector<std::string> DerniersDossiers(Load& l) {
  std::vector<std::string> paths{l.c.io.settings.Lit("TALPENA", "Paths", "LastDeg", {}),
                                 l.c.state.LastFiles[0]};
  std::erase(paths, std::string());
  return paths;
}

/// What a killed save left there.
void SupprimeRestes(Load& l) {
  for (const std::string& path : DerniersDossiers(l)) l.c.io.files.SupprimeRestes(path);
}

/// And a killed export.
void AcheveExportsTues(Load& l) {
  for (const std::string& path : DerniersDossiers(l)) AcheveExports(l.c.Commandes(), path);
}

void OuvreFichierNomme(Load& l) {
  if (l.commandLine.empty()) return;
  OuvreDeg(l.c.Commandes(), l.commandLine);
}

/// One statement of the load: what the handler executes again after failure 3028.
using Step = void (*)(Load&);

void SupprimeBaseSysteme(Platform& io) {
  io.files.Supprime(AvecSeparateur(io.environment.DossierTemporaire()) + "TALPENA.MDB");
}

/// Deleting a file that is not there is a failure too, so this cannot go round for ever.
void Execute(Step step, Load& l) {
  for (;;) {
    try {
      step(l);
      return;
    } catch (const TalpenaError& e) {
      if (e.number() != ErrorNumber::SystemDatabase) throw;
      SupprimeBaseSysteme(l.c.io);
    }
  }
}

void PrepareBase(Load& l) {
  for (const Step step : {SupprimeBaseAncienne, CreeBase, CreeTable}) Execute(step, l);
}

bool PrepareBasePrivee(Load& l) {
  try {
    PrendDossier(l.c.state, l.c.io.environment.DossierPrive());
    PrepareBase(l);
    return true;
  } catch (const TalpenaError&) {
    l.c.document().WorkingDb.reset();
    return false;
  }
}

/// A folder that cannot take the working database gives way to the user's private one, for this
/// run. When that is of no use either, the failure tells of the folder that was chosen.
void OuvreBase(Load& l) {
  const std::string chosen = l.c.state.WorkingDir;
  try {
    PrepareBase(l);
  } catch (const TalpenaError&) {
    l.c.document().WorkingDb.reset();
    if (!PrepareBasePrivee(l)) {
      PrendDossier(l.c.state, chosen);
      throw;
    }
    l.c.state.DossierRefuse = chosen.empty() ? "." : chosen;
  }
}

// clang-format off
constexpr std::array<Step, 23> steps = {
    [](Load& l) { l.c.attente.ChangeSablier(true); },
    [](Load& l) { l.c.shell.DesactiveMenus(); },
    [](Load& l) { l.c.state.DossierCartes = l.c.state.AppDir; },
    ChoisitWorkingDir,
    OuvreBase,
    [](Load& l) { l.c.shell.FondGrilleSysteme(); },
    LitDatums,
    LitReglages,
    [](Load& l) { AppliqueLangue(l.c); },
    [](Load& l) { l.c.shell.InitFenetres(); },
    [](Load& l) { l.c.shell.InitTDBgrid(); },
    [](Load& l) { l.c.shell.ColoreOptTri(); },
    [](Load& l) { l.c.shell.MontreFenetre(); },
    [](Load& l) { l.c.attente.TraiteMessages(); },
    [](Load& l) { l.c.document().OublieModifications(); },
    [](Load& l) { l.c.document().ChangeOrdre({}); },
    [](Load& l) { l.c.shell.ColoreFenetres(); },
    [](Load& l) { l.c.shell.FermeSplash(); },
    SupprimeRestes,
    OuvreFichierNomme,
    AcheveExportsTues,
    [](Load& l) { l.c.attente.ChangeSablier(false); },
    [](Load& l) { l.c.attente.TraiteMessages(); },
};
// clang-format on

void EnregistreEtTermine(ShellContext c) {
  c.attente.ChangeSablier(true);
  c.shell.ReleveReglages();
  // A store that refuses is told of and keeps nobody in the program.
  ExecuteCommande(c.state, c.io, {}, [&] { SauveReglages(c.state, c.io); });
  c.attente.ChangeSablier(false);
  c.shell.Termine();
}

}  // namespace

std::string LigneDeCommande(std::span<const char* const> arguments) {
  std::string line;
  for (std::size_t i = 1; i < arguments.size(); ++i) {
    if (i > 1) line += ' ';
    line += arguments[i];
  }
  return line;
}

std::optional<TalpenaError> ChargeForm1(ShellContext c, const std::string& commandLine) {
  Load load{c, commandLine};
  c.io.engine.SuitAttente([&attente = c.attente] { return attente.Bat(); });
  try {
    for (const Step step : steps) Execute(step, load);
  } catch (const CatalogueRefused&) {
    c.attente.ChangeSablier(false);
    c.shell.FermeSplash();
    c.shell.Termine();
  } catch (const TalpenaError& e) {  // the load ends here: no message, what was done stands
    return e;
  }
  return std::nullopt;
}

void DitArretDeCharge(ShellContext c, const TalpenaError& failure) {
  c.attente.ChangeSablier(false);
  std::string context;
  std::int16_t langue = c.state.Langue;
  if (c.document().WorkingDb == nullptr) {  // the settings were not read as yet
    langue = LangueReglee(c.io.settings);
    context = Texte(langue, MsgId::SansDossier);
  }
  Bip(c.state, c.io);
  AfficheErreur(c.io, failure.number(), DescriptionErreur(langue, failure), context);
}

std::string TexteDossierRefuse(const ProcessState& state) {
  return state.DossierRefuse.empty() ? std::string() : Texte(state.Langue, MsgId::DossierRefuse);
}

std::string DetailDossierRefuse(const ProcessState& state) {
  if (state.DossierRefuse.empty()) return {};
  const std::string text = Texte(state.Langue, MsgId::DossierRemplace);
  return Remplace(Remplace(text, "%2", state.WorkingDir), "%1", state.DossierRefuse);
}

void MnuQuitter_Click(ShellContext c) {
  if (CheckSauvegarde(c.Commandes())) return;
  EnregistreEtTermine(c);
}

void Form1_Unload(ShellContext c) { MnuQuitter_Click(c); }

void MnuLang_Click(ShellContext c, int index) {
  constexpr int spanish = 2;
  if (index == spanish) {
    c.io.dialogues.Demande({.text = Texte(c.state.Langue, MsgId::FonctionAbsente)});
    return;
  }
  const std::int16_t before = c.state.Langue;
  c.state.Langue = static_cast<std::int16_t>(index * 1000);
  if (c.state.Langue == before) return;
  AppliqueLangue(c);
  c.shell.InitFenetres();
  c.shell.InitTDBgrid();
}

std::string CheminAide(const ProcessState& state) {
  return AvecSeparateur(state.AppDir) + (state.Langue == 0 ? "TALPENAF.HLP" : "TALPENAE.HLP");
}

}  // namespace talpena
