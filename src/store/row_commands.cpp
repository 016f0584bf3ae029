#include "store/row_commands.h"

#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "platform/busy.h"
#include "platform/commands.h"
#include "store/duplicate_row.h"
#include "store/edition.h"
#include "store/filter.h"
#include "store/row_room.h"

namespace talpena {
namespace {

/// The grid shows the rows that were added, and stands on this one.
void MontreLigneAjoutee(CommandContext c, Edition& edition, Bookmark row) {
  edition.VaA(row);
  edition.Valide();
  c.vue.PlaceFocusGrille();
}

void AjouteLignes(CommandContext c) {
  const std::string answer =
      c.io.dialogues.Saisie({.prompt = Texte(c.state.Langue, MsgId::LignesAAjouter), .text = "1"});
  const std::int32_t count = Arrondi32(Val(answer));
  if (count <= 0) return;
  if (!AccepteLignesVides(c, count, CompteLignes(c.document()).toutes)) return;
  LieTable(c.document());
  Edition edition(c.document(), "Add lines");
  const Bookmark last = AjouteLignesVides(c, edition, count);
  MontreLigneAjoutee(c, edition, last);
}

void Duplique(CommandContext c) {
  Edition edition(c.document(), "Duplicate");
  MontreLigneAjoutee(c, edition, DupliqueLigne(c.document(), edition));
}

Answer Demande(CommandContext c, int text, Icon icon, Buttons buttons) {
  Bip(c.state, c.io);
  return c.io.dialogues.Demande(
      {.text = Texte(c.state.Langue, text), .icon = icon, .buttons = buttons});
}

void SupprimeLignes(CommandContext c, const std::vector<Bookmark>& chosen) {
  const std::int64_t position = c.document().Data1.recordset().AbsolutePosition();
  Edition edition(c.document(), "Delete", Edition::Etendue::Entiere);
  {
    Busy busy(c.attente);
    busy.Message(Texte(c.state.Langue, MsgId::Suppression));
    edition.SupprimeLignes(chosen);
  }
  edition.MarqueModifie();
  edition.VaAPosition(position);
  edition.Valide();
}

void Supprime(CommandContext c) {
  const std::vector<Bookmark> chosen = c.vue.LignesSelectionnees();
  if (chosen.empty()) {
    Demande(c, MsgId::SelectionneLignes, Icon::Stop, Buttons::Ok);
    return;
  }
  if (Demande(c, MsgId::SupprimeLignes, Icon::Exclamation, Buttons::YesNo) != Answer::Yes) return;
  SupprimeLignes(c, chosen);
  c.vue.PlaceFocusGrille();
}

}  // namespace

// A file that could not be read leaves an empty table that no grid shows yet.
void LieTable(Document& document) {
  if (document.Data1.EstLie()) return;
  document.RelieSqlCourant();
  document.AjusteGrille();
}

Bookmark AjouteLignesVides(CommandContext c, Edition& edition, std::int64_t count) {
  Busy busy(c.attente);
  busy.Annulable();
  if (count > BeaucoupDeLignes) busy.Message(Texte(c.state.Langue, MsgId::Ajout)).Barre();
  return edition.AjouteLignesVides(count, [&](std::int64_t done, std::int64_t total) {
    if (total > BeaucoupDeLignes) busy.Avance(done, total);
    busy.Bat();
  });
}

void cmdFirstLast_Click(CommandContext c, int index) {
  ExecuteCommande(c.state, c.io, {}, [&] {
    DataControl& data = c.document().Data1;
    if (!data.EstLie()) return;
    index == 0 ? data.recordset().MoveFirst() : data.recordset().MoveLast();
    data.SignalePosition();
  });
}

void MnuAjoutLigne_Click(CommandContext c) {
  ExecuteCommande(c.state, c.io, {}, [&] { AjouteLignes(c); });
}

void mnuDuplic_Click(CommandContext c) {
  ExecuteCommande(c.state, c.io, {}, [&] { Duplique(c); });
}

void MnuSupprimer_Click(CommandContext c) {
  ExecuteCommande(c.state, c.io, {}, [&] { Supprime(c); });
}

}  // namespace talpena
