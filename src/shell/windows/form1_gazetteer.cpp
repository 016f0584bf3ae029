// The dialogs of the gazetteer.
#include <QApplication>

#include "gazetteer/windows/frm_geo_query.h"
#include "gazetteer/windows/frm_geo_setup.h"
#include "shell/windows/form1.h"
#include "shell/windows/help_desk.h"
#include "store/windows/edit_form.h"

namespace talpena {

/// Made once: its list stays from one opening to the next.
void Form1::ChercheLieu(RecordScreen& fiche) {
  if (frmGeoQuery_ == nullptr) {
    frmGeoQuery_ = new frmGeoQuery({Commandes(), state_.gazetteer, *this}, this);
  }
  frmGeoQuery_->Cherche(fiche);
}

void Form1::MontreGeoSetup() {
  QWidget* over = QApplication::activeModalWidget();
  talpena::MontreGeoSetup(
      Commandes(), state_.gazetteer, [this](const QWidget* window) { aide_->AidePour(window); },
      over == nullptr ? this : over);
}

}  // namespace talpena
