#include "platform/qt/decimals.h"

#include <QApplication>
#include <QStyle>

namespace talpena {
namespace {

const QChar decimalPoint(u'.');
constexpr QChar digitBlank(0x2007), pointBlank(0x2008);

}  // namespace

int NombreDeDecimales(const QString& number) {
  const qsizetype at = number.indexOf(decimalPoint);
  return at < 0 ? 0 : static_cast<int>(number.size() - at) - 1;
}

QString AvecPlaceDesDecimales(const QString& number, int decimals) {
  const int missing = decimals - NombreDeDecimales(number);
  if (number.isEmpty() || missing <= 0) return number;
  const QString padded = number.contains(decimalPoint) ? number : number + pointBlank;
  return padded + QString(missing, digitBlank);
}

int LargeurVoulue(const QStyleOptionViewItem& cell) {
  const QStyle* style = cell.widget != nullptr ? cell.widget->style() : QApplication::style();
  const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &cell, cell.widget) + 1;
  constexpr int rounding = 2;
  return cell.fontMetrics.horizontalAdvance(cell.text) + 2 * margin + rounding;
}

void AligneDecimales(QStyleOptionViewItem& cell, int decimals) {
  const QString number = cell.text;
  cell.text = AvecPlaceDesDecimales(number, decimals);
  // A cell that is only measured has no place yet.
  if (!cell.rect.isEmpty() && LargeurVoulue(cell) > cell.rect.width()) cell.text = number;
}

void DecimalDelegate::initStyleOption(QStyleOptionViewItem* option,
                                      const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  AligneDecimales(*option, decimals_);
}

}  // namespace talpena
