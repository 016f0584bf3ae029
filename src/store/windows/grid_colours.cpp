#include "store/windows/grid_colours.h"

#include <algorithm>
#include <cmath>

namespace talpena {
namespace {

double Lineaire(std::uint8_t channel) {
  const double c = channel / 255.0;
  return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

double Luminance(Rgb c) {
  return 0.2126 * Lineaire(c.red) + 0.7152 * Lineaire(c.green) + 0.0722 * Lineaire(c.blue);
}

}  // namespace

double Contraste(Rgb a, Rgb b) {
  const auto [low, high] = std::minmax({Luminance(a), Luminance(b)});
  return (high + 0.05) / (low + 0.05);
}

Rgb TexteLisible(Rgb background, Rgb desktopText) {
  if (Contraste(background, desktopText) >= ContrasteLisible) return desktopText;
  constexpr Rgb black{0, 0, 0};
  constexpr Rgb white{255, 255, 255};
  return Contraste(background, black) >= Contraste(background, white) ? black : white;
}

}  // namespace talpena
