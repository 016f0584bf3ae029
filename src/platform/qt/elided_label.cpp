#include "platform/qt/elided_label.h"

#include <QPainter>
#include <QStyle>
#include <algorithm>

namespace talpena {
namespace {

constexpr int charactersAtLeast = 20;

}  // namespace

ElidedLabel::ElidedLabel(Qt::TextElideMode mode, int lines, QWidget* parent)
    : QLabel(parent), mode_(mode), lines_(lines) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ElidedLabel::Montre(const QString& text) {
  setText(text);
  QString whole = text.toHtmlEscaped().replace(u'\r', u'\n');
  setToolTip(whole.replace(QStringLiteral("\n"), QStringLiteral("<br>")));
}

QSize ElidedLabel::sizeHint() const {
  return {charactersAtLeast * fontMetrics().averageCharWidth(),
          lines_ * fontMetrics().lineSpacing()};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QStringList lines = QString(text()).replace(u'\r', u'\n').split(u'\n');
  const int height = fontMetrics().lineSpacing();
  for (int i = 0; i < std::min<int>(lines_, static_cast<int>(lines.size())); ++i) {
    const QString shown =
        fontMetrics().elidedText(QString(lines[i]).replace(u'\t', u' '), mode_, width());
    style()->drawItemText(&painter, QRect(0, i * height, width(), height),
                          static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter), palette(),
                          isEnabled(), shown, foregroundRole());
  }
}

}  // namespace talpena
