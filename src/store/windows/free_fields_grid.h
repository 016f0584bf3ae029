// Grid: the free fields of the record editor, a label and a value to each.
#pragma once
#include <QTableView>
#include <string>
#include <vector>

class QLineEdit;

namespace talpena {

class FreeFieldsModel;

/// Column 0 shows the labels, column 1 the values, of which the current one is edited by txtEdit,
/// floating over its cell. Typing replaces the value; F2, Enter, the blank and a double click open
/// it as it is; Delete empties it. While it is open, Enter, the up and down arrows, and the left
/// and right ones at the ends of the text, store it and go to another cell; Escape leaves the cell
/// unchanged. Tab goes from value to value, and out of the grid behind the last one.
class FreeFieldsGrid : public QTableView {
  Q_OBJECT

 public:
  explicit FreeFieldsGrid(QWidget* parent = nullptr);

  /// One row per label.
  void ChangeEtiquettes(const std::vector<std::string>& labels);
  void ChangeTextes(const std::vector<std::string>& texts);
  const std::vector<std::string>& Textes() const;

  /// Stores what is being typed.
  void Valide();
  bool EnEdition() const;

  QSize sizeHint() const override { return Taille(11); }
  QSize minimumSizeHint() const override { return Taille(3); }

 Q_SIGNALS:
  void Modifie();             ///< the user changed a value
  void Tape();                ///< the user types into a cell; Modifie or Abandonne follows
  void Abandonne();           ///< what was typed is not stored
  void Quitte(bool forward);  ///< the keys are to leave the grid

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void changeEvent(QEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MSHFlexGridEdit(const QString& typed);
  bool EditKeyCode(const QKeyEvent& key);
  bool TraverseTexte(const QKeyEvent& key) const;
  QModelIndex Fgi(int row) const;
  bool Deplace(int rows);
  void FermeEditeur();
  void PlaceEditeur();
  void MesureEtiquettes();
  void DisposeColonnes();
  QSize Taille(int rows) const;

  FreeFieldsModel* model_;
  QLineEdit* txtEdit;
  int edited_ = -1;  ///< row under txtEdit
  int widestLabel_ = 0;
};

}  // namespace talpena
