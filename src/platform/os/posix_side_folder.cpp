#include "platform/os/posix_side_folder.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <vector>

#include "platform/os/file_attributes.h"
#include "platform/os/left_overs.h"
#include "platform/os/posix_error.h"
#include "platform/os/posix_exchange.h"
#include "platform/os/posix_paths.h"

namespace talpena {
namespace {

constexpr int attemptsForAFolder = 100;

/// Gives a new file the mode and the owner of the one that it follows, where this user may.
void ReprendAttributs(const std::string& from, const std::string& to) {
  struct stat status {};
  if (stat(from.c_str(), &status) != 0) return;
  const int file = open(to.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
  if (file < 0) return;
  PoseAttributs(file, AttributsDe(from, status));
  close(file);
}

/// Nobody else touches the folder meanwhile; nothing happens where a program is at work in it.
template <typename Work>
void SiAbandonne(const std::string& path, Work&& work) {
  const int folder = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW);
  if (folder < 0) return;
  if (flock(folder, LOCK_EX | LOCK_NB) == 0) work();
  close(folder);
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
    Exchange exchange(path_, place_);
    if (!exchange.Commence()) exchange.Vide();
    if (lock_ >= 0) close(lock_);
  }

  const std::string& Chemin() const override { return path_; }

  void MetEnPlace(const std::vector<std::string>& former) override {
    const std::vector<std::string> files = FichiersDe(path_);
    const std::vector<std::string> standing = Presents(former);
    for (const std::string& name : files) {
      if (Contient(standing, name)) ReprendAttributs(place_ + name, path_ + name);
    }
    if (files.size() == 1 && (standing.empty() || standing == files)) {
      Remplace(files.front(), !standing.empty());
    } else {
      Exchange(path_, place_).Fait(standing);
    }
  }

 private:
  static bool Contient(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
  }

  /// Those that did not go by themselves.
  std::vector<std::string> Presents(std::vector<std::string> names) const {
    std::erase_if(names, [this](const std::string& name) {
      struct stat status {};
      return lstat((place_ + name).c_str(), &status) != 0;
    });
    return names;
  }

  void Remplace(const std::string& name, bool former) {
    const std::string from = path_ + name, to = place_ + name;
    const int error = !former                                 ? RenommeSansEcraser(from, to)
                      : rename(from.c_str(), to.c_str()) == 0 ? 0
                                                              : errno;
    if (error != 0) LanceErreurFichier(error, error == EEXIST ? to : from);
    SynchroniseDossier(place_);
  }

  void Verrouille() {
    lock_ = open(path_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (lock_ >= 0 && flock(lock_, LOCK_EX | LOCK_NB) != 0) return;  // nobody can lock there
  }

  std::string place_;
  std::string path_;
  int lock_ = -1;
};

}  // namespace

std::unique_ptr<SideFolder> CreeDossierPosix(const std::string& path) {
  return std::make_unique<PosixSideFolder>(path);
}

void SupprimeDossierAbandonne(const std::string& path) {
  SiAbandonne(path, [&] {
    Exchange exchange(path + "/", {});
    if (!exchange.Commence()) exchange.Vide();
  });
}

void AcheveEchangesPosix(const std::string& folder, std::vector<PlacedFile>& placed) {
  const std::string place = folder.back() == '/' ? folder : folder + "/";
  for (const std::string& name : NomsDe(folder)) {
    if (!EstNomDeDossier(name)) continue;
    SiAbandonne(place + name, [&] { Exchange(place + name + "/", place).Acheve(placed); });
  }
}

}  // namespace talpena
