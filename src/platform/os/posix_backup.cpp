#include "platform/os/posix_backup.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "common/text.h"
#include "platform/os/left_overs.h"
#include "platform/os/posix_error.h"
#include "platform/os/posix_output.h"
#include "platform/os/posix_paths.h"
#include "platform/os/posix_side_folder.h"

namespace talpena {
namespace {

constexpr int attempts = 100;

void VerifieEcriture(const std::string& folder, const std::string& path) {
  if (faccessat(AT_FDCWD, folder.c_str(), W_OK, AT_EACCESS) != 0) LanceErreurFichier(errno, path);
}

/// Opens a left-over, with as many rights as there are.
int OuvreReste(const std::string& path) {
  constexpr int flags = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;
  const int file = open(path.c_str(), O_RDWR | flags);
  return file >= 0 ? file : open(path.c_str(), O_RDONLY | flags);
}

/// Who writes a file holds its lock.
void SupprimeSiAbandonne(const std::string& path) {
  const int file = OuvreReste(path);
  if (file < 0) return;
  struct stat status {};
  const bool ordinary = fstat(file, &status) == 0 && S_ISREG(status.st_mode);
  if (ordinary && flock(file, LOCK_EX | LOCK_NB) == 0) unlink(path.c_str());
  close(file);
}

}  // namespace

std::string VoisinTemporaire(const std::string& path, const std::string& name) {
  return DossierParent(path) + "/" + NomTemporaire(name);
}

void LanceErreurGarde(int error, const std::string& backup) {
  LanceErreurFichier(error == EISDIR ? EEXIST : error, backup);
}

// By way of a third name, which takes the place of the second in one step: no backup is gone before
// the next one stands.
bool DonneSecondNom(const std::string& path, const std::string& second, const std::string& name) {
  for (int attempt = 0; attempt < attempts; ++attempt) {
    const std::string third = VoisinTemporaire(second, name);
    if (link(path.c_str(), third.c_str()) != 0) {
      if (errno == EEXIST) continue;
      if (errno == EXDEV) CopieFichier(path, second, name);
      return errno == EXDEV || errno == ENOENT;
    }
    const int error = rename(third.c_str(), second.c_str()) == 0 ? 0 : errno;
    unlink(third.c_str());  // it stays when both names are of one file already
    if (error == 0) return true;
    if (error != ENOENT) LanceErreurGarde(error, second);  // else it was cleared away in between
  }
  return false;
}

void VerifieGardePosix(const std::string& path, const std::string& backup) {
  if (EstDossier(backup)) LanceErreurGarde(EEXIST, backup);
  VerifieEcriture(DossierParent(SuitLiens(path)), path);
  VerifieEcriture(DossierParent(backup), backup);
}

bool MemeEntree(const std::string& a, const std::string& b) {
  struct stat first {
  }, second{};
  if (stat(a.c_str(), &first) != 0 || stat(b.c_str(), &second) != 0) return a == b;
  if (first.st_ino != second.st_ino || first.st_dev != second.st_dev) return false;
  // Two names of one file; where the letter case does not count, one name that is spelled two ways.
  if (first.st_nlink < 2) return true;
  const std::string target = SuitLiens(a);
  const std::string other = SuitLiens(b);
  struct stat folder {
  }, otherFolder{};
  if (stat(DossierParent(target).c_str(), &folder) != 0 ||
      stat(DossierParent(other).c_str(), &otherFolder) != 0) {
    return true;
  }
  return folder.st_ino == otherFolder.st_ino && folder.st_dev == otherFolder.st_dev &&
         EgalSansCasse(NomDansDossier(target), NomDansDossier(other));
}

std::vector<LeftOver> RestesPosix(const std::string& path) {
  std::vector<LeftOver> found;
  const std::string target = SuitLiens(path);
  const std::string wanted = NomDansDossier(target);
  const std::string before = target.substr(0, target.size() - wanted.size());
  for (const std::string& name : NomsDe(DossierParent(target))) {
    if (EstTemporaireDe(name, wanted)) found.push_back({before + name, EstNomEntier(name)});
  }
  std::stable_partition(found.begin(), found.end(), [](const LeftOver& l) { return l.entier; });
  return found;
}

void SupprimeRestesPosix(const std::string& folder) {
  std::vector<std::string> names = NomsDe(folder);
  const auto standing = std::partition(names.begin(), names.end(), EstNomTemporaire);
  for (auto reste = names.begin(); reste != standing; ++reste) {
    if (std::any_of(standing, names.end(),
                    [&](const std::string& name) { return EstTemporaireDe(*reste, name); })) {
      SupprimeSiAbandonne(folder + "/" + *reste);
    }
  }
  for (auto name = standing; name != names.end(); ++name) {
    if (EstNomDeDossier(*name)) SupprimeDossierAbandonne(folder + "/" + *name);
  }
}

}  // namespace talpena
