// What the buttons of the record editor do: each calls a procedure of store/record.
#include <QPlainTextEdit>
#include <QPushButton>
#include <utility>

#include "coords/windows/frm_datum.h"
#include "platform/commands.h"
#include "store/record/record_editor.h"
#include "store/windows/edit_form.h"
#include "store/windows/free_fields_grid.h"
#include "store/windows/typed_list.h"

namespace talpena {

/// Runs a procedure on the form as it stands, with what is half typed taken in, and shows what it
/// left. While one is under way no other one begins.
template <typename Procedure>
void EditForm::Execute(Procedure procedure) {
  cmbSystem->Valide();
  if (enCours_) return;
  enCours_ = true;
  Grid->Valide();
  Releve();
  ExecuteCommande(state_, io_, {}, [&] { procedure(Contexte(), ecran_); });
  if (!ecran_.modifie) {
    boiteTapee_ = {};  // a row that was saved, or another one
    pointTape_ = false;
  }
  enCours_ = false;
  Montre();
}

/// What is typed into a cell of Grid counts as a change at once, unless it is abandoned.
void EditForm::Grid_Tape() {
  if (ecran_.modifie) return;
  Marque();
  parTape_ = true;
}

void EditForm::Grid_Modifie() {
  Marque();
  QMetaObject::invokeMethod(
      this, [this] { ApresChamp(); }, Qt::QueuedConnection);
}

void EditForm::Grid_Abandonne() {
  if (!std::exchange(parTape_, false)) return;
  ecran_.modifie = false;
  ecran_.ButOk = false;
  FormeChange();
}

void EditForm::cmbSystem_Click(int index) {
  if (!ApresChamp()) return;
  Execute([index](CommandContext c, RecordScreen& ecran) {
    talpena::cmbSystem_Click(c, ecran, index);
  });
}

void EditForm::cmdChangeDatum_Click() {
  if (!cmdChangeDatum->isEnabled() || enCours_ || !ApresChamp()) return;
  frmDatum chooser(state_, this);
  chooser.Selectionne(ecran_.lblDatum);
  chooser.exec();
  if (chooser.Resultat().empty()) return;
  Execute([&chooser](CommandContext c, RecordScreen& ecran) {
    talpena::cmdChangeDatum_Click(c, ecran, chooser.Resultat());
  });
}

void EditForm::cmdSearch_Click() {
  if (enCours_ || !ApresChamp()) return;
  Execute([](CommandContext c, RecordScreen& ecran) { c.port.ChercheLieu(ecran); });
}

void EditForm::ButNew_Click() {
  Execute(talpena::ButNew_Click);
  if (!ecran_.modifie) commence_ = false;
}

void EditForm::ButDupl_Click() {
  Execute(talpena::ButDupl_Click);
  if (!ecran_.modifie) commence_ = false;
}

void EditForm::ButOk_Click() {
  const bool fromRemark = ChampLibre->hasFocus();
  Execute(talpena::ButOk_Click);
  if (fromRemark && ChampLibre->hasFocus() && !ButOk->isEnabled()) {
    ButNew->setFocus(Qt::TabFocusReason);
  }
}

void EditForm::cmdNavig_Click(int index) {
  if (enCours_) return;
  Execute(
      [index](CommandContext c, RecordScreen& ecran) { talpena::cmdNavig_Click(c, ecran, index); });
  if (!ecran_.modifie) PlaceAuDebut();  // otherwise a field is wrong, and has the keys
}

void EditForm::reject() {
  bool closes = false;
  Execute([&closes](CommandContext c, RecordScreen& ecran) {
    closes = talpena::ButEsc_Click(c, ecran);
  });
  if (closes) QDialog::reject();
}

void EditForm::done(int result) {
  GardePlace();
  QDialog::done(result);
}

}  // namespace talpena
