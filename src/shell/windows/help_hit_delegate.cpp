#include "shell/windows/help_hit_delegate.h"

#include <QApplication>
#include <QPainter>
#include <array>

#include "platform/qt/contrast.h"

namespace talpena {
namespace {

constexpr int margin = 6;
constexpr int contextLines = 2;

QFont Gras(QFont font) {
  font.setBold(true);
  return font;
}

}  // namespace

QSize HelpHitDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
  const int title = QFontMetrics(Gras(option.font)).lineSpacing();
  return {0, 2 * margin + title + contextLines * option.fontMetrics.lineSpacing()};
}

void HelpHitDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
  QStyleOptionViewItem item = option;
  initStyleOption(&item, index);
  const QString title = item.text;
  item.text.clear();
  const QWidget* widget = option.widget;
  const QStyle* style = widget != nullptr ? widget->style() : QApplication::style();
  style->drawControl(QStyle::CE_ItemViewItem, &item, painter, widget);

  const bool selected = item.state.testFlag(QStyle::State_Selected);
  const QColor ink = item.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
  const std::array under = {item.palette.color(selected ? QPalette::Highlight : QPalette::Base)};
  QColor soft = ink;
  soft.setAlphaF(0.75F);
  soft = Eloigne(soft, under, ContrasteLisible);
  QRect area = item.rect.adjusted(margin, margin, -margin, -margin);
  painter->save();
  painter->setFont(Gras(item.font));
  painter->setPen(ink);
  painter->drawText(area, Qt::AlignLeft | Qt::AlignTop,
                    painter->fontMetrics().elidedText(title, Qt::ElideRight, area.width()));
  area.setTop(area.top() + painter->fontMetrics().lineSpacing());
  painter->setFont(item.font);
  painter->setPen(soft);
  painter->drawText(area, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                    index.data(contextRole).toString());
  painter->restore();
}

}  // namespace talpena
