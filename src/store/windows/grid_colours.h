// Colours of the grid: which text colour stays legible on which background.
#pragma once
#include <cstdint>

namespace talpena {

/// A colour as the screen shows it.
struct Rgb {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  bool operator==(const Rgb&) const = default;
};

/// Stored colour numbers are 0xBBGGRR, or one of the desktop's own colours from 0x80000000 on.
namespace SystemColour {
inline constexpr std::uint32_t First = 0x80000000;
inline constexpr std::uint32_t ButtonFace = 0x8000000F;
}  // namespace SystemColour

constexpr bool EstCouleurSysteme(std::uint32_t stored) { return stored >= SystemColour::First; }

/// Contrast ratio of two colours, 1 to 21. Source: W3C, Web Content Accessibility Guidelines 2.1
/// (2018), definitions of "relative luminance" and "contrast ratio".
double Contraste(Rgb a, Rgb b);

/// Smallest contrast of a text that is easy to read (same source, criterion 1.4.3).
inline constexpr double ContrasteLisible = 4.5;

/// The desktop's text colour on a background; black or white, whichever stands out more, when the
/// desktop's own would be hard to read on it (a light grid in a dark desktop).
Rgb TexteLisible(Rgb background, Rgb desktopText);

}  // namespace talpena
