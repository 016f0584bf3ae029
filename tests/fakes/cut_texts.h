// Finds texts that a window has no room for.
#pragma once
#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QToolButton>
#include <string>
#include <vector>

namespace talpena::test {

namespace detail {

inline std::string Decrit(const QWidget& widget, const QString& text) {
  return (widget.objectName() + QStringLiteral(" \"") + text + QLatin1Char('"')).toStdString();
}

inline bool Coupe(const QLabel& label) {
  if (label.text().isEmpty()) return false;
  if (label.wordWrap()) {
    // The longest word decides how narrow it may be.
    return label.height() < label.heightForWidth(label.width()) ||
           label.width() < label.minimumSizeHint().width();
  }
  return label.width() < label.sizeHint().width() || label.height() < label.sizeHint().height();
}

inline bool Coupe(const QAbstractButton& button) {
  if (button.text().isEmpty()) return false;
  const auto* tool = qobject_cast<const QToolButton*>(&button);
  if (tool != nullptr && tool->toolButtonStyle() == Qt::ToolButtonIconOnly) return false;
  return button.width() < button.minimumSizeHint().width() ||
         button.height() < button.minimumSizeHint().height();
}

inline bool Coupe(const QGroupBox& box) {
  return !box.title().isEmpty() &&
         box.width() < box.fontMetrics().horizontalAdvance(box.title()) + 8;
}

/// Every item has to fit, since each can become the current one.
inline std::vector<QString> ItemsCoupes(const QComboBox& combo) {
  QStyleOptionComboBox option;
  option.initFrom(&combo);
  option.editable = combo.isEditable();
  const QRect room = combo.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                   QStyle::SC_ComboBoxEditField, &combo);
  std::vector<QString> cut;
  // A long list of long entries scrolls and shows their tails in the tool tip.
  if (combo.isEditable() || combo.count() > 50) return cut;
  for (int i = 0; i < combo.count(); ++i) {
    if (combo.fontMetrics().horizontalAdvance(combo.itemText(i)) > room.width()) {
      cut.push_back(combo.itemText(i));
    }
  }
  return cut;
}

inline bool Coupe(const QLineEdit& edit) {
  const QMargins margins = edit.textMargins();
  const int room = edit.width() - 8 - margins.left() - margins.right();
  return edit.fontMetrics().horizontalAdvance(edit.placeholderText()) > room;
}

inline std::vector<QString> TitresCoupes(const QHeaderView& header) {
  std::vector<QString> cut;
  if (header.orientation() != Qt::Horizontal || header.model() == nullptr) return cut;
  for (int i = 0; i < header.count(); ++i) {
    if (header.isSectionHidden(i)) continue;
    const QString text = header.model()->headerData(i, Qt::Horizontal, Qt::DisplayRole).toString();
    const QRect room(0, 0, header.sectionSize(i) - 6, header.height());
    const int flags = static_cast<int>(header.defaultAlignment());
    const QRect needed = header.fontMetrics().boundingRect(room, flags, text);
    if (needed.width() > room.width() || needed.height() > room.height()) cut.push_back(text);
  }
  return cut;
}

}  // namespace detail

/// What is cut off in a window that is shown, one line each; empty when all texts fit.
inline std::vector<std::string> TextesCoupes(const QWidget& window) {
  std::vector<std::string> cut;
  const auto note = [&cut](const QWidget& widget, const QString& text) {
    cut.push_back(detail::Decrit(widget, text));
  };
  for (const QWidget* child : window.findChildren<QWidget*>()) {
    if (!child->isVisibleTo(&window)) continue;
    if (const auto* label = qobject_cast<const QLabel*>(child)) {
      if (detail::Coupe(*label)) note(*label, label->text());
    } else if (const auto* button = qobject_cast<const QAbstractButton*>(child)) {
      if (detail::Coupe(*button)) note(*button, button->text());
    } else if (const auto* box = qobject_cast<const QGroupBox*>(child)) {
      if (detail::Coupe(*box)) note(*box, box->title());
    } else if (const auto* combo = qobject_cast<const QComboBox*>(child)) {
      for (const QString& item : detail::ItemsCoupes(*combo)) note(*combo, item);
    } else if (const auto* edit = qobject_cast<const QLineEdit*>(child)) {
      if (detail::Coupe(*edit)) note(*edit, edit->placeholderText());
    } else if (const auto* header = qobject_cast<const QHeaderView*>(child)) {
      for (const QString& title : detail::TitresCoupes(*header)) note(*header, title);
    }
  }
  return cut;
}

}  // namespace talpena::test
