#include "platform/qt/controls.h"

#include <QToolButton>

namespace talpena {

QString EnQt(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString NomIndexe(std::string_view control, std::size_t index) {
  return QStringLiteral("%1_%2").arg(EnQt(control)).arg(index);
}

QToolButton* Outil(QWidget* parent, const QString& name) {
  auto* button = Nomme(new QToolButton(parent), name);
  button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::StrongFocus);
  button->setIconSize({20, 20});
  return button;
}

QFont EnGras(const QFont& font) {
  QFont bold = font;
  bold.setBold(true);
  return bold;
}

}  // namespace talpena
