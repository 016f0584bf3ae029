// The buttons of the record editor: other rows, new rows, saving and closing.
#include "common/msg_id.h"
#include "common/string_table.h"
#include "platform/commands.h"
#include "store/duplicate_row.h"
#include "store/record/record_editor.h"

namespace talpena {
namespace {

bool Sauve(CommandContext c, RecordScreen& ecran) {
  bool failed = false;
  SauveEcran(c, ecran, failed);
  return !failed;
}

/// One row on, or back; at either end it stays, with a beep.
void Avance(CommandContext c, bool forwards) {
  Recordset& rows = c.document().Data1.recordset();
  if (rows.RecordCount() == 0) return Bip(c.state, c.io);
  if (forwards) {
    if (!rows.EOF_()) rows.MoveNext();
    if (!rows.EOF_()) return;
    rows.MoveLast();
  } else {
    if (!rows.BOF()) rows.MovePrevious();
    if (!rows.BOF()) return;
    rows.MoveFirst();
  }
  Bip(c.state, c.io);
}

/// Adds a row and shows it. It is the last of the recordset, in any order and with any filter, so
/// that no query runs again.
template <typename Add>
void AjouteRangee(CommandContext c, RecordScreen& ecran, std::string name, Add&& add) {
  ExecuteCommande(c.state, c.io, {}, [&] {
    if (!Sauve(c, ecran)) return;
    Edition edition(c.document(), std::move(name));
    edition.VaA(add(edition));
    edition.Valide();
    RempliDessus(c, ecran);
    ecran.focus = RecordField::ChampPeriode;
  });
}

}  // namespace

void cmdNavig_Click(CommandContext c, RecordScreen& ecran, int index) {
  if (index != 0 && index != 1) return AfficheControle(c, ecran);
  ExecuteCommande(c.state, c.io, {}, [&] {
    if (!Sauve(c, ecran)) return;
    Avance(c, index == 0);
    c.document().Data1.SignalePosition();
    RempliDessus(c, ecran);
  });
}

void ButNew_Click(CommandContext c, RecordScreen& ecran) {
  AjouteRangee(c, ecran, "New", [](Edition& edition) { return edition.AjouteLigne(); });
}

void ButDupl_Click(CommandContext c, RecordScreen& ecran) {
  AjouteRangee(c, ecran, "Duplicate",
               [c](Edition& edition) { return DupliqueLigne(c.document(), edition); });
}

void ButOk_Click(CommandContext c, RecordScreen& ecran) {
  if (Sauve(c, ecran)) ecran.ButOk = false;
}

bool ButEsc_Click(CommandContext c, RecordScreen& ecran) {
  if (!ecran.modifie) return true;
  const Answer answer =
      c.io.dialogues.Demande({.text = Texte(c.state.Langue, MsgId::SauveAvantFermer),
                              .icon = Icon::Question,
                              .buttons = Buttons::YesNoCancel});
  if (answer == Answer::Cancel) return false;
  return answer != Answer::Yes || Sauve(c, ecran);
}

}  // namespace talpena
