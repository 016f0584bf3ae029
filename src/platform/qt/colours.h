// Colours as settings keep them and as Qt paints them.
#pragma once
#include <QColor>
#include <QPalette>
#include <cstdint>

namespace talpena {

/// The colour of a number 0xBBGGRR, or of a system colour number (0x80000000 and above), which
/// takes its role of the palette. A system colour without a role there is the window text's.
QColor EnQColor(std::uint32_t couleur, const QPalette& palette);

/// The colour of a number 0xBBGGRR; what stands above it is ignored.
QColor EnQColor(std::uint32_t couleur);

/// A colour as 0xBBGGRR; transparency is lost.
std::uint32_t EnCouleur(const QColor& color);

}  // namespace talpena
