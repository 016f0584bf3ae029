#include "shell/windows/help_desk.h"

#include <QApplication>
#include <QKeyEvent>
#include <algorithm>
#include <array>

#include "platform/qt/controls.h"

namespace talpena {
namespace {

// clang-format off
constexpr std::array targets = {
    HelpTarget{"Form1", "table.html"},
    HelpTarget{"EditForm", "record.html"},
    HelpTarget{"Prefer", "preferences.html"},
    HelpTarget{"Selection", "periods.html#selection"},
    HelpTarget{"frmOptionsPeriodes", "periods.html"},
    HelpTarget{"Ajustement", "coordinates.html#adjust"},
    HelpTarget{"frmDatum", "coordinates.html#datums"},
    HelpTarget{"frmLmbIfbl", "coordinates.html#ifbl"},
    HelpTarget{"OptionsExport", "export-text.html"},
    HelpTarget{"frmGraphique", "statistics.html#chart"},
    HelpTarget{"frmResume", "statistics.html#summary"},
    HelpTarget{"frmCarte", "maps.html"},
    HelpTarget{"frmCartesOptions", "maps.html#layers"},
    HelpTarget{"Map", "maps.html#raster"},
    HelpTarget{"OptionsMap", "maps.html#raster"},
    HelpTarget{"frmImportation", "import-text.html"},
    HelpTarget{"frmImportGarmin", "import-waypoints.html#mapsource"},
    HelpTarget{"frmGarminOptions", "import-waypoints.html#options"},
    HelpTarget{"frmGeoQuery", "gazetteer.html"},
    HelpTarget{"frmGeoSetup", "gazetteer-setup.html#setup"},
    HelpTarget{"frmFonts", "gazetteer-setup.html#fonts"},
    HelpTarget{"frmEastern", "licence.html"},
    HelpTarget{"frmAide", "keys.html#help"},
    HelpTarget{"frmMessage", "trouble.html"},
    HelpTarget{"Start", "first-steps.html"},
    HelpTarget{"MessageBox", "trouble.html"},
    HelpTarget{"InputBox", "table.html"},
    HelpTarget{"OpenDialog", "files.html#open"},
    HelpTarget{"SaveDialog", "files.html#save"},
    HelpTarget{"FolderDialog", "files.html"},
    HelpTarget{"ColourDialog", "preferences.html#colours"},
    HelpTarget{"FontDialog", "preferences.html"},
    HelpTarget{"PrintDialog", "keys.html#help"},
    HelpTarget{"PrintPreviewDialog", "maps.html#print"},
};
// clang-format on

bool EstF1(const QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto* key = static_cast<const QKeyEvent*>(event);
  return key->key() == Qt::Key_F1 && key->modifiers() == Qt::NoModifier;
}

}  // namespace

std::span<const HelpTarget> CiblesAide() { return targets; }

QString CibleAide(const QWidget* widget) {
  for (; widget != nullptr; widget = widget->parentWidget()) {
    const std::string name = widget->objectName().toStdString();
    const auto known = std::find_if(targets.begin(), targets.end(), [&](const HelpTarget& target) {
      return target.window == name;
    });
    if (known != targets.end()) return EnQt(known->target);
  }
  return QStringLiteral("index.html");
}

HelpDesk::HelpDesk(const ProcessState& state, Platform& io) : state_(state), io_(io) {
  qApp->installEventFilter(this);
}

HelpDesk::~HelpDesk() { qApp->removeEventFilter(this); }

void HelpDesk::MnuAideTexte_Click() { Montre({}); }

void HelpDesk::AidePour(const QWidget* widget) { Montre(CibleAide(widget)); }

void HelpDesk::Montre(const QString& target) {
  frmAide* form = Fenetre(QApplication::activeModalWidget());
  if (form == nullptr) return;
  form->Montre(target);
  form->show();
  if (form->isMinimized()) form->showNormal();
  form->raise();
  form->activateWindow();
}

/// The one that is there already, or a new one; none, after a message, when it has no guide.
frmAide* HelpDesk::Fenetre(QWidget* dialog) {
  if (dialog == nullptr) {
    if (!form_) form_ = std::make_unique<frmAide>(state_, io_, place_);
    return form_->Ouvre() ? form_.get() : nullptr;
  }
  if (auto* beside = dialog->findChild<frmAide*>(QString(), Qt::FindDirectChildrenOnly))
    return beside;
  auto beside = std::make_unique<frmAide>(state_, io_, place_, dialog);
  if (!beside->Ouvre()) return nullptr;
  beside->setAttribute(Qt::WA_DeleteOnClose);
  return beside.release();
}

bool HelpDesk::eventFilter(QObject* watched, QEvent* event) {
  if (!watched->isWidgetType() || !EstF1(event)) return false;
  if (QApplication::activePopupWidget() != nullptr) return false;
  AidePour(static_cast<QWidget*>(watched));
  return true;
}

}  // namespace talpena
