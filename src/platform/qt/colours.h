// Colours as settings keep them and as Qt paints them.
#pragma once
#include <QColor>
#include <QPalette>
#include <cstdint>

namespace talpena {

/// Stored colour numbers are 0xBBGGRR, or one of the desktop's own colours from 0x80000000 on.
namespace SystemColour {
inline constexpr std::uint32_t First = 0x80000000;
inline constexpr std::uint32_t ButtonFace = 0x8000000F;
}  // namespace SystemColour

constexpr bool EstCouleurSysteme(std::uint32_t stored) { return stored >= SystemColour::First; }

/// The colour of a number 0xBBGGRR, or of a system colour number (0x80000000 and above), which
/// takes its role of the palette. A system colour without a role there is the window text's.
QColor EnQColor(std::uint32_t couleur, const QPalette& palette);

/// The colour of a number 0xBBGGRR; what stands above it is ignored.
QColor EnQColor(std::uint32_t couleur);

/// A colour as 0xBBGGRR; transparency is lost.
std::uint32_t EnCouleur(const QColor& color);

}  // namespace talpena
