// The command New.
#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "store/edition.h"
#include "store/file_commands.h"
#include "store/free_fields.h"
#include "store/row_commands.h"
#include "store/row_room.h"

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
void PrendChampsInternes(DistributionHeader& entete) {
  entete.FreeFieldSeparator = "/";
  entete.FreeFieldText = "/\r\n";
  for (const std::string_view line : ChampsLibresInternes()) {
    entete.FreeFieldText += line;
    AjouteChampLibre(entete, line);
  }
  CompteChampsLibres(entete);
}

/// No rows, no title, no comment; so nothing of the file before is on show while questions are
/// asked.
void VideDocument(Document& document) {
  Edition edition(document, "New");
  edition.LaisseNonModifie();
  edition.VideTable();
  edition.Entete().BoxTitre.clear();
  edition.Entete().Commentaire.clear();
  edition.Valide();
  document.Relie(RowsShown::Table());
}

void ChoisitChampsLibres(CommandContext c, DistributionHeader& entete) {
  entete.FreeFieldText.clear();
  entete.FreeFieldDefs.clear();
  entete.FreeFieldCount = 0;
  const std::string path = CheminStandardHdr(c.state, c.io);
  if (path.empty()) {
    PrendChampsInternes(entete);
    return;
  }
  const Answer answer =
      c.io.dialogues.Demande({.text = Texte(c.state.Langue, MsgId::ChampsStandard),
                              .icon = Icon::Question,
                              .buttons = Buttons::YesNo});
  if (answer == Answer::Yes) LitStandardHdr(entete, c.io.files, path);
}

/// Empty rows, and the last of them becomes the current one.
void PoseLignesVides(CommandContext c, Edition& edition, std::int32_t lines) {
  Document& document = c.document();
  AjouteLignesVides(c, edition, lines);
  document.Data1.Refresh();
  document.Data1.recordset().MoveLast();
  document.Data1.SignalePosition();
}

/// Nothing of the file before is kept: its name, how it looked on the disk, its place in the title
/// bar, the order that its rows were sorted in.
void OublieFichier(Document& document) {
  document.OublieModifications();
  document.Fichier.NomFichier.clear();
  document.Fichier.EmpreinteFichier.reset();
  document.Fichier.LignesHorsFichier = false;
  document.Fichier.LecturePartielle = false;
  document.ChangeTitreFenetre(std::string(TitreSansFichier));
  document.ChangeOrdre({});
}

/// Where the typing begins.
void PremiereCellule(CommandContext c) {
  DataControl& data = c.document().Data1;
  data.recordset().MoveFirst();
  data.SignalePosition();
  c.vue.PlaceFocusColonne(0);
}

/// NouveauEnCours while the periods dialog is shown.
class NewInProgress {
 public:
  explicit NewInProgress(Document& document) : document_(document) {
    document_.NouveauEnCours = true;
  }
  NewInProgress(const NewInProgress&) = delete;
  NewInProgress& operator=(const NewInProgress&) = delete;
  ~NewInProgress() { document_.NouveauEnCours = false; }

 private:
  Document& document_;
};

}  // namespace

void CreationNouveau(CommandContext c, std::int32_t lines) {
  if (lines <= 0) lines = DemandeNombreLignes(c);
  if (lines == 0 || !AccepteLignesVides(c, lines, 0)) return;
  if (CheckSauvegarde(c)) return;
  Document& document = c.document();
  OublieFichier(document);
  VideDocument(document);
  document.AjusteGrille();
  {
    Edition edition(document, "New");
    edition.LaisseNonModifie();
    ChoisitChampsLibres(c, edition.Entete());
    PoseLignesVides(c, edition, lines);
    edition.Valide();
  }
  document.MontreTitres();
  {
    const NewInProgress inProgress(document);
    c.port.MontreOptionsPeriodes();
  }
  document.ActiveMenus();
  PremiereCellule(c);
}

}  // namespace talpena
