// The user's files by POSIX calls.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>
#include <vector>

#include "platform/os/file_attributes.h"
#include "platform/os/file_system.h"
#include "platform/os/posix_backup.h"
#include "platform/os/posix_error.h"
#include "platform/os/posix_input.h"
#include "platform/os/posix_output.h"
#include "platform/os/posix_owner.h"
#include "platform/os/posix_paths.h"
#include "platform/os/posix_side_folder.h"

namespace talpena {
namespace {

std::optional<struct stat> Etat(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return std::nullopt;
  return status;
}

bool PeutEcrire(const std::string& path) {
  return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
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

  std::unique_ptr<OutputFile> CreeComme(const std::string& path, const NewFile& wanted) override {
    VerifieChemin(path);
    const std::string target = SuitLiens(path);
    const OutputPlace place{path, target, NomDansDossier(target)};
    if (const auto former = Etat(target)) {
      VerifieOrdinaire(*former, path);
      // A rename would get past a write protection that the user put on the file.
      if (!wanted.memeProtege && !PeutEcrire(target)) LanceErreurFichier(errno, path);
      return CreeSortiePosix(place, AttributsDe(target, *former));
    }
    if (errno != ENOENT) LanceErreurFichier(errno, path);
    std::optional<FileAttributes> attributes;
    if (const auto status = Etat(wanted.modele)) {
      attributes = AttributsDe(wanted.modele, *status);
    }
    return CreeSortiePosix(place, attributes);
  }

  std::unique_ptr<SideFolder> CreeDossierACote(const std::string& path) override {
    VerifieChemin(path);
    SupprimeRestes(path);
    return CreeDossierPosix(path);
  }

  std::string SansLiens(const std::string& path) override {
    VerifieChemin(path);
    return SuitLiens(path);
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

  bool EstVerrouille(const std::string& path) override {
    VerifieChemin(path);
    return EstVerrouillePosix(path);
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
      Deplace(source, from, to);
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

  bool EstProtege(const std::string& path) override {
    const auto status = path.find('\0') == std::string::npos ? Etat(path) : std::nullopt;
    return status && S_ISREG(status->st_mode) && !PeutEcrire(path);
  }

  bool MemeFichier(const std::string& a, const std::string& b) override { return MemeEntree(a, b); }

  void VerifieGarde(const std::string& path, const std::string& backup) override {
    VerifieChemin(path);
    VerifieChemin(backup);
    VerifieGardePosix(path, backup);
  }

  void Double(const std::string& path, const std::string& copy) override {
    VerifieChemin(path);
    VerifieChemin(copy);
    CopieSansEcraser(path, copy);
  }

  std::vector<LeftOver> Restes(const std::string& path) override {
    VerifieChemin(path);
    return RestesPosix(path);
  }

  void SupprimeRestes(const std::string& path) noexcept override {
    try {
      for (const std::string& folder : DossiersDe(path)) SupprimeRestesPosix(folder);
    } catch (...) {  // they may stay until the next time
    }
  }

  std::vector<PlacedFile> AcheveEchanges(const std::string& path) noexcept override {
    std::vector<PlacedFile> placed;
    try {
      for (const std::string& folder : DossiersDe(path)) AcheveEchangesPosix(folder, placed);
    } catch (...) {  // they may wait until the next time
    }
    return placed;
  }

 private:
  /// That of a path, where backups lie, and that of the file behind a link.
  static std::vector<std::string> DossiersDe(const std::string& path) {
    VerifieChemin(path);
    std::vector<std::string> folders{DossierParent(path)};
    const std::string targets = DossierParent(SuitLiens(path));
    if (targets != folders.front()) folders.push_back(targets);
    return folders;
  }

  /// Moves between two file systems: whole and synced over there before it goes over here.
  static void Deplace(const std::string& source, const std::string& from, const std::string& to) {
    CopieSansEcraser(source, to);
    if (unlink(source.c_str()) != 0) LanceErreurFichier(errno, from);
  }

  static void CopieSansEcraser(const std::string& from, const std::string& to) {
    struct stat there {};
    if (lstat(to.c_str(), &there) == 0) LanceErreurFichier(EEXIST, to);
    CopieFichier(from, to, NomDansDossier(from));
  }
};

}  // namespace

std::unique_ptr<FileSystem> CreeSystemeDeFichiersPosix() {
  return std::make_unique<PosixFileSystem>();
}

}  // namespace talpena
