// frmGraphique: the chart window.
#pragma once
#include <QDialog>
#include <string>
#include <vector>

#include "analysis/output_file.h"
#include "platform/chart.h"
#include "platform/platform.h"
#include "platform/settings_state.h"

class QLabel;
class QPushButton;

namespace talpena {

class ChartPlot;

/// Modal. The chart, below it the value under the pointer or at the point that the arrow keys led
/// to, and which rows were counted. Ctrl+C copies the picture, Ctrl+S saves it, Ctrl+P prints it.
class frmGraphique : public QDialog {
  Q_OBJECT

 public:
  /// @param folder  offered for what is saved
  frmGraphique(const SharedState& state, Platform& io, const ChartPicture& picture,
               std::string folder, QWidget* parent = nullptr);

  void AppliqueLangue();

  // What the buttons do.
  void cmdCopier_Click();
  void cmdEnregistrer_Click();
  void cmdNombres_Click();
  void cmdImprimer_Click();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Construit();
  void Dispose();
  void Relie();
  void MontrePoint(int point);
  void Imprime(Printer& printer);
  OfferedFile Propose(const char* suffix) const;

  const SharedState& state_;
  Platform& io_;
  ChartPicture picture_;
  std::string folder_;

  ChartPlot* Graph1 = nullptr;
  QLabel* lblPoint = nullptr;
  QLabel* lblRemarque = nullptr;
  QPushButton* cmdCopier = nullptr;
  QPushButton* cmdEnregistrer = nullptr;
  QPushButton* cmdNombres = nullptr;
  QPushButton* cmdImprimer = nullptr;
  QPushButton* cmdFermer = nullptr;
};

}  // namespace talpena
