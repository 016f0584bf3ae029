#include "platform/qt/private_folder.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include "common/talpena_error.h"

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace talpena {
namespace {

constexpr QFile::Permissions OwnerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

bool EstAUtilisateur(const QFileInfo& folder) {
#ifdef Q_OS_UNIX
  return folder.ownerId() == geteuid();
#else
  return folder.exists();  // the profile's access list keeps others out
#endif
}

}  // namespace

std::string DossierPrive() {
  const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
  const QString path = cache + u"/Talpena"_s;
  QDir().mkpath(cache);
  QDir().mkdir(path, OwnerOnly);  // fails when it is there already
  const QFileInfo folder(path);
  const bool ours = folder.isDir() && !folder.isSymLink() && EstAUtilisateur(folder);
  if (!ours || !QFile::setPermissions(path, OwnerOnly)) {
    throw TalpenaError(ErrorNumber::PathFileAccess,
                       "Path/File access error: " + QDir::toNativeSeparators(path).toStdString(),
                       {.about = {QDir::toNativeSeparators(path).toStdString()}});
  }
  return QDir::toNativeSeparators(path).toStdString();
}

}  // namespace talpena
