// frmResume: the summary of the rows as a table.
#pragma once
#include <QDialog>
#include <string>

#include "analysis/summary.h"
#include "platform/platform.h"
#include "platform/settings_state.h"

class QLabel;
class QPushButton;
class QTableWidget;

namespace talpena {

/// Modal. Ctrl+C and its button copy the whole table with tabs; it is saved with commas.
class frmResume : public QDialog {
  Q_OBJECT

 public:
  /// @param folder  offered for what is saved
  frmResume(const SharedState& state, Platform& io, Summary summary, std::string folder,
            QWidget* parent = nullptr);

  void AppliqueLangue();

  void cmdCopier_Click();
  void cmdNombres_Click();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Construit();
  void Dispose();
  void Relie();
  void RemplitTable();

  const SharedState& state_;
  Platform& io_;
  Summary summary_;
  std::string folder_;

  QTableWidget* Grid = nullptr;
  QLabel* lblRemarque = nullptr;
  QPushButton* cmdCopier = nullptr;
  QPushButton* cmdNombres = nullptr;
  QPushButton* cmdFermer = nullptr;
};

}  // namespace talpena
