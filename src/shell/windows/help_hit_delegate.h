// How what was found in the guide is drawn in its list.
#pragma once
#include <QStyledItemDelegate>

namespace talpena {

/// The title in bold, and under it what stands around the words, over two lines at most.
class HelpHitDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  static constexpr int contextRole = Qt::UserRole + 1;

  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace talpena
