#include "platform/os/posix_temporary.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/os/left_overs.h"
#include "platform/os/posix_backup.h"
#include "platform/os/posix_error.h"
#include "platform/os/posix_paths.h"

namespace talpena {
namespace {

constexpr int attempts = 100;

/// Whether the file can be locked, or nobody can lock anything there. Somebody who clears away
/// left-overs may have come between its making and its lock.
bool Verrouille(int file) {
  if (flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return false;
  struct stat status {};
  return fstat(file, &status) != 0 || status.st_nlink > 0;
}

}  // namespace

PosixTemporary::PosixTemporary(std::string shown, std::string target, const std::string& name,
                               mode_t mode)
    : shown_(std::move(shown)), target_(std::move(target)) {
  for (int attempt = 0; attempt < attempts; ++attempt) {
    path_ = VoisinTemporaire(target_, name);
    if (OuvreVerrouille(mode)) return;
    if (errno != EEXIST) break;
  }
  LanceErreurCreation(errno, shown_, target_);
}

PosixTemporary::~PosixTemporary() {
  close(file_);
  if (!enPlace_) unlink(path_.c_str());
}

/// False with errno; EEXIST when another name has to be tried.
bool PosixTemporary::OuvreVerrouille(mode_t mode) {
  file_ = open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode);
  if (file_ < 0) return false;
  if (Verrouille(file_)) return true;
  unlink(path_.c_str());
  close(std::exchange(file_, -1));
  errno = EEXIST;
  return false;
}

void PosixTemporary::Renomme(const std::string& to) {
  if (rename(path_.c_str(), to.c_str()) != 0) LanceErreurFichier(errno, shown_);
  path_ = to;
}

void PosixTemporary::Place() {
  if (!enPlace_) Renomme(target_);
  enPlace_ = true;
  SynchroniseDossier(target_);
}

void PosixTemporary::PlaceEnGardant(const std::string& backup) {
  if (!enPlace_ && !DonneSecondNom(target_, backup, NomDansDossier(shown_)))
    PlaceEnDeuxTemps(backup);
  Place();
  SynchroniseDossier(backup);
}

/// For file systems whose files have one name: the old file gives its name up, then the new one
/// takes it. Until then the name of the new one says that it is whole.
void PosixTemporary::PlaceEnDeuxTemps(const std::string& backup) {
  Renomme(DossierParent(path_) + "/" + NomEntier(NomDansDossier(path_)));
  SynchroniseDossier(target_);
  if (rename(target_.c_str(), backup.c_str()) != 0) LanceErreurGarde(errno, backup);
  if (rename(path_.c_str(), target_.c_str()) == 0) {
    enPlace_ = true;
    return;
  }
  const int error = errno;
  if (rename(backup.c_str(), target_.c_str()) != 0) SynchroniseDossier(backup);
  LanceErreurFichier(error, shown_);
}

}  // namespace talpena
