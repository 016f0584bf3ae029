#include "platform/os/posix_error.h"

#include <sys/stat.h>

#include <cerrno>

#include "common/msg_id_errors.h"
#include "common/numbers.h"
#include "common/talpena_error.h"
#include "platform/os/posix_paths.h"

namespace talpena {
namespace {

struct Refusal {
  int number;
  const char* text;
};

bool DossierExiste(const std::string& path) {
  struct stat status {};
  return stat(DossierParent(path).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

Refusal Traduit(int error, const std::string& path) {
  switch (error) {
    case ENOENT:
      if (DossierExiste(path)) return {ErrorNumber::FileNotFound, "File not found: "};
      return {ErrorNumber::PathNotFound, "Path not found: "};
    case ENOTDIR:
      return {ErrorNumber::PathNotFound, "Path not found: "};
    case EEXIST:
    case ENOTEMPTY:
      return {ErrorNumber::FileExists, "File already exists: "};
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return {ErrorNumber::DiskFull, "Disk full: "};
    case EACCES:
    case EPERM:
    case EROFS:
    case EBUSY:
    case ETXTBSY:
      return {ErrorNumber::PermissionDenied, "Permission denied: "};
    case EIO:
    case ENXIO:
      return {ErrorNumber::DeviceFault, "Device I/O error: "};
    default:
      return {ErrorNumber::PathFileAccess, "Path/File access error: "};
  }
}

}  // namespace

void LanceErreurFichier(int error, const std::string& path) {
  if (error == EISDIR) LanceErreurAcces(path, "it is a folder", MsgId::CheminDossier);
  if (error == ENAMETOOLONG) LanceErreurAcces(path, "the name is too long", MsgId::CheminTropLong);
  if (error == ELOOP) {
    LanceErreurAcces(path, "its links lead in a circle", MsgId::CheminEnCercle);
  }
  const Refusal refusal = Traduit(error, path);
  std::string description = refusal.text + path;
  if (refusal.number == ErrorNumber::PathFileAccess) {
    description += " (system error " + Str(std::int64_t{error}) + ")";
  }
  throw TalpenaError(refusal.number, description, {.about = {path}});
}

void LanceErreurCreation(int error, const std::string& path, const std::string& target) {
  if (error != ENOENT) LanceErreurFichier(error, path);
  if (DossierExiste(target)) LanceErreurAcces(path, "its folder takes no new files");
  LanceErreurFichier(ENOTDIR, path);
}

void LanceErreurAcces(const std::string& path, const std::string& why, int text) {
  throw TalpenaError(ErrorNumber::PathFileAccess, "Path/File access error: " + path + ", " + why,
                     {.text = text, .about = {path}});
}

}  // namespace talpena
