// TDBGrid1: the table of the main window, edited in place.
#pragma once
#include <QHeaderView>
#include <QPersistentModelIndex>
#include <QTableView>
#include <optional>
#include <vector>

#include "platform/main_window_view.h"
#include "platform/platform.h"
#include "store/state.h"
#include "store/table.h"
#include "store/windows/chosen_rows.h"

namespace talpena {

class GridModel;

/// The column of row numbers; a click in it chooses rows.
class RowHeader : public QHeaderView {
  Q_OBJECT

 public:
  explicit RowHeader(QWidget* parent);

 Q_SIGNALS:
  void LigneCliquee(int row, Qt::KeyboardModifiers modifiers);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  int lastRow_ = -1;
};

/// Follows Data1: its rows, its values, its current row; and moves Data1 along with the cursor.
/// A double click emits doubleClicked and edits nothing. Keys: typing or F2 edits, Enter and Tab
/// store and go on to the next cell, Escape drops the edit, Ctrl+Tab leaves the grid. Shift with
/// the arrows chooses rows; Shift+Space chooses the row and those up to it, Ctrl+Shift+Space adds
/// the row or takes it out, Ctrl+Space chooses the column. Rows and columns are not chosen at the
/// same time.
class TDBGrid : public QTableView {
  Q_OBJECT

 public:
  TDBGrid(StoreState& state, Platform& io, QWidget* parent = nullptr);

  void InitTDBgrid();                     ///< headings in the current language
  void AppliqueCouleurs();                ///< from the settings
  void ChangeFond(std::uint32_t stored);  ///< a colour number of the settings
  void AppliqueLargeurs();                ///< column widths from the settings
  void ReleveLargeurs();                  ///< those that the user changed, into the settings

  /// While it is fixed, its picture stays and no row is read for it; what the picture lacks is
  /// read with the next event behind.
  void Fige(bool fixed);
  bool SePeint() const { return painted_ > 0; }

  /// Stores what is being typed. False when the table refused it: the user was told why, the
  /// cell stays in edit.
  bool ValideEdition();
  /// Stores it when the table takes it, drops it otherwise, without a word.
  void TermineEdition();

  /// Chooses a row: alone, with Ctrl added or taken out, with Shift every row from the one chosen
  /// last to this one added.
  void ChoisitLigne(int row, Qt::KeyboardModifiers modifiers);
  /// Chooses these rows in this order, and no others. The cursor does not move.
  void ChoisitLignes(const std::vector<Bookmark>& rows);
  /// Bookmarks of the chosen rows, in the order in which they were chosen.
  std::vector<Bookmark> LignesChoisies() const;

  /// Chooses a column: alone, with Shift all from the one where the choice began, with Ctrl added
  /// to those beside it or taken out.
  void ChoisitColonne(int column, Qt::KeyboardModifiers modifiers);
  void SelectionneColonnes(ColumnRange columns);
  const std::optional<ColumnRange>& ColonnesChoisies() const { return columns_; }
  int ColonneCourante() const { return column_; }  ///< kept while the grid is empty
  /// The cursor goes to this column of its row; nothing else is chosen.
  void PlaceColonne(int column);

 protected:
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
  void commitData(QWidget* editor) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void paintEvent(QPaintEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void keyPressEvent(QKeyEvent* event) override;
  /// As ever, but the first and the last cell are chosen by the key that goes there.
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SuitDocument(Changes changes);
  void SuitPosition();
  void RelieTitres();
  void OublieChoix();
  void NoteChoix(bool upwards);
  bool ChoisitParTouche(Qt::KeyboardModifiers modifiers);
  /// Shift and a key that goes up or down: the rows from where such keys began to where they are.
  bool EtendParTouche(const QKeyEvent& event);
  static std::optional<CursorAction> Mouvement(const QKeyEvent& event);
  void MontreRefus();
  void Avance(int cells);
  int LargeurVoulue(int column) const;
  void EtireDerniere();

  StoreState& state_;
  Platform& io_;
  GridModel* model_;
  QPersistentModelIndex edited_;  ///< cell of the open editor
  bool refused_ = false;          ///< the last commit was refused
  bool telling_ = false;          ///< the box that says why is open, or about to be
  bool following_ = false;        ///< the cursor is being moved to Data1's row, not by the user
  bool sizing_ = false;           ///< columns are being sized by the program
  int column_ = 0;                ///< of the cursor
  bool choosing_ = false;         ///< rows or columns are being chosen by the program
  ChosenRows chosen_;
  int painted_ = 0;      ///< paintings under way
  int lastChosen_ = -1;  ///< row chosen last; -1 for none
  int keyAnchor_ = -1;   ///< where choosing by Shift and arrows began; -1 when it did not
  int chosenTop_ = -1;   ///< rows that were chosen together with it
  int chosenBottom_ = -1;
  std::optional<ColumnRange> columns_;
  int columnAnchor_ = 0;  ///< where the choice of columns began
  std::array<bool, Column::GridCount> sizedByUser_{};
  std::uint32_t background_;
  Subscription observed_;
};

}  // namespace talpena
