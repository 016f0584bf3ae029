#include "platform/qt/single_instance.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSysInfo>

#include "common/talpena_error.h"
#include "platform/qt/private_folder.h"

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#endif

using namespace Qt::StringLiterals;

namespace talpena {
namespace {

/// The folder of the desktop session, when it is this user's; else "".
QString DossierSession() {
#ifdef Q_OS_UNIX
  QString session = qEnvironmentVariable("XDG_RUNTIME_DIR");
  const QFileInfo info(session);
  if (!session.isEmpty() && info.isDir() && info.ownerId() == geteuid()) return session;
#endif
  return {};
}

/// The private folder is one for all sessions of the user: at the screen, over the network, from
/// another user's terminal. Without it there is only that of the session.
QString DossierVerrou() {
  try {
    return QString::fromStdString(DossierPrive());
  } catch (const TalpenaError&) {
    return DossierSession();
  }
}

/// One lock for each machine: they may share the user's folders.
QString CheminVerrou() {
  const QString folder = DossierVerrou();
  const QString machine = QString::fromLatin1(QSysInfo::machineUniqueId());
  if (folder.isEmpty()) return {};
  return folder + u"/talpena"_s + (machine.isEmpty() ? QString() : u'-' + machine) + u".lock"_s;
}

#ifdef Q_OS_UNIX

/// Opens a file, made when it is absent, to be locked; -1 when that is not possible. A pipe or a
/// device in its place is not waited for.
int OuvreVerrou(const QString& path) {
  constexpr int flags = O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;
  const int handle = open(QFile::encodeName(path).constData(), flags, 0600);
  struct stat status {};
  if (handle < 0 || (fstat(handle, &status) == 0 && S_ISREG(status.st_mode))) return handle;
  close(handle);
  return -1;
}

#endif

}  // namespace

SingleInstance::SingleInstance() : SingleInstance(CheminVerrou()) {}

SingleInstance::SingleInstance(const QString& lockFile) : path_(lockFile) {}

SingleInstance::~SingleInstance() = default;

#ifdef Q_OS_UNIX

bool SingleInstance::Acquiert() {
  if (file_ || path_.isEmpty()) return true;
  const int handle = OuvreVerrou(path_);
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
