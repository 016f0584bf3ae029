#include "platform/qt/controls.h"

#include <QEvent>
#include <QFontMetrics>
#include <QToolButton>
#include <algorithm>

namespace talpena {
namespace {

constexpr int normalFontHeight = 16;  ///< pixels; larger fonts get larger icons
constexpr int normalTool = 20;

/// A button whose icon grows with its font.
class IconTool final : public QToolButton {
 public:
  explicit IconTool(QWidget* parent) : QToolButton(parent) { AjusteIcone(); }

 protected:
  void changeEvent(QEvent* event) override {
    QToolButton::changeEvent(event);
    if (event->type() == QEvent::FontChange) AjusteIcone();
  }

 private:
  void AjusteIcone() {
    const int side = CoteIcone(fontMetrics(), normalTool);
    setIconSize({side, side});
  }
};

}  // namespace

QString EnQt(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString NomIndexe(std::string_view control, std::size_t index) {
  return QStringLiteral("%1_%2").arg(EnQt(control)).arg(index);
}

int CoteIcone(const QFontMetrics& font, int normal) {
  return std::max(normal, normal * font.height() / normalFontHeight);
}

QToolButton* Outil(QWidget* parent, const QString& name) {
  auto* button = Nomme(new IconTool(parent), name);
  button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::StrongFocus);
  return button;
}

QFont EnGras(const QFont& font) {
  QFont bold = font;
  bold.setBold(true);
  return bold;
}

}  // namespace talpena
