#include "platform/qt/contrast.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace talpena {
namespace {

double Lineaire(double channel) {
  return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& c) {
  return 0.2126 * Lineaire(c.redF()) + 0.7152 * Lineaire(c.greenF()) + 0.0722 * Lineaire(c.blueF());
}

constexpr int steps = 255;

/// A colour on its way to another one; 0 is the colour itself.
QColor Entre(const QColor& from, const QColor& to, int step) {
  const auto part = [step](int a, int b) { return a + (b - a) * step / steps; };
  return {part(from.red(), to.red()), part(from.green(), to.green()), part(from.blue(), to.blue())};
}

}  // namespace

double Contraste(const QColor& a, const QColor& b) {
  const auto [low, high] = std::minmax({Luminance(a), Luminance(b)});
  return (high + 0.05) / (low + 0.05);
}

double MoindreContraste(const QColor& colour, std::span<const QColor> backgrounds) {
  double least = 21;
  for (const QColor& background : backgrounds) {
    least = std::min(least, Contraste(VuSur(colour, background), background));
  }
  return least;
}

QColor VuSur(const QColor& colour, const QColor& background) {
  QColor opaque = colour;
  opaque.setAlpha(255);
  return Entre(background, opaque, colour.alpha());
}

bool EstSombre(const QPalette& palette) {
  return Luminance(palette.color(QPalette::Active, QPalette::Window)) <
         Luminance(palette.color(QPalette::Active, QPalette::WindowText));
}

QColor TexteLisible(const QColor& background, const QColor& desktopText) {
  if (Contraste(background, desktopText) >= ContrasteLisible) return desktopText;
  const bool black = Contraste(background, Qt::black) >= Contraste(background, Qt::white);
  return black ? Qt::black : Qt::white;
}

QColor Eloigne(const QColor& colour, std::span<const QColor> backgrounds, double contrast) {
  if (backgrounds.empty() || MoindreContraste(colour, backgrounds) >= contrast) return colour;
  const QColor seen = VuSur(colour, backgrounds.front());
  const std::array ends = {QColor(Qt::black), QColor(Qt::white)};
  const bool toBlack =
      MoindreContraste(ends[0], backgrounds) >= MoindreContraste(ends[1], backgrounds);
  const QColor& end = ends.at(toBlack ? 0 : 1);
  for (int step = 0; step < steps; ++step) {
    const QColor moved = Entre(seen, end, step);
    if (MoindreContraste(moved, backgrounds) >= contrast) return moved;
  }
  return end;
}

}  // namespace talpena
