// Selection: shows the rows that meet a condition.
#pragma once
#include <QDialog>
#include <array>

#include "analysis/selection.h"
#include "platform/wait_view.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace talpena {

class ConditionEdit;

/// Modal dialog over the filter. It is accepted when OK went through; a condition that the engine
/// refuses is told and stays for another try. Typing chooses the condition, a click on an example
/// takes it over, and so does a choice from the list of the conditions of before.
class Selection : public QDialog {
  Q_OBJECT

 public:
  Selection(StoreState& state, Platform& io, WaitView& attente, QWidget* parent = nullptr);

  /// Captions in the current language; what was typed stays.
  void AppliqueLangue();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Construit();
  void Dispose();
  void Relie();

  void CmdSelect_Click(int index);
  void PrendExemple(const QString& link);
  void MontreConditions();

  StoreState& state_;
  Platform& io_;
  WaitView& attente_;

  std::array<QRadioButton*, 2> OptSelect{};
  ConditionEdit* condition_ = nullptr;
  QLineEdit* TxtSelect = nullptr;  ///< its line
  QLabel* lblColonnes = nullptr;
  QLabel* lblNoms = nullptr;  ///< of the columns
  QLabel* lblExemples = nullptr;
  QLabel* lblConditions = nullptr;  ///< the examples, as links
  std::array<QPushButton*, 2> CmdSelect{};
};

}  // namespace talpena
