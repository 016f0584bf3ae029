#include "platform/os/posix_input.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/os/posix_error.h"

namespace talpena {

void VerifieOrdinaire(const struct stat& status, const std::string& path) {
  if (S_ISDIR(status.st_mode)) LanceErreurFichier(EISDIR, path);
  if (!S_ISREG(status.st_mode)) LanceErreurAcces(path, "it is not an ordinary file");
}

PosixInput::PosixInput(std::string path) : path_(std::move(path)) {
  // Without waiting: a pipe would hold the program until somebody writes into it.
  file_ = open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (file_ < 0) LanceErreurFichier(errno, path_);
  try {
    if (fstat(file_, &status_) != 0) LanceErreurFichier(errno, path_);
    VerifieOrdinaire(status_, path_);
  } catch (...) {
    close(file_);
    throw;
  }
}

PosixInput::~PosixInput() { close(file_); }

std::size_t PosixInput::Lit(std::span<char> buffer) {
  ssize_t count = 0;
  do {
    count = read(file_, buffer.data(), buffer.size());
  } while (count < 0 && errno == EINTR);
  if (count < 0) LanceErreurFichier(errno, path_);
  return static_cast<std::size_t>(count);
}

}  // namespace talpena
