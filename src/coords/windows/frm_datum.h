// frmDatum: chooses a datum from the catalogue.
#pragma once
#include <QDialog>
#include <string>

#include "coords/state.h"

class QTreeWidget;
class QPushButton;

namespace talpena {

/// Modal chooser. ListView1 sorts by a click on a heading, a second click reverses the order.
class frmDatum : public QDialog {
  Q_OBJECT

 public:
  explicit frmDatum(const CoordState& state, QWidget* parent = nullptr);

  /// The chosen code; "" after Cancel.
  std::string Resultat() const { return resultat_; }

 private:
  std::string resultat_;
};

}  // namespace talpena
