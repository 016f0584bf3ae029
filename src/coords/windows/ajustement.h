// Ajustement: the mesh and the grid that coordinates are adjusted to.
#pragma once
#include <QDialog>
#include <array>

#include "coords/state.h"

class QGroupBox;
class QPushButton;
class QRadioButton;

namespace talpena {

/// Modal dialog over MailleChoisie and GrilleChoisie, which it opens on. Ok keeps the choice in
/// the state and accepts; Cancel, Escape and closing leave the state as it was. The grid can be
/// chosen without a mesh too: it stands for the next time.
class Ajustement : public QDialog {
  Q_OBJECT

 public:
  explicit Ajustement(CoordState& state, QWidget* parent = nullptr);

  /// Asks the user, once; true when the choice was accepted.
  bool Demande() { return exec() == Accepted; }

  /// Captions in the current language.
  void AppliqueLangue();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Construit();
  void Dispose();
  void Montre();

  void ButOk_Click();

  CoordState& state_;

  QGroupBox* FrameAjust;  ///< around OptionAjust
  std::array<QRadioButton*, 8> OptionAjust;
  QGroupBox* FrameAjustGrid;                     ///< around OptionAjustGrid
  std::array<QRadioButton*, 3> OptionAjustGrid;  ///< element 0 is index 1
  QPushButton* ButOk;
  QPushButton* ButEsc;
};

}  // namespace talpena
