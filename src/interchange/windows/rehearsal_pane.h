// What an import would do, shown before it is done: counts, every row, every line that is left out.
#pragma once
#include <QElapsedTimer>
#include <QWidget>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "interchange/rehearsal.h"
#include "interchange/rehearsal_plan.h"
#include "store/state.h"

class QLabel;
class QPushButton;
class QTableView;
class QTimer;

namespace talpena {

class RehearsalModel;

/// A part of a dialog. It reads the file bit by bit between the events of the dialog, which stays
/// alive, and changes nothing. Its captions follow the language of the state by themselves. F8 goes
/// to the next problem, Ctrl+C in the list copies the rows chosen there.
class RehearsalPane : public QWidget {
  Q_OBJECT

 public:
  /// @param state  the rows that are there, the datum of the file, the catalogue
  explicit RehearsalPane(StoreState& state, QWidget* parent = nullptr);
  ~RehearsalPane() override;

  /// Begins anew. To be called whenever the file or what it is read as has changed.
  void Repete(RehearsalPlan plan);
  /// No file: the list is empty.
  void Arrete();
  /// Quiet lines under the counts, in the language of the interface; those of before go. The
  /// dialog gives them again when the language changes.
  void MontreNotes(const std::vector<std::string>& notes);

  /// The file was read to its end, and all is shown.
  bool EstFinie() const;
  /// Rows that would enter, as far as the file was read.
  std::int64_t Entrent() const;

 Q_SIGNALS:
  /// The file was read on.
  void Avance();

 protected:
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ConstruitTable();
  void ElargitColonnes();
  void MontreNombres(bool shown);
  void EtendSorts();
  void MontreSort();
  void Dispose();
  void AppliqueLangue();
  void Travaille();
  void MontreTextes();
  void MontreTexte(QLabel& label, const std::string& text);
  void VaAuProbleme();
  void CopieTout();
  void CopieChoisies();
  QString LignesEnTexte(int first, int last) const;

  StoreState& state_;
  std::unique_ptr<Rehearsal> rehearsal_;
  std::string notes_;
  QElapsedTimer sinceTexts_;

  RehearsalModel* model_;
  QTimer* timer_;
  QLabel* lblTitreRepetition;
  QLabel* lblComptes;
  QLabel* lblArret;
  QLabel* lblConseil;
  QLabel* lblNotes;
  QLabel* lblSort;  ///< of the current row, when it is a problem: what becomes of it
  QTableView* lstRepetition;
  QPushButton* cmdProbleme;
  QPushButton* cmdCopier;
};

}  // namespace talpena
