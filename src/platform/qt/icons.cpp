#include "platform/qt/icons.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>
#include <array>

// Resources of a static library are registered on first use; the macro wants the global scope.
static void EnregistreRessources() { Q_INIT_RESOURCE(icons); }

namespace talpena {
namespace {

constexpr std::array sizes = {16, 20, 24, 32, 48, 64};

QByteArray Dessin(const QString& name, const QColor& colour) {
  EnregistreRessources();
  QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
  if (!file.open(QIODevice::ReadOnly)) return {};
  return file.readAll().replace("currentColor", colour.name().toLatin1());
}

QPixmap Peint(const QByteArray& svg, int pixels) {
  QSvgRenderer renderer(svg);
  QPixmap pixmap(pixels, pixels);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  renderer.render(&painter);
  return pixmap;
}

}  // namespace

QIcon Icone(const QString& name, const QPalette& palette) {
  const QByteArray normal = Dessin(name, palette.color(QPalette::Active, QPalette::ButtonText));
  const QByteArray disabled = Dessin(name, palette.color(QPalette::Disabled, QPalette::ButtonText));
  QIcon icon;
  for (const int size : sizes) {
    icon.addPixmap(Peint(normal, size), QIcon::Normal);
    icon.addPixmap(Peint(disabled, size), QIcon::Disabled);
  }
  return icon;
}

QPixmap Image(const QString& name, const QPalette& palette, int size, qreal ratio) {
  const QByteArray svg = Dessin(name, palette.color(QPalette::WindowText));
  QPixmap pixmap = Peint(svg, qRound(size * ratio));
  pixmap.setDevicePixelRatio(ratio);
  return pixmap;
}

}  // namespace talpena
