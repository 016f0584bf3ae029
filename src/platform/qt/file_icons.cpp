#include "platform/qt/file_icons.h"

#include <QFileInfo>
#include <QMimeDatabase>

namespace talpena {

QIcon FileIcons::icon(const QFileInfo& file) const {
  return icon(file.isDir() ? QAbstractFileIconProvider::Folder : QAbstractFileIconProvider::File);
}

QString FileIcons::type(const QFileInfo& file) const {
  if (file.isDir()) return QFileIconProvider::type(file);
  return QMimeDatabase().mimeTypeForFile(file.fileName(), QMimeDatabase::MatchExtension).comment();
}

}  // namespace talpena
