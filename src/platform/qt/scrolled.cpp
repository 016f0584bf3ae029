#include "platform/qt/scrolled.h"

#include <QScrollBar>
#include <algorithm>

#include "platform/qt/window_place.h"

namespace talpena {

Scrolled::Scrolled(QWidget* parent) : QScrollArea(parent) {
  setFrameShape(NoFrame);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
}

QSize Scrolled::sizeHint() const {
  return widget() != nullptr ? widget()->sizeHint() : QScrollArea::sizeHint();
}

QSize Scrolled::TailleDeFenetre(QSize wanted) const {
  const bool cut = TailleVisible(wanted, screen()).height() < wanted.height();
  if (cut) wanted.rwidth() += verticalScrollBar()->sizeHint().width();
  return TailleVisible(wanted, screen());
}

QSize Scrolled::minimumSizeHint() const {
  if (widget() == nullptr) return QScrollArea::minimumSizeHint();
  const QSize content = widget()->minimumSizeHint();
  const int bar = verticalScrollBar()->sizeHint().width();
  return {std::min(content.width() + bar, fontMetrics().averageCharWidth() * 100),
          std::min(content.height(), fontMetrics().lineSpacing() * 12)};
}

}  // namespace talpena
