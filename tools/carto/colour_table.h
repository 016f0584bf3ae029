// Pictures of 256 colours.
#pragma once
#include <QImage>

namespace talpena {

/// The same picture with a table of its 256 most frequent colours; each of the others, which are
/// edges of lines, becomes the nearest of these.
QImage AvecTable(const QImage& picture);

}  // namespace talpena
