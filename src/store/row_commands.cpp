#include "store/row_commands.h"

#include <algorithm>

#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "platform/commands.h"
#include "store/busy_window.h"
#include "store/duplicate_row.h"

namespace talpena {
namespace {

/// After rows were added: the grid shows them and stands on this one.
void MontreLigneAjoutee(CommandContext c, Bookmark row) {
  c.state.FichierModifie = true;
  c.state.Data1.recordset().SetBookmark(row);
  c.state.Data1.SignaleLignes();
  c.state.Data1.SignalePosition();
  c.vue.PlaceFocusGrille();
}

Bookmark AjouteLignesVides(CommandContext c, std::int32_t count) {
  const Sablier sablier(c.vue);
  const auto rows = c.state.Data1.Clone();
  Transaction transaction(*c.state.WorkingDb);
  for (std::int32_t i = 0; i < count; ++i) {
    rows->AddNew();
    rows->Update();
  }
  rows->MoveLast();
  const Bookmark last = rows->GetBookmark();
  transaction.Valide();
  return last;
}

void AjouteLignes(CommandContext c) {
  const std::string answer =
      c.io.dialogues.Saisie({.prompt = Texte(c.state.Langue, MsgId::LignesAAjouter), .text = "1"});
  const std::int32_t count = Arrondi32(Val(answer));
  if (count <= 0) return;
  LieTable(c);
  MontreLigneAjoutee(c, AjouteLignesVides(c, count));
}

Answer Demande(CommandContext c, int text, Icon icon, Buttons buttons) {
  Bip(c.state, c.io);
  return c.io.dialogues.Demande(
      {.text = Texte(c.state.Langue, text), .icon = icon, .buttons = buttons});
}

void SupprimeLignes(CommandContext c, const std::vector<Bookmark>& chosen) {
  const Attente attente(c.vue, Texte(c.state.Langue, MsgId::Suppression));
  Transaction transaction(*c.state.WorkingDb);
  c.state.Data1.Clone()->SupprimeLignes(chosen);
  transaction.Valide();
}

void Supprime(CommandContext c) {
  const std::vector<Bookmark> chosen = c.vue.LignesSelectionnees();
  if (chosen.empty()) {
    Demande(c, MsgId::SelectionneLignes, Icon::Stop, Buttons::Ok);
    return;
  }
  if (Demande(c, MsgId::SupprimeLignes, Icon::Exclamation, Buttons::YesNo) != Answer::Yes) return;
  Recordset& rows = c.state.Data1.recordset();
  const std::int64_t position = rows.AbsolutePosition();
  SupprimeLignes(c, chosen);
  c.state.FichierModifie = true;
  RetourneAPosition(rows, position);
  c.state.Data1.SignaleLignes();
  c.state.Data1.SignalePosition();
  c.vue.PlaceFocusGrille();
}

}  // namespace

// A file that could not be read leaves an empty table that no grid shows yet.
void LieTable(CommandContext c) {
  DataControl& data = c.state.Data1;
  if (data.EstLie()) return;
  data.Lie(*c.state.WorkingDb);
  data.RecordSource = c.state.SqlCourant;
  data.Refresh();
  c.vue.AjusteGrille();
}

void RetourneAPosition(Recordset& rows, std::int64_t position) {
  const std::int64_t last = rows.RecordCount() - 1;
  if (last < 0) {
    rows.MoveFirst();
  } else {
    rows.SetAbsolutePosition(std::clamp<std::int64_t>(position, 0, last));
  }
}

void cmdFirstLast_Click(CommandContext c, int index) {
  ExecuteCommande(c.state, c.io, {}, [&] {
    if (!c.state.Data1.EstLie()) return;
    Recordset& rows = c.state.Data1.recordset();
    index == 0 ? rows.MoveFirst() : rows.MoveLast();
    c.state.Data1.SignalePosition();
  });
}

void MnuAjoutLigne_Click(CommandContext c) {
  ExecuteCommande(c.state, c.io, {}, [&] { AjouteLignes(c); });
}

void mnuDuplic_Click(CommandContext c) {
  ExecuteCommande(c.state, c.io, {}, [&] { MontreLigneAjoutee(c, DupliqueLigne(c.state)); });
}

void MnuSupprimer_Click(CommandContext c) {
  ExecuteCommande(c.state, c.io, {}, [&] { Supprime(c); });
}

}  // namespace talpena
