// What the windows of every layer build their controls with.
#pragma once
#include <QFont>
#include <QFontMetrics>
#include <QString>
#include <cstddef>
#include <string_view>

class QToolButton;
class QWidget;

namespace talpena {

QString EnQt(std::string_view utf8);

/// A control under the name by which tests and screen readers find it.
template <typename Widget>
Widget* Nomme(Widget* widget, const QString& name) {
  widget->setObjectName(name);
  return widget;
}

/// Name of a control of an array: "cmd_0".
QString NomIndexe(std::string_view control, std::size_t index);

/// Side of an icon beside a text, in pixels: `normal` for fonts of common size, in proportion for
/// larger ones.
int CoteIcone(const QFontMetrics& font, int normal);

/// A flat button with icon and caption side by side, which the keys reach. Its icon grows with the
/// font.
QToolButton* Outil(QWidget* parent, const QString& name);

QFont EnGras(const QFont& font);

}  // namespace talpena
