// frmMessage: the wait window of long commands.
#pragma once
#include <QDialog>

#include "platform/settings_state.h"

class QLabel;
class QPushButton;

namespace talpena {

/// Without a close button. lblMsg and imgMsg stand in the middle of its height; it grows with its
/// text. As long as nobody may give up it is not modal and takes no keys; with its button Cancel it
/// is the one window that hears any, Escape among them.
class frmMessage : public QDialog {
  Q_OBJECT

 public:
  enum class Bouton { Aucun, Annuler };

  explicit frmMessage(const SharedState& state, QWidget* parent = nullptr,
                      Bouton bouton = Bouton::Aucun);
  void Affiche(const QString& text);
  /// The same in the middle of another window, and in front of it.
  void Affiche(const QString& text, QWidget& under);
  void AppliqueLangue();  ///< of the button; the text is its caller's

  void reject() override;  ///< Cancel and Escape: the window stays until the work has ended

 Q_SIGNALS:
  void Annulee();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Prend(const QString& text);

  const SharedState& state_;
  QLabel* imgMsg;
  QLabel* lblMsg;
  QPushButton* cmdAnnuler = nullptr;
};

}  // namespace talpena
