// frmMessage: the wait window of long commands.
#pragma once
#include <QDialog>

class QLabel;

namespace talpena {

/// Not modal, without a close button. lblMsg and imgMsg stand in the middle of its height; it
/// grows with its text.
class frmMessage : public QDialog {
  Q_OBJECT

 public:
  explicit frmMessage(QWidget* parent = nullptr);
  void Affiche(const QString& text);

 private:
  QLabel* imgMsg;
  QLabel* lblMsg;
};

}  // namespace talpena
