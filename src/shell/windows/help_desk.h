// Where help comes from: F1 in any window, and the Help menu.
#pragma once
#include <QObject>
#include <QPointer>
#include <memory>
#include <span>
#include <string_view>

#include "shell/windows/frm_aide.h"

namespace talpena {

/// The place in the guide that belongs to a window.
struct HelpTarget {
  std::string_view window;  ///< object name
  std::string_view target;  ///< "record.html#keys"
};

/// Every window and box of the program.
std::span<const HelpTarget> CiblesAide();

/// That of a window, or of the one it belongs to; the page of contents for others.
QString CibleAide(const QWidget* widget);

/// Opens the guide over the main window, or beside the modal dialog that is up.
class HelpDesk : public QObject {
  Q_OBJECT

 public:
  /// Watches the keys of the whole process until it goes. Both outlive it.
  HelpDesk(const ProcessState& state, Platform& io);
  ~HelpDesk() override;

  /// The guide at its last place.
  void MnuAideTexte_Click();
  /// The guide at the place that belongs to this widget's window.
  void AidePour(const QWidget* widget);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Montre(const QString& target);
  frmAide* Fenetre(QWidget* dialog);

  const ProcessState& state_;
  Platform& io_;
  std::shared_ptr<HelpPlace> place_ = std::make_shared<HelpPlace>();
  std::unique_ptr<frmAide> form_;  ///< beside the main window; made when first wanted
};

}  // namespace talpena
