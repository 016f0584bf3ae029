// frmImportGarmin: which waypoints of a file become rows, and on which grid and datum they stand.
#pragma once
#include <QDialog>
#include <array>
#include <cstdint>
#include <string>

#include "interchange/garmin_options.h"
#include "interchange/mapsource_reader.h"
#include "interchange/mapsource_text.h"
#include "interchange/state.h"
#include "store/command_context.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace talpena {

class RehearsalPane;
class WaypointView;

/// Modal dialog over the waypoints of a MapSource text; its captions are English in every language.
/// OK imports the checked ones; as long as no grid is chosen, or no datum is known, it asks for
/// that instead. When the import fails on the way the dialog stays with its checks, but for those
/// of the waypoints that have come in. Over a file that came in before, Enter is Cancel.
class frmImportGarmin : public QDialog {
  Q_OBJECT

 public:
  /// @param type  0 for a file of MapSource
  frmImportGarmin(CommandContext c, InterchangeState& interchange, std::string fileName, int type,
                  QWidget* parent = nullptr);
  ~frmImportGarmin() override;

  /// Reads the file. What cannot be read is told, and what was filled until then is shown.
  void Charge();

  /// What follows the language: remarks and the names that screen readers say.
  void AppliqueLangue();

  void done(int result) override;  ///< keeps the widths of the columns

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Construit();
  void Dispose();
  void Relie();
  void MontreLargeurs();
  int LargeurLisible(int column) const;
  void SauveLargeurs();
  MapSourceChoice Choix() const;
  void MontreNotes();
  void Repete();

  void cmdChangeDatum_Click();
  void chkAll_Click();
  void cmdImportGarmin_Click(int index);
  void Importe();
  void ResteApresEchec(std::int64_t added);
  void OffreGrilles();
  void ChangeOptions();

  CommandContext c_;
  InterchangeState& interchange_;
  const std::string fichier_;
  std::int64_t entres_ = 0;  ///< waypoints of this list that came in before a failure
  const int type_;
  MapSourceText text_;
  bool deja_ = false;  ///< the open file held waypoints of this one when the window came up
  objGraminImport options_;
  objGraminImport aVenir_;  ///< what the settings would make them now

  QLabel* lblConfirm = nullptr;
  QLabel* lblHeader = nullptr;
  QPlainTextEdit* txtHeader = nullptr;
  QLabel* lblGrid = nullptr;
  QComboBox* cmbGrid = nullptr;
  QLabel* lblTitreDatum = nullptr;
  QLabel* lblDatum = nullptr;
  QPushButton* cmdChangeDatum = nullptr;
  RehearsalPane* repetition_ = nullptr;
  WaypointView* LV = nullptr;
  QCheckBox* chkAll = nullptr;
  std::array<QPushButton*, 3> cmdImportGarmin{};
};

}  // namespace talpena
