// The user's files by POSIX calls.
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>
#include <vector>

#include "platform/os/file_attributes.h"
#include "platform/os/file_system.h"
#include "platform/os/posix_error.h"
#include "platform/os/posix_output.h"
#include "platform/os/posix_owner.h"
#include "platform/os/posix_paths.h"

namespace talpena {
namespace {

std::optional<struct stat> Etat(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return std::nullopt;
  return status;
}

/// Refuses folders, pipes and devices.
void VerifieOrdinaire(const struct stat& status, const std::string& path) {
  if (S_ISDIR(status.st_mode)) LanceErreurFichier(EISDIR, path);
  if (!S_ISREG(status.st_mode)) LanceErreurAcces(path, "it is not an ordinary file");
}

class PosixInput final : public InputFile {
 public:
  explicit PosixInput(std::string path) : path_(std::move(path)) {
    // Without waiting: a pipe would hold the program until somebody writes into it.
    file_ = open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (file_ < 0) LanceErreurFichier(errno, path_);
    struct stat status {};
    try {
      if (fstat(file_, &status) != 0) LanceErreurFichier(errno, path_);
      VerifieOrdinaire(status, path_);
    } catch (...) {
      close(file_);
      throw;
    }
    size_ = status.st_size;
  }
  PosixInput(const PosixInput&) = delete;
  PosixInput& operator=(const PosixInput&) = delete;
  ~PosixInput() override { close(file_); }

  std::size_t Lit(std::span<char> buffer) override {
    ssize_t count = 0;
    do {
      count = read(file_, buffer.data(), buffer.size());
    } while (count < 0 && errno == EINTR);
    if (count < 0) LanceErreurFichier(errno, path_);
    return static_cast<std::size_t>(count);
  }
  std::int64_t Taille() const override { return size_; }

 private:
  std::string path_;
  int file_ = -1;
  std::int64_t size_ = 0;
};

/// Renames, never over another file.
int RenommeSansEcraser(const std::string& from, const std::string& to) {
#ifdef __linux__
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS) return errno;
#endif
  struct stat there {};
  if (lstat(to.c_str(), &there) == 0) return EEXIST;
  return rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

class PosixFileSystem final : public FileSystem {
 public:
  bool Existe(const std::string& path) override {
    const auto status = path.find('\0') == std::string::npos ? Etat(path) : std::nullopt;
    return status && !S_ISDIR(status->st_mode);
  }

  std::unique_ptr<InputFile> Ouvre(const std::string& path) override {
    VerifieChemin(path);
    return std::make_unique<PosixInput>(path);
  }

  std::unique_ptr<OutputFile> Cree(const std::string& path) override { return CreeComme(path, {}); }

  std::unique_ptr<OutputFile> CreeComme(const std::string& path,
                                        const std::string& model) override {
    VerifieChemin(path);
    const std::string target = SuitLiens(path);
    if (const auto former = Etat(target)) {
      VerifieOrdinaire(*former, path);
      // A rename would get past a write protection that the user put on the file.
      if (faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) {
        LanceErreurFichier(errno, path);
      }
      return CreeSortiePosix(path, target, AttributsDe(target, *former));
    }
    if (errno != ENOENT) LanceErreurFichier(errno, path);
    std::optional<FileAttributes> attributes;
    if (const auto status = Etat(model)) attributes = AttributsDe(model, *status);
    return CreeSortiePosix(path, target, attributes);
  }

  void Supprime(const std::string& path) override {
    VerifieChemin(path);
    struct stat status {};
    if (lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) {
      LanceErreurFichier(EISDIR, path);
    }
    if (unlink(path.c_str()) != 0) LanceErreurFichier(errno, path);
    SynchroniseDossier(path);
  }

  bool EstLibre(const std::string& path) override {
    VerifieChemin(path);
    return EstLibrePosix(path);
  }

  void Renomme(const std::string& from, const std::string& to) override {
    VerifieChemin(from);
    VerifieChemin(to);
    const std::string source = SuitLiens(from);
    const auto status = Etat(source);
    if (!status) LanceErreurFichier(errno, from);
    VerifieOrdinaire(*status, from);
    const int error = RenommeSansEcraser(source, to);
    if (error == EXDEV) {
      Deplace(source, *status, from, to);
    } else if (error != 0) {
      LanceErreurFichier(error, error == EEXIST ? to : from);
    }
    SynchroniseDossier(to);
    SynchroniseDossier(source);
  }

  std::optional<FileStamp> Empreinte(const std::string& path) override {
    const auto status = path.find('\0') == std::string::npos ? Etat(path) : std::nullopt;
    if (!status) return std::nullopt;
    const std::int64_t seconds = status->st_mtim.tv_sec;
    return FileStamp{
        .size = status->st_size,
        .modifiedNs = seconds * 1'000'000'000 + status->st_mtim.tv_nsec,
        .identity = std::uint64_t{status->st_ino} ^ (std::uint64_t{status->st_dev} << 48)};
  }

 private:
  /// Moves between two file systems: whole and synced over there before it goes over here.
  void Deplace(const std::string& source, const struct stat& status, const std::string& from,
               const std::string& to) {
    struct stat there {};
    if (lstat(to.c_str(), &there) == 0) LanceErreurFichier(EEXIST, to);
    PosixInput input(source);
    const auto output = CreeSortiePosix(to, to, AttributsDe(source, status));
    std::vector<char> block(std::size_t{256} * 1024);
    while (const std::size_t count = input.Lit(block)) output->Ecrit({block.data(), count});
    output->Remplace();
    if (unlink(source.c_str()) != 0) LanceErreurFichier(errno, from);
  }
};

}  // namespace

std::unique_ptr<FileSystem> CreeSystemeDeFichiersPosix() {
  return std::make_unique<PosixFileSystem>();
}

}  // namespace talpena
