#include "platform/qt/colours.h"

namespace talpena {
namespace {

struct SystemRole {
  std::uint32_t number;
  QPalette::ColorRole role;
};

// System colour numbers as other programs of the desktop know them.
constexpr SystemRole systemRoles[] = {
    {0x00, QPalette::Mid},
    {0x01, QPalette::Dark},
    {0x05, QPalette::Base},
    {0x07, QPalette::Text},
    {0x08, QPalette::WindowText},
    {0x0D, QPalette::Highlight},
    {0x0E, QPalette::HighlightedText},
    {0x0F, QPalette::Button},
    {0x10, QPalette::Mid},
    {0x12, QPalette::ButtonText},
    {0x14, QPalette::Light},
    {0x17, QPalette::ToolTipText},
    {0x18, QPalette::ToolTipBase},
};

}  // namespace

QColor EnQColor(std::uint32_t couleur) {
  return {static_cast<int>(couleur & 0xFF), static_cast<int>(couleur >> 8 & 0xFF),
          static_cast<int>(couleur >> 16 & 0xFF)};
}

QColor EnQColor(std::uint32_t couleur, const QPalette& palette) {
  if (!EstCouleurSysteme(couleur)) return EnQColor(couleur);
  for (const SystemRole& entry : systemRoles) {
    if (entry.number == couleur - SystemColour::First) return palette.color(entry.role);
  }
  return palette.color(QPalette::WindowText);
}

std::uint32_t EnCouleur(const QColor& color) {
  const auto part = [](int value) { return static_cast<std::uint32_t>(value); };
  return part(color.blue()) << 16 | part(color.green()) << 8 | part(color.red());
}

}  // namespace talpena
