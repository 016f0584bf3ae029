#include "platform/os/posix_owner.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace talpena {
namespace {

/// Whether another program holds a lock on an open file, of either kind that there is.
bool EstVerrouille(int file) {
  struct flock whole {};
  whole.l_type = F_WRLCK;
  whole.l_whence = SEEK_SET;
  if (fcntl(file, F_GETLK, &whole) == 0 && whole.l_type != F_UNLCK) return true;
  return flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

}  // namespace

bool EstVerrouillePosix(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (file < 0) return false;
  struct stat status {};
  const bool locked = fstat(file, &status) == 0 && S_ISREG(status.st_mode) && EstVerrouille(file);
  close(file);
  return locked;
}

bool EstLibrePosix(const std::string& path) {
  struct stat status {};
  if (lstat(path.c_str(), &status) != 0) return errno == ENOENT;
  if (!S_ISREG(status.st_mode) || status.st_uid != geteuid()) return false;
  const int file = open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY);
  if (file < 0) return true;  // write-protected: nobody writes into it, so nobody holds it
  const bool locked = EstVerrouille(file);
  close(file);
  return !locked;
}

}  // namespace talpena
