// frmOptionsPeriodes: how many periods, and the years between them.
#pragma once
#include <QDialog>
#include <array>

#include "analysis/periods.h"
#include "platform/platform.h"
#include "platform/wait_view.h"
#include "store/state.h"

class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QStackedLayout;

namespace talpena {

/// Modal dialog over the period layout of the open file. It is accepted when OK went through.
class frmOptionsPeriodes : public QDialog {
  Q_OBJECT

 public:
  frmOptionsPeriodes(StoreState& state, Platform& io, WaitView& attente, QWidget* parent = nullptr);

  /// Captions in the current language.
  void AppliqueLangue();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void ConstruitCadre();
  void Dispose();
  void Relie();

  void OptionPivot_Click();
  void Command1_Click(int index);

  void Montre(const PeriodsForm& form);
  PeriodsOutcome Valide(PeriodsForm& form);
  PeriodsForm Lit() const;
  void PlaceFocus(PeriodsFocus focus);

  StoreState& state_;
  Platform& io_;
  WaitView& attente_;

  std::array<QRadioButton*, 3> OptionPivot;
  QFrame* FramePivot;
  QStackedLayout* pages_;  ///< in FramePivot: the boxes of each option
  QLabel* lblPivot1;
  QLabel* lblPivot21;
  QLabel* lblPivot22;
  QLineEdit* TxtPivot1;
  QLineEdit* TxtPivot21;
  QLineEdit* TxtPivot22;
  std::array<QPushButton*, 2> Command1;
};

}  // namespace talpena
