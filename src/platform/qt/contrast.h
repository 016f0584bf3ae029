// Which colours are easy to read on each other.
#pragma once
#include <QColor>
#include <QPalette>
#include <span>

namespace talpena {

/// Contrast ratio of two opaque colours, 1 to 21. Source: W3C, Web Content Accessibility
/// Guidelines 2.1 (2018), definitions of "relative luminance" and "contrast ratio".
double Contraste(const QColor& a, const QColor& b);

/// The smallest of the contrasts with several backgrounds.
double MoindreContraste(const QColor& colour, std::span<const QColor> backgrounds);

/// A colour as it is seen over an opaque background.
QColor VuSur(const QColor& colour, const QColor& background);

/// Smallest contrast of a text that is easy to read (same source, criterion 1.4.3), and that of
/// one which is out of use and need not be read (criterion 1.4.11 asks it of pictures).
inline constexpr double ContrasteLisible = 4.5, ContrasteInactif = 3;

/// True when the windows of a palette are darker than their texts.
bool EstSombre(const QPalette& palette);

/// The desktop's text colour on a background; black or white, whichever stands out more, when the
/// desktop's own would be hard to read on it (a light grid in a dark desktop).
QColor TexteLisible(const QColor& background, const QColor& desktopText);

/// A colour moved towards black or white, as little as it takes to stand out of all backgrounds
/// by that contrast; the same when it does. Black or white where nothing is enough.
QColor Eloigne(const QColor& colour, std::span<const QColor> backgrounds, double contrast);

}  // namespace talpena
