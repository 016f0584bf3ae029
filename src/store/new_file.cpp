// The command New.
#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "store/file_commands.h"
#include "store/free_fields.h"
#include "store/table.h"

namespace talpena {
namespace {

/// The number of rows that the user wants; 0 when he gave up.
std::int32_t DemandeNombreLignes(CommandContext c) {
  std::int32_t lines = -1;
  while (lines < 0) {
    const std::string answer =
        c.io.dialogues.Saisie({.prompt = Texte(c.state.Langue, MsgId::NombreLignes), .text = "10"});
    lines = Arrondi32(Val(answer));
  }
  return lines;
}

/// The definitions go into FreeFieldText with nothing between them: they form one long line,
/// and the file reads back with a single free field. Held by
/// NewCommand.WithoutStandardHdrTheDefinitionsFormOneLine.
void PrendChampsInternes(StoreState& state) {
  state.FreeFieldSeparator = "/";
  state.FreeFieldText = "/\r\n";
  for (const std::string_view line : ChampsLibresInternes()) {
    state.FreeFieldText += line;
    AjouteChampLibre(state, line);
  }
  CompteChampsLibres(state);
}

void ChoisitChampsLibres(CommandContext c) {
  c.state.FreeFieldText.clear();
  c.state.FreeFieldDefs.clear();
  c.state.FreeFieldCount = 0;
  const std::string path = CheminStandardHdr(c.state, c.io);
  if (path.empty()) {
    PrendChampsInternes(c.state);
    return;
  }
  const Answer answer =
      c.io.dialogues.Demande({.text = Texte(c.state.Langue, MsgId::ChampsStandard),
                              .icon = Icon::Question,
                              .buttons = Buttons::YesNo});
  if (answer == Answer::Yes) LitStandardHdr(c.state, c.io, path);
}

void AjouteLignesVides(StoreState& state, std::int32_t lines) {
  state.Data1.Lie(*state.WorkingDb);
  state.Data1.RecordSource = "TALPENA";
  state.Data1.Refresh();
  const auto clone = state.Data1.Clone();
  Transaction transaction(*state.WorkingDb);
  for (std::int32_t i = 0; i < lines; ++i) {
    clone->AddNew();
    clone->Update();
  }
  transaction.Valide();
  state.Data1.Refresh();
  state.Data1.recordset().MoveLast();
  state.Data1.SignalePosition();
}

/// NouveauEnCours while the periods dialog is shown.
class NewInProgress {
 public:
  explicit NewInProgress(StoreState& state) : state_(state) { state_.NouveauEnCours = true; }
  NewInProgress(const NewInProgress&) = delete;
  NewInProgress& operator=(const NewInProgress&) = delete;
  ~NewInProgress() { state_.NouveauEnCours = false; }

 private:
  StoreState& state_;
};

}  // namespace

void CreationNouveau(CommandContext c, std::int32_t lines) {
  if (lines <= 0) lines = DemandeNombreLignes(c);
  if (lines == 0) return;
  if (CheckSauvegarde(c)) return;
  c.state.FichierModifie = false;
  c.state.NomFichier.clear();
  c.state.EmpreinteFichier.reset();
  c.state.LignesHorsFichier = false;
  c.state.LecturePartielle = false;
  c.state.WorkingDb->Execute("DELETE FROM TALPENA");
  c.vue.AjusteGrille();
  ChoisitChampsLibres(c);
  AjouteLignesVides(c.state, lines);
  c.vue.ChangeBoxTitre("");
  c.vue.MontreTitres();
  {
    const NewInProgress inProgress(c.state);
    c.vue.MontreOptionsPeriodes();
  }
  c.vue.ActiveMenus();
}

}  // namespace talpena
