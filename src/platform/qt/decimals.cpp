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

void AligneDecimales(QStyleOptionViewItem& cell, int decimals) {
  const QString padded = AvecPlaceDesDecimales(cell.text, decimals);
  const QStyle* style = cell.widget != nullptr ? cell.widget->style() : QApplication::style();
  const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &cell, cell.widget) + 1;
  if (cell.fontMetrics.horizontalAdvance(padded) + 2 * margin <= cell.rect.width()) {
    cell.text = padded;
  }
}

void DecimalDelegate::initStyleOption(QStyleOptionViewItem* option,
                                      const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  AligneDecimales(*option, decimals_);
}

}  // namespace talpena
