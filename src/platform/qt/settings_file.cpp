#include "platform/qt/settings_file.h"

#include <QDir>
#include <QFile>
#include <QThread>

#include "common/talpena_error.h"

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#endif

using namespace Qt::StringLiterals;

namespace talpena {

#ifdef Q_OS_UNIX
namespace {

[[noreturn]] void Refuse(const QString& path) {
  throw TalpenaError(ErrorNumber::PathFileAccess,
                     "Path/File access error: " + QDir::toNativeSeparators(path).toStdString());
}

bool EstAbsent(const QString& path) {
  struct stat status {};
  return lstat(QFile::encodeName(path).constData(), &status) != 0 && errno == ENOENT;
}

/// Takes the lock of an open lock file; false while a running program has it. The system gives it
/// back when its holder ends in whatever way, so what can be taken is left over.
bool PrendVerrou(int handle) {
  constexpr int tries = 40;
  constexpr unsigned long betweenMs = 50;
  for (int i = 0; i < tries; ++i) {
    if (flock(handle, LOCK_EX | LOCK_NB) == 0) return true;
    if (errno != EWOULDBLOCK && errno != EINTR) return true;  // a disk that knows no locks
    QThread::msleep(betweenMs);
  }
  return false;
}

/// Removes a lock file that no running program holds; false when that is not possible.
bool EnleveVerrou(const QString& path) {
  const QByteArray name = QFile::encodeName(path);
  const int handle = open(name.constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
  if (handle < 0) return errno == ENOENT;
  struct stat status {};
  const bool gone = fstat(handle, &status) == 0 && S_ISREG(status.st_mode) && PrendVerrou(handle) &&
                    (unlink(name.constData()) == 0 || errno == ENOENT);
  close(handle);
  return gone;
}

}  // namespace

bool EstLisible(const QString& file) {
  struct stat status {};
  if (stat(QFile::encodeName(file).constData(), &status) == 0) return S_ISREG(status.st_mode);
  return true;
}

void PrepareEcriture(const QString& file) {
  if (!EstLisible(file)) Refuse(file);
  const QString lock = file + u".lock"_s;
  if (!EstAbsent(lock) && !EnleveVerrou(lock)) Refuse(lock);
}

#else  // the registry

bool EstLisible(const QString&) { return true; }
void PrepareEcriture(const QString&) {}

#endif

}  // namespace talpena
