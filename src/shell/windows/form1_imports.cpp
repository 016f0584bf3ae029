// The dialogs of the imports.
#include "interchange/windows/frm_import_garmin.h"
#include "interchange/windows/frm_importation.h"
#include "shell/windows/form1.h"

namespace talpena {

void Form1::MontreImportation() { frmImportation(state_, state_.interchange, io_, this).exec(); }

void Form1::MontreImportGarmin(const std::string& fileName, int type) {
  frmImportGarmin window(Commandes(), state_.interchange, fileName, type, this);
  window.Charge();
  window.exec();
}

}  // namespace talpena
