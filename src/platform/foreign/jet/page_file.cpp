#include "platform/foreign/jet/page_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/foreign/jet/bytes.h"
#include "platform/foreign/jet/errors.h"
#include "platform/os/posix_error.h"
#include "platform/os/posix_size_signal.h"

namespace talpena::jet {
namespace {

constexpr std::size_t reserveBytes = std::size_t{4} << 20;

constexpr mode_t modeFichier = 0666;  // less what the user's mask takes off

}  // namespace

PageFile::PageFile(std::string path, std::size_t most)
    : path_(std::move(path)),
      most_(most),
      fd_(open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOCTTY, modeFichier)) {
  if (!fd_.Ouvert()) LanceErreurFichier(errno, path_);
}

std::uint32_t PageFile::Alloue() {
  const auto covered = bitPages_.empty()
                           ? pagesInRow
                           : static_cast<std::uint32_t>(bitPages_.size()) * pagesPerBitPage;
  if (pages_ == covered) bitPages_.push_back(Prochaine());
  return Prochaine();
}

std::uint32_t PageFile::Prochaine() {
  const std::size_t needed = (std::size_t{pages_} + 1) * taillePage;
  if (needed > most_) throw FichierPlein(path_);
  if (needed > reserved_) Reserve(std::min(reserved_ + reserveBytes, std::max(needed, most_)));
  return pages_++;
}

void PageFile::Reserve(std::size_t bytes) {
  const SansSignalDeTaille guard;
  const auto from = static_cast<off_t>(reserved_);
  int error = posix_fallocate(fd_.Numero(), from, static_cast<off_t>(bytes) - from);
  if (error == ENOSPC || error == EFBIG) {  // perhaps there is room for a page or two
    bytes = (std::size_t{pages_} + 1) * taillePage;
    error = posix_fallocate(fd_.Numero(), from, static_cast<off_t>(bytes) - from);
  }
  // Where the file system cannot set room aside, writing tells.
  if (error != 0 && error != EOPNOTSUPP && error != EINVAL) LanceErreurFichier(error, path_);
  reserved_ = bytes;
}

void PageFile::Ecrit(std::uint32_t page, std::string_view bytes) {
  const SansSignalDeTaille guard;
  std::size_t done = 0;
  while (done < bytes.size()) {
    const auto place = static_cast<off_t>(page * taillePage + done);
    const ssize_t written = pwrite(fd_.Numero(), bytes.data() + done, bytes.size() - done, place);
    if (written >= 0) {
      done += static_cast<std::size_t>(written);
    } else if (errno != EINTR) {
      LanceErreurFichier(errno, path_);
    }
  }
}

/// Gives back what was set aside and is not used.
bool PageFile::Coupe() {
  const std::size_t size = std::size_t{pages_} * taillePage;
  if (ftruncate(fd_.Numero(), static_cast<off_t>(size)) != 0) return false;
  reserved_ = size;
  return true;
}

void PageFile::Acheve() {
  if (!Coupe() || (fsync(fd_.Numero()) != 0 && errno != EINVAL && errno != EROFS)) {
    LanceErreurFichier(errno, path_);
  }
  whole_ = true;
}

PageFile::~PageFile() {
  if (!whole_) {
    unlink(path_.c_str());
  } else if (reserved_ > std::size_t{pages_} * taillePage) {
    static_cast<void>(Coupe());
  }
}

}  // namespace talpena::jet
