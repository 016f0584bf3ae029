#include "platform/foreign/bytes_at.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "common/talpena_error.h"
#include "platform/foreign/errors.h"
#include "platform/foreign/isolated_process.h"
#include "platform/os/posix_error.h"

namespace talpena {
namespace {

class FileBytes final : public BytesAt {
 public:
  FileBytes(std::string path, Descripteur fd, std::uint64_t size)
      : path_(std::move(path)), fd_(std::move(fd)), size_(size) {}

  std::uint64_t Taille() const override { return size_; }

  std::size_t Lit(std::uint64_t place, std::span<char> into) const override {
    std::size_t done = 0;
    while (done < into.size()) {
      const ssize_t read = pread(fd_.Numero(), into.data() + done, into.size() - done,
                                 static_cast<off_t>(place + done));
      if (read == 0) break;
      if (read > 0) {
        done += static_cast<std::size_t>(read);
      } else if (errno != EINTR) {
        LanceErreurFichier(errno, path_);
      }
    }
    return done;
  }

 private:
  std::string path_;
  Descripteur fd_;
  std::uint64_t size_;
};

[[noreturn]] void RefuseOuverture(int error, const std::string& path) {
  if (error == EACCES) {
    throw TalpenaError(ErrorNumber::PermissionDenied, "Permission denied: '" + path + "'.",
                       {.about = {path}});
  }
  throw TalpenaError(ErrorNumber::DatabaseNotFound, "Could not find file '" + path + "'.",
                     {.about = {path}});
}

}  // namespace

std::unique_ptr<BytesAt> OuvreOctets(const std::string& path) {
  Descripteur fd(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (!fd.Ouvert()) RefuseOuverture(errno, path);
  struct stat status {};
  if (fstat(fd.Numero(), &status) != 0 || !S_ISREG(status.st_mode)) {
    throw foreign::FormatInconnu(path);
  }
  return std::make_unique<FileBytes>(path, std::move(fd),
                                     static_cast<std::uint64_t>(status.st_size));
}

std::string_view ByteWindow::Vue(std::uint64_t place, std::size_t count) {
  constexpr std::size_t least = std::size_t{4} << 10, most = std::size_t{256} << 10;
  const std::uint64_t size = bytes_.Taille();
  if (place >= size) return {};
  const auto there = static_cast<std::size_t>(std::min<std::uint64_t>(count, size - place));
  if (place < from_ || place + there > from_ + kept_.size()) {
    const bool onward = place >= from_ && place <= from_ + kept_.size() + least;
    block_ = onward ? std::min(2 * block_ + least, most) : least;
    from_ = place;
    kept_.resize(
        static_cast<std::size_t>(std::min<std::uint64_t>(std::max(there, block_), size - place)));
    kept_.resize(bytes_.Lit(place, kept_));
  }
  const std::string_view all(kept_.data(), kept_.size());
  return all.substr(static_cast<std::size_t>(place - from_), there);
}

}  // namespace talpena
