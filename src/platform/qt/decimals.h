// Columns of numbers that stand point under point.
#pragma once
#include <QStyledItemDelegate>

namespace talpena {

/// Number of digits behind the point of a number's text.
int NombreDeDecimales(const QString& number);

/// The text with blank room behind it for the decimals that it has fewer than `decimals`: the
/// point and digits of most fonts have blanks of their widths.
QString AvecPlaceDesDecimales(const QString& number, int decimals);

/// The same for a cell that is about to be painted or measured, unless it is too narrow for it.
void AligneDecimales(QStyleOptionViewItem& cell, int decimals);

/// Width that a cell needs for its text; in a narrower one the style cuts it.
int LargeurVoulue(const QStyleOptionViewItem& cell);

/// Paints the numbers of a column point under point.
class DecimalDelegate final : public QStyledItemDelegate {
 public:
  DecimalDelegate(int decimals, QObject* parent)
      : QStyledItemDelegate(parent), decimals_(decimals) {}

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  int decimals_;
};

}  // namespace talpena
