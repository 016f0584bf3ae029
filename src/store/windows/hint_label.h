// A line that says what is wrong with the fields above it.
#pragma once
#include <QLabel>

namespace talpena {

/// Plain text with a warning sign before it, in a colour that stands out of light and dark
/// windows. It keeps its place while it has nothing to say. A new text is announced to assistive
/// programs.
class HintLabel : public QLabel {
  Q_OBJECT

 public:
  explicit HintLabel(QWidget* parent = nullptr);

  void Montre(const QString& hint);

  /// The colour of a hint in a window of that palette.
  static QColor Couleur(const QPalette& palette);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  int IconSize() const { return fontMetrics().height(); }
};

}  // namespace talpena
