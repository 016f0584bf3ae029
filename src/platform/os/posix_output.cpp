#include "platform/os/posix_output.h"

#include <fcntl.h>
#include <signal.h>
#include <stdio.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <random>
#include <utility>

#include "platform/os/posix_error.h"
#include "platform/os/posix_paths.h"

namespace talpena {
namespace {

constexpr std::size_t blockBytes = std::size_t{256} * 1024;

/// While it lives a write beyond the file size limit fails instead of ending the process.
class SansSignalDeTaille {
 public:
  SansSignalDeTaille() {
    sigemptyset(&signal_);
    sigaddset(&signal_, SIGXFSZ);
    pthread_sigmask(SIG_BLOCK, &signal_, &former_);
    wasPending_ = EnAttente();
  }
  SansSignalDeTaille(const SansSignalDeTaille&) = delete;
  SansSignalDeTaille& operator=(const SansSignalDeTaille&) = delete;
  ~SansSignalDeTaille() {
    if (!wasPending_ && EnAttente()) {
      int taken = 0;
      sigwait(&signal_, &taken);
    }
    pthread_sigmask(SIG_SETMASK, &former_, nullptr);
  }

 private:
  static bool EnAttente() {
    sigset_t pending;
    sigemptyset(&pending);
    sigpending(&pending);
    return sigismember(&pending, SIGXFSZ) == 1;
  }

  sigset_t signal_{};
  sigset_t former_{};
  bool wasPending_ = false;
};

std::string NomTemporaire() {
  std::random_device random;
  std::uint64_t number = (std::uint64_t{random()} << 32) | random();
  std::string name = ".talpena-";
  for (int i = 0; i < 16; ++i, number >>= 4) name += "0123456789abcdef"[number & 15];
  return name + ".tmp";
}

class PosixOutput final : public OutputFile {
 public:
  PosixOutput(std::string shown, std::string target, std::optional<FileAttributes> attributes)
      : shown_(std::move(shown)), target_(std::move(target)), attributes_(std::move(attributes)) {
    OuvreTemporaire();
    buffer_.reserve(blockBytes + blockBytes / 4);
  }
  PosixOutput(const PosixOutput&) = delete;
  PosixOutput& operator=(const PosixOutput&) = delete;
  ~PosixOutput() override {
    if (file_ >= 0) close(file_);
    if (!enPlace_) unlink(temporary_.c_str());
  }

  void Ecrit(std::string_view bytes) override {
    buffer_.append(bytes);
    if (buffer_.size() >= blockBytes) Vide();
  }

  void Remplace() override {
    Vide();
    Place();
  }

  void RemplaceTronque() override {
    const int error = VideCeQuiPasse();
    if (error != 0) buffer_.clear();
    syncError_ = 0;
    Place();
  }

 private:
  /// The owner alone may read it until it has the mode of the file that it replaces.
  void OuvreTemporaire() {
    const mode_t mode = attributes_ ? 0600 : 0666;
    for (int attempt = 0; attempt < 100; ++attempt) {
      temporary_ = DossierParent(target_) + "/" + NomTemporaire();
      file_ = open(temporary_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode);
      if (file_ >= 0 || errno != EEXIST) break;
    }
    if (file_ >= 0) return;
    const int error = errno;
    enPlace_ = true;  // nothing to remove
    LanceErreurFichier(error, shown_);
  }

  /// Writes out the buffer as far as it goes; 0 or errno.
  int VideCeQuiPasse() {
    const SansSignalDeTaille guard;
    std::size_t done = 0;
    int error = 0;
    while (done < buffer_.size() && error == 0) {
      const ssize_t written = write(file_, buffer_.data() + done, buffer_.size() - done);
      if (written >= 0) {
        done += static_cast<std::size_t>(written);
      } else if (errno != EINTR) {
        error = errno;
      }
    }
    buffer_.erase(0, done);
    return error;
  }

  void Vide() {
    const int error = VideCeQuiPasse();
    if (error != 0) LanceErreurFichier(error, shown_);
  }

  void Place() {
    if (!enPlace_) {
      Synchronise();
      if (rename(temporary_.c_str(), target_.c_str()) != 0) LanceErreurFichier(errno, shown_);
      enPlace_ = true;
    }
    SynchroniseDossier(target_);
  }

  /// A failed sync is final: the kernel forgets the pages it could not write, and a second try
  /// would succeed without them.
  void Synchronise() {
    if (attributes_) PoseAttributs(file_, *attributes_);
    if (syncError_ == 0 && fsync(file_) != 0 && errno != EINVAL && errno != EROFS) {
      syncError_ = errno;
    }
    if (syncError_ != 0) LanceErreurFichier(syncError_, shown_);
  }

  std::string shown_;
  std::string target_;
  std::optional<FileAttributes> attributes_;
  std::string temporary_;
  std::string buffer_;
  int file_ = -1;
  int syncError_ = 0;
  bool enPlace_ = false;  ///< the temporary has become the target
};

}  // namespace

std::unique_ptr<OutputFile> CreeSortiePosix(const std::string& shown, const std::string& target,
                                            const std::optional<FileAttributes>& attributes) {
  return std::make_unique<PosixOutput>(shown, target, attributes);
}

}  // namespace talpena
