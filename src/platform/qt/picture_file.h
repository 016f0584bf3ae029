// Pictures as files of the user or of the program hold them.
#pragma once
#include <QImage>
#include <QString>

namespace talpena {

/// The picture of a file, of any kind that the toolkit knows, told by its content. Null where it
/// cannot be read, and for a bitmap that ends before its last row: the toolkit would show what the
/// memory held before in the place of the missing rows.
QImage LitImage(const QString& path);

}  // namespace talpena
