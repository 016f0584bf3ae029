#include "platform/os/posix_side_folder.h"

#include <dirent.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/os/file_attributes.h"
#include "platform/os/left_overs.h"
#include "platform/os/posix_error.h"
#include "platform/os/posix_paths.h"

namespace talpena {
namespace {

constexpr int attemptsForAFolder = 100;
constexpr mode_t modeDossier = 0700;
constexpr std::string_view formerHead = "former-";

bool EstAncien(const std::string& name) { return name.starts_with(formerHead); }

std::vector<std::string> FichiersDe(const std::string& folder) {
  std::vector<std::string> names = NomsDe(folder);
  std::erase_if(names, [](const std::string& name) { return name == "." || name == ".."; });
  std::sort(names.begin(), names.end());
  return names;
}

void VideDossier(const std::string& folder) {
  for (const std::string& name : FichiersDe(folder)) unlink((folder + "/" + name).c_str());
  rmdir(folder.c_str());
}

/// Gives a new file the mode and the owner of the one that it follows, where this user may.
void ReprendAttributs(const std::string& from, const std::string& to) {
  struct stat status {};
  if (stat(from.c_str(), &status) != 0) return;
  const int file = open(to.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
  if (file < 0) return;
  PoseAttributs(file, AttributsDe(from, status));
  close(file);
}

class PosixSideFolder final : public SideFolder {
 public:
  explicit PosixSideFolder(const std::string& path) : place_(DossierParent(path)) {
    if (place_.back() != '/') place_ += '/';
    for (int attempt = 0; attempt < attemptsForAFolder; ++attempt) {
      path_ = place_ + NomDeDossier(NomDansDossier(path));
      if (mkdir(path_.c_str(), modeDossier) == 0) {
        Verrouille();
        path_ += '/';
        return;
      }
      if (errno != EEXIST) break;
    }
    LanceErreurFichier(errno, path);
  }
  PosixSideFolder(const PosixSideFolder&) = delete;
  PosixSideFolder& operator=(const PosixSideFolder&) = delete;
  ~PosixSideFolder() override {
    if (!holdsFormer_) VideDossier(path_);
    if (lock_ >= 0) close(lock_);
  }

  const std::string& Chemin() const override { return path_; }

  void MetEnPlace(const std::vector<std::string>& former) override {
    const std::vector<std::string> files = FichiersDe(path_);
    std::vector<Move> done;
    try {
      for (std::size_t i = 0; i < former.size(); ++i) {
        MetDeCote(former[i], std::string(formerHead) + std::to_string(i), files, done);
      }
      for (const std::string& name : files) Deplace(path_ + name, place_ + name, done);
    } catch (...) {
      Defait(done);
      throw;
    }
    SynchroniseDossier(place_);
    for (const std::string& name : FichiersDe(path_)) unlink((path_ + name).c_str());
  }

 private:
  using Move = std::pair<std::string, std::string>;  // from, to

  void Verrouille() {
    lock_ = open(path_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (lock_ >= 0 && flock(lock_, LOCK_EX | LOCK_NB) != 0) return;  // nobody can lock there
  }

  void MetDeCote(const std::string& name, const std::string& aside,
                 const std::vector<std::string>& files, std::vector<Move>& done) {
    struct stat status {};
    if (lstat((place_ + name).c_str(), &status) != 0) return;  // gone by itself
    Deplace(place_ + name, path_ + aside, done);
    if (std::binary_search(files.begin(), files.end(), name)) {
      ReprendAttributs(path_ + aside, path_ + name);
    }
  }

  /// Never over another file.
  static void Deplace(const std::string& from, const std::string& to, std::vector<Move>& done) {
    const int error = RenommeSansEcraser(from, to);
    if (error == 0) {
      done.emplace_back(from, to);
    } else {
      LanceErreurFichier(error, error == EEXIST ? to : from);
    }
  }

  void Defait(const std::vector<Move>& done) {
    std::for_each(done.rbegin(), done.rend(), [this](const Move& move) {
      if (RenommeSansEcraser(move.second, move.first) != 0) holdsFormer_ = true;
    });
  }

  std::string place_;
  std::string path_;
  int lock_ = -1;
  bool holdsFormer_ = false;  ///< a former file could not go back
};

}  // namespace

std::unique_ptr<SideFolder> CreeDossierPosix(const std::string& path) {
  return std::make_unique<PosixSideFolder>(path);
}

void SupprimeDossierAbandonne(const std::string& path) {
  const int folder = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW);
  if (folder < 0) return;
  if (flock(folder, LOCK_EX | LOCK_NB) == 0) {
    const std::vector<std::string> names = FichiersDe(path);
    if (std::none_of(names.begin(), names.end(), EstAncien)) VideDossier(path);
  }
  close(folder);
}

}  // namespace talpena
