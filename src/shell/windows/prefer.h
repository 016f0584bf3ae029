// Prefer: the preferences.
#pragma once
#include <QDialog>
#include <array>

#include "shell/preferences.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace talpena {

class Scrolled;

/// Modal dialog over the preferences. It is accepted when OK went through; Cancel and Escape leave
/// everything as it was, but for the working folder, which cmdOpen stores at once. The lists of
/// datums find an entry by any part of it that is typed.
class Prefer : public QDialog {
  Q_OBJECT

 public:
  explicit Prefer(CommandContext contexte, QWidget* parent = nullptr);

  /// Captions in the current language; what the user typed or chose stays.
  void AppliqueLangue();

 protected:
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Construit();
  void Dispose();
  void RemplitListes();
  void Relie();

  void Command1_Click();
  void cmdOpen_Click();
  void cmdChangeDatum_Click();
  void StatutAutoSave();
  void CompleteCode(QComboBox* list);
  void MontreDatumSpherique();
  void AligneChamps();

  void Montre(const PreferencesForm& form);
  PreferencesForm Lit() const;

  CommandContext contexte_;
  StoreState& state_;
  Platform& io_;
  std::string datumSpherique_;  ///< its code

  Scrolled* defilement_ = nullptr;
  std::array<QGroupBox*, 4> Frame{};
  QLabel* lblCombo2 = nullptr;
  QComboBox* Combo2 = nullptr;
  QLabel* lblDatum = nullptr;
  QComboBox* cmbDatum = nullptr;
  QLabel* lblSpherique = nullptr;
  QLabel* lblDatumOrig = nullptr;
  QPushButton* cmdChangeDatum = nullptr;
  QLabel* lblDatumUTM = nullptr;
  QComboBox* cmbDatumUTM = nullptr;
  std::array<QLabel*, 2> lblChampNumerique{};
  std::array<QLineEdit*, 2> ChampNumerique{};
  QLabel* lblSepar = nullptr;
  QLineEdit* TxtSepar = nullptr;
  QCheckBox* ChkAutoSave = nullptr;
  QLabel* lblAutoSave = nullptr;
  QLineEdit* txtSaveInterval = nullptr;
  QLabel* lblMin = nullptr;
  QLabel* lblWorkingDir = nullptr;
  QLineEdit* txtWorkingDir = nullptr;
  QPushButton* cmdOpen = nullptr;
  QCheckBox* OptSilence = nullptr;
  QPushButton* Command1 = nullptr;
  QPushButton* Command2 = nullptr;
};

}  // namespace talpena
