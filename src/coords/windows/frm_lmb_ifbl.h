// frmLmbIfbl: converts between Lambert belge 1972 and the code of an IFBL square.
#pragma once
#include <QDialog>
#include <array>

#include "coords/state.h"

class QFormLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace talpena {

/// A small converter that changes nothing of the program. Enter converts from the frame that the
/// cursor is in; what cannot be converted is told below, and leaves the other frame empty.
class frmLmbIfbl : public QDialog {
  Q_OBJECT

 public:
  explicit frmLmbIfbl(const CoordState& state, QWidget* parent = nullptr);

  /// Captions, and the message when there is one, in the current language.
  void AppliqueLangue();

 protected:
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ConstruitCadres();
  void AjouteCommande(QFormLayout* form, int index);
  void Dispose();

  void Command1_Click(int index);
  void IfblEnLambert();
  void LambertEnIfbl();

  /// Shows a message by its base id, 0 for none.
  void Annonce(int message);
  /// The same about what stands in a box, which gets the cursor.
  void Refuse(int message, QLineEdit* box);

  const CoordState& state_;
  int message_ = 0;  ///< that is shown

  QGroupBox* frameLambert;
  std::array<QLabel*, 2> lblLambert;
  std::array<QLineEdit*, 2> txtLambert;  ///< x, y
  QGroupBox* frameIFBL;
  QLabel* lblIFBL;
  QLineEdit* txtIFBL;
  std::array<QPushButton*, 2> Command1;  ///< from IFBL, from Lambert
  QLabel* lblMessage;
  QPushButton* cmdFermer;
};

}  // namespace talpena
