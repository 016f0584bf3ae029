// A field of one colour that a click or Space asks to change.
#pragma once
#include <QLabel>
#include <cstdint>

namespace talpena {

class ColourLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ColourLabel(QWidget* parent);

  void ChangeCouleur(std::uint32_t couleur);  ///< 0xBBGGRR

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 Q_SIGNALS:
  void Clique();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  QColor colour_;
};

}  // namespace talpena
