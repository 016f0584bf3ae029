// A text of which as much is shown as there is room for.
#pragma once
#include <QLabel>

namespace talpena {

/// Plain text, its lines parted by CR or LF. Long ones are cut where the label says, with dots, and
/// stand whole in the tool tip; they never make a window wider.
class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  ElidedLabel(Qt::TextElideMode mode, int lines, QWidget* parent);

  void Montre(const QString& text);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Qt::TextElideMode mode_;
  int lines_;
};

}  // namespace talpena
