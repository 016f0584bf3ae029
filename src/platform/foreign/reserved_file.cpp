#include "platform/foreign/reserved_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/foreign/errors.h"
#include "platform/os/posix_error.h"
#include "platform/os/posix_size_signal.h"

namespace talpena {
namespace {

constexpr std::size_t reserveBytes = std::size_t{4} << 20;

constexpr mode_t modeFichier = 0666;  // less what the user's mask takes off

}  // namespace

ReservedFile::ReservedFile(std::string path, std::size_t most)
    : path_(std::move(path)),
      most_(most),
      fd_(open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOCTTY, modeFichier)) {
  if (!fd_.Ouvert()) LanceErreurFichier(errno, path_);
}

void ReservedFile::Assure(std::size_t size) {
  if (size > most_) throw foreign::FichierPlein(path_);
  if (size > reserved_) Reserve(size);
  used_ = std::max(used_, size);
}

void ReservedFile::Reserve(std::size_t needed) {
  const SansSignalDeTaille guard;
  const auto from = static_cast<off_t>(reserved_);
  std::size_t bytes = std::max(needed, std::min(reserved_ + reserveBytes, most_));
  int error = posix_fallocate(fd_.Numero(), from, static_cast<off_t>(bytes) - from);
  if (error == ENOSPC || error == EFBIG) {  // perhaps there is room for as much as is needed
    bytes = needed;
    error = posix_fallocate(fd_.Numero(), from, static_cast<off_t>(bytes) - from);
  }
  // Where the file system cannot set room aside, writing tells.
  if (error != 0 && error != EOPNOTSUPP && error != EINVAL) LanceErreurFichier(error, path_);
  reserved_ = bytes;
}

void ReservedFile::Ecrit(std::size_t place, std::string_view bytes) {
  const SansSignalDeTaille guard;
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t written = pwrite(fd_.Numero(), bytes.data() + done, bytes.size() - done,
                                   static_cast<off_t>(place + done));
    if (written >= 0) {
      done += static_cast<std::size_t>(written);
    } else if (errno != EINTR) {
      LanceErreurFichier(errno, path_);
    }
  }
}

/// Gives back what was set aside and is not used.
bool ReservedFile::Coupe(std::size_t size) {
  if (ftruncate(fd_.Numero(), static_cast<off_t>(size)) != 0) return false;
  reserved_ = size;
  return true;
}

void ReservedFile::Acheve(std::size_t size) {
  if (!Coupe(size) || (fsync(fd_.Numero()) != 0 && errno != EINVAL && errno != EROFS)) {
    LanceErreurFichier(errno, path_);
  }
  used_ = size;
  whole_ = true;
}

ReservedFile::~ReservedFile() {
  if (!whole_) {
    unlink(path_.c_str());
  } else if (reserved_ > used_) {
    static_cast<void>(Coupe(used_));
  }
}

}  // namespace talpena
