#include "platform/foreign/excel/byte_source.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "common/talpena_error.h"

namespace talpena::excel {
namespace {

/// Not blocking, so that a pipe or a device in a file's place cannot hold the program.
Descripteur OuvreEnLecture(const std::string& path) {
  Descripteur fd(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (fd.Ouvert()) return fd;
  if (errno == EACCES) {
    throw TalpenaError(ErrorNumber::PermissionDenied, "Permission denied: '" + path + "'.",
                       {.about = {path}});
  }
  throw TalpenaError(ErrorNumber::DatabaseNotFound, "Could not find file '" + path + "'.",
                     {.about = {path}});
}

}  // namespace

ByteSource::ByteSource(std::string path) : path_(std::move(path)) {}

void ByteSource::Lit(std::size_t place, std::span<char> into) {
  const std::size_t size = Taille();
  if (place > size || into.size() > size - place) Refuse();
  if (!into.empty()) LitDedans(place, into);
}

void ByteSource::Refuse() const {
  throw TalpenaError(ErrorNumber::UnrecognizedFormat,
                     "Unrecognized database format '" + path_ + "'.", {.about = {path_}});
}

FileBytes::FileBytes(const std::string& path, std::size_t most)
    : ByteSource(path), fd_(OuvreEnLecture(path)) {
  struct stat status {};
  if (fstat(fd_.Numero(), &status) != 0 || !S_ISREG(status.st_mode)) Refuse();
  size_ = static_cast<std::size_t>(status.st_size);
  if (size_ > most) Refuse();
}

void FileBytes::LitDedans(std::size_t place, std::span<char> into) {
  while (!into.empty()) {
    const ssize_t read = pread(fd_.Numero(), into.data(), into.size(), static_cast<off_t>(place));
    if (read < 0 && errno == EINTR) continue;
    if (read <= 0) Refuse();
    into = into.subspan(static_cast<std::size_t>(read));
    place += static_cast<std::size_t>(read);
  }
}

void MemoryBytes::LitDedans(std::size_t place, std::span<char> into) {
  std::memcpy(into.data(), bytes_.data() + place, into.size());
}

}  // namespace talpena::excel
