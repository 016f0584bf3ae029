#include "platform/qt/icons.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <array>
#include <map>
#include <utility>

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

/// Draws a picture when it is first asked for: a window has dozens of icons in menus that nobody
/// opens, in sizes that its screen has no use for. The rest is done as for an icon that holds all
/// sizes from the beginning. Held by Icons.LookAsThoughAllSizesWereDrawn.
class IconEngine final : public QIconEngine {
 public:
  IconEngine(QString name, const QPalette& palette)
      : name_(std::move(name)),
        normal_(palette.color(QPalette::Active, QPalette::ButtonText)),
        disabled_(palette.color(QPalette::Disabled, QPalette::ButtonText)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    const QSize size = rect.size() * painter->device()->devicePixelRatio();
    Donne(size, mode).paint(painter, rect, Qt::AlignCenter, mode, state);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return Donne(size, mode).pixmap(size, 1, mode, state);
  }
  QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override {
    const QSize drawn(Cote(size), Cote(size));
    const bool fits = drawn.width() <= size.width() && drawn.height() <= size.height();
    return fits ? drawn : drawn.scaled(size, Qt::KeepAspectRatio);
  }
  QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override {
    QList<QSize> all;
    if (state != QIcon::Off || (mode != QIcon::Normal && mode != QIcon::Disabled)) return all;
    for (const int size : sizes) all.append(QSize(size, size));
    return all;
  }
  QIconEngine* clone() const override { return new IconEngine(*this); }
  bool isNull() override { return false; }

 private:
  /// Side of the picture that a place of that size is given.
  static int Cote(const QSize& size) {
    const auto large = [&size](int side) { return side * side >= size.width() * size.height(); };
    const auto found = std::find_if(sizes.begin(), sizes.end(), large);
    return found == sizes.end() ? sizes.back() : *found;
  }
  const QIcon& Donne(const QSize& size, QIcon::Mode mode) {
    const bool disabled = mode == QIcon::Disabled;
    const int side = Cote(size);
    QIcon& drawn = drawn_[{side, disabled}];
    if (drawn.isNull()) {
      drawn.addPixmap(Peint(Dessin(name_, disabled ? disabled_ : normal_), side),
                      disabled ? QIcon::Disabled : QIcon::Normal);
    }
    return drawn;
  }

  QString name_;
  QColor normal_, disabled_;
  std::map<std::pair<int, bool>, QIcon> drawn_;  ///< by side, and whether disabled
};

}  // namespace

QIcon Icone(const QString& name, const QPalette& palette) {
  return QIcon(new IconEngine(name, palette));
}

QPixmap Image(const QString& name, const QPalette& palette, int size, qreal ratio) {
  const QByteArray svg = Dessin(name, palette.color(QPalette::WindowText));
  QPixmap pixmap = Peint(svg, qRound(size * ratio));
  pixmap.setDevicePixelRatio(ratio);
  return pixmap;
}

}  // namespace talpena
