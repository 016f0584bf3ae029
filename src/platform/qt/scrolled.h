// Content that scrolls where the screen has no room for it.
#pragma once
#include <QScrollArea>

namespace talpena {

/// As large as its content likes where there is room, and smaller with scroll bars where there is
/// none: what stands beside it, such as the buttons of a dialog, stays in sight.
class Scrolled : public QScrollArea {
 public:
  explicit Scrolled(QWidget* parent = nullptr);

  /// The size of a window around it that likes `wanted`, on its screen: where that is too low, as
  /// much wider as the bar that comes up takes.
  QSize TailleDeFenetre(QSize wanted) const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
};

}  // namespace talpena
