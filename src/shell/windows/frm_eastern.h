// frmEastern: the about box.
#pragma once
#include <QDialog>

#include "platform/settings_state.h"

class QLabel;
class QPushButton;

namespace talpena {

/// Version of the program: major, revision and so on, "3.0.0".
QString VersionDuProgramme();

class frmEastern : public QDialog {
  Q_OBJECT

 public:
  /// `state` outlives the box: its captions are in the language that it names.
  explicit frmEastern(const SharedState& state, QWidget* parent = nullptr);

  /// Captions in the current language.
  void AppliqueLangue();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  const SharedState& state_;
  QLabel* lblVersion;
  QLabel* lblDescription;
  QLabel* lblDisclaimer;
  QPushButton* cmdOK;
};

}  // namespace talpena
