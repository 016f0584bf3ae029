// OptionsExport: the columns that an export writes.
#pragma once
#include <QDialog>
#include <array>

#include "interchange/export_dialogs.h"
#include "platform/platform.h"
#include "platform/settings_state.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;

namespace talpena {

/// Modal dialog over the settings Export*, which it opens on. Ok takes the choice into them and
/// accepts; Cancel, Escape and closing leave them as they were.
class OptionsExport : public QDialog {
  Q_OBJECT

 public:
  OptionsExport(SharedState& state, Platform& io, ExportKind kind, QWidget* parent = nullptr);

  /// Asks the user, once; true when the choice was accepted.
  bool Demande() { return exec() == Accepted; }

  /// Captions in the current language.
  void AppliqueLangue();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Construit();
  void Dispose();
  void Montre();
  void MontreAvis();

  void ButOk_Click();

  SharedState& state_;
  Platform& io_;
  ExportKind kind_;

  QGroupBox* Frame3D1;  ///< around IncludeField
  std::array<QCheckBox*, 10> IncludeField;
  QLabel* lblSansSud;  ///< while a text export writes latitudes: what becomes of their sign
  QLabel* lblCoordSystem;
  QComboBox* cmbSystem;
  QLabel* lblDatumXY;  ///< while X and Y are written: where they come from
  QPushButton* ButOk;
  QPushButton* ButEsc;
};

}  // namespace talpena
