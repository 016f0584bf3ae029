// frmDatum: chooses a datum from the catalogue.
#pragma once
#include <QDialog>
#include <array>
#include <string>
#include <string_view>

#include "coords/state.h"

class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace talpena {

/// Modal chooser over the datums of the catalogue, which stands as the state has it at
/// construction. A click on a heading, or Ctrl and its number, sorts by that column; a second one
/// reverses the order. Typing finds a code; Enter and a double click are Ok, Escape is Cancel.
class frmDatum : public QDialog {
  Q_OBJECT

 public:
  explicit frmDatum(const CoordState& state, QWidget* parent = nullptr);

  /// Selects the datum of a code, compared trimmed, and brings it into view; false, with the
  /// selection as it was, when the list lacks it.
  bool Selectionne(std::string_view code);

  /// The chosen code, without blanks behind it; "" after Cancel.
  std::string Resultat() const { return resultat_; }

  /// Captions in the current language.
  void AppliqueLangue();

  void reject() override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void ConstruitListe();
  void RempliListe();
  int AligneDecalages(int column);
  void ElargitColonnes();
  void Dispose();
  void Relie();

  void ListView1_ColumnClick(int column);
  void cmdDatum_Click(int index);

  const CoordState& state_;
  std::string resultat_;
  int colonneTri_ = -1;      ///< that the list is sorted by; none at first
  bool descendant_ = false;  ///< in which order

  QTreeWidget* ListView1;
  std::array<QPushButton*, 2> cmdDatum;
};

}  // namespace talpena
