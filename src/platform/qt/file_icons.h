// What the file dialogs show beside a name.
#pragma once
#include <QFileIconProvider>

namespace talpena {

/// Icons and kinds of files by their names alone: the toolkit's own provider opens every file that
/// it lists and reads its beginning.
class FileIcons : public QFileIconProvider {
 public:
  using QFileIconProvider::icon;
  QIcon icon(const QFileInfo& file) const override;
  QString type(const QFileInfo& file) const override;
};

}  // namespace talpena
