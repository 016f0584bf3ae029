#include "platform/os/posix_output.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>
#include <vector>

#include "platform/os/posix_error.h"
#include "platform/os/posix_input.h"
#include "platform/os/posix_size_signal.h"
#include "platform/os/posix_temporary.h"

namespace talpena {
namespace {

constexpr std::size_t blockBytes = std::size_t{256} * 1024;

/// The bytes of a file up to and with the last `end`; 0 when there is none.
off_t LongueurJusqua(int file, off_t size, std::string_view end) {
  std::vector<char> block(blockBytes);
  const auto overlap = static_cast<off_t>(end.size()) - 1;  // an end may lie across two blocks
  for (off_t last = size; last > 0;) {
    const off_t first = std::max<off_t>(0, last - static_cast<off_t>(block.size()));
    const ssize_t count = pread(file, block.data(), static_cast<std::size_t>(last - first), first);
    if (count <= 0) return 0;
    const std::size_t found =
        std::string_view(block.data(), static_cast<std::size_t>(count)).rfind(end);
    if (found != std::string_view::npos) return first + static_cast<off_t>(found + end.size());
    last = first == 0 ? 0 : first + overlap;
  }
  return 0;
}

class PosixOutput final : public OutputFile {
 public:
  PosixOutput(const OutputPlace& place, std::optional<FileAttributes> attributes)
      : shown_(place.shown),
        attributes_(std::move(attributes)),
        // The owner alone may read it until it has the mode of the file that it replaces.
        temporary_(place.shown, place.target, place.name, attributes_ ? 0600 : 0666) {
    buffer_.reserve(blockBytes + blockBytes / 4);
  }

  void Ecrit(std::string_view bytes) override {
    buffer_.append(bytes);
    if (buffer_.size() >= blockBytes) Vide();
  }

  void Remplace() override {
    Finit();
    temporary_.Place();
  }

  void RemplaceEnGardant(const std::string& backup) override {
    Finit();
    temporary_.PlaceEnGardant(backup);
  }

  void Coupe(std::string_view end) override {
    if (VideCeQuiPasse() != 0) buffer_.clear();
    syncError_ = 0;
    struct stat status {};
    if (end.empty() || fstat(temporary_.Fichier(), &status) != 0) return;
    const off_t kept = LongueurJusqua(temporary_.Fichier(), status.st_size, end);
    if (kept == status.st_size) return;
    if (ftruncate(temporary_.Fichier(), kept) != 0 ||
        lseek(temporary_.Fichier(), kept, SEEK_SET) != kept) {
      LanceErreurFichier(errno, shown_);
    }
  }

 private:
  /// Writes out the buffer as far as it goes; 0 or errno.
  int VideCeQuiPasse() {
    const SansSignalDeTaille guard;
    std::size_t done = 0;
    int error = 0;
    while (done < buffer_.size() && error == 0) {
      const ssize_t written =
          write(temporary_.Fichier(), buffer_.data() + done, buffer_.size() - done);
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

  void Finit() {
    if (temporary_.EnPlace()) return;
    Vide();
    Synchronise();
  }

  /// A failed sync is final: the kernel forgets the pages it could not write, and a second try
  /// would succeed without them.
  void Synchronise() {
    if (attributes_) PoseAttributs(temporary_.Fichier(), *attributes_);
    if (syncError_ == 0 && fsync(temporary_.Fichier()) != 0 && errno != EINVAL && errno != EROFS) {
      syncError_ = errno;
    }
    if (syncError_ != 0) LanceErreurFichier(syncError_, shown_);
  }

  std::string shown_;
  std::optional<FileAttributes> attributes_;
  PosixTemporary temporary_;
  std::string buffer_;
  int syncError_ = 0;
};

}  // namespace

std::unique_ptr<OutputFile> CreeSortiePosix(const OutputPlace& place,
                                            const std::optional<FileAttributes>& attributes) {
  return std::make_unique<PosixOutput>(place, attributes);
}

void CopieFichier(const std::string& from, const std::string& to, const std::string& name) {
  PosixInput input(from);
  PosixOutput output({to, to, name}, input.Attributs());
  std::vector<char> block(blockBytes);
  while (const std::size_t count = input.Lit(block)) output.Ecrit({block.data(), count});
  output.Remplace();
}

}  // namespace talpena
