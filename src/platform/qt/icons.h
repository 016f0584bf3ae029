// The program's own icons, in the colours of the desktop.
#pragma once
#include <QIcon>
#include <QPalette>
#include <QPixmap>
#include <QString>

namespace talpena {

/// An icon of data/icons by its name ("open"). What is drawn in currentColor takes the text
/// colour of the palette, so icons are loaded again when the palette changes.
QIcon Icone(const QString& name, const QPalette& palette);

/// One picture of `size` logical pixels, sharp on a screen of that device pixel ratio.
QPixmap Image(const QString& name, const QPalette& palette, int size, qreal ratio);

}  // namespace talpena
