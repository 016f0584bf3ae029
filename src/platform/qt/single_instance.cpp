#include "platform/qt/single_instance.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>

#include "common/talpena_error.h"
#include "platform/qt/private_folder.h"

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#endif

using namespace Qt::StringLiterals;

namespace talpena {
namespace {

/// The folder of the desktop session, when it is this user's; else the private one, else "".
QString DossierVerrou() {
#ifdef Q_OS_UNIX
  QString session = qEnvironmentVariable("XDG_RUNTIME_DIR");
  const QFileInfo info(session);
  if (!session.isEmpty() && info.isDir() && info.ownerId() == geteuid()) return session;
#endif
  try {
    return QString::fromStdString(DossierPrive());
  } catch (const TalpenaError&) {
    return {};
  }
}

QString CheminVerrou() {
  const QString folder = DossierVerrou();
  return folder.isEmpty() ? QString() : folder + u"/talpena.lock"_s;
}

}  // namespace

SingleInstance::SingleInstance() : SingleInstance(CheminVerrou()) {}

SingleInstance::SingleInstance(const QString& lockFile) : path_(lockFile) {}

SingleInstance::~SingleInstance() = default;

#ifdef Q_OS_UNIX

bool SingleInstance::Acquiert() {
  if (file_ || path_.isEmpty()) return true;
  const int handle =
      open(QFile::encodeName(path_).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (handle < 0) return true;
  auto file = std::make_unique<QFile>();
  if (!file->open(handle, QIODevice::ReadWrite, QFileDevice::AutoCloseHandle)) {
    close(handle);
    return true;
  }
  if (flock(handle, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return false;
  file_ = std::move(file);
  return true;
}

#else

bool SingleInstance::Acquiert() {
  if (lock_ || path_.isEmpty()) return true;
  auto lock = std::make_unique<QLockFile>(path_);
  lock->setStaleLockTime(0);
  if (!lock->tryLock(0) && lock->error() == QLockFile::LockFailedError) return false;
  lock_ = std::move(lock);
  return true;
}

#endif

}  // namespace talpena
