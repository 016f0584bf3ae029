#include "platform/os/posix_paths.h"

#include <dirent.h>
#include <fcntl.h>
#include <limits.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <memory>
#include <optional>

#include "platform/os/posix_error.h"

namespace talpena {
namespace {

constexpr int maxLinks = 40;  // as the kernel's own limit

/// What a link holds; empty when the path names no link.
std::optional<std::string> LitLien(const std::string& path) {
  std::array<char, PATH_MAX> buffer{};
  const ssize_t length = readlink(path.c_str(), buffer.data(), buffer.size());
  if (length < 0) return std::nullopt;
  return std::string(buffer.data(), static_cast<std::size_t>(length));
}

}  // namespace

std::string DossierParent(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return path.substr(0, slash + 1);
}

std::string NomDansDossier(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string SuitLiens(const std::string& path) {
  std::string current = path;
  for (int i = 0; i < maxLinks; ++i) {
    const std::optional<std::string> next = LitLien(current);
    if (!next) return current;
    const bool absolute = !next->empty() && next->front() == '/';
    current = absolute ? *next : DossierParent(current) + "/" + *next;
  }
  LanceErreurFichier(ELOOP, path);
}

bool EstDossier(const std::string& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

void VerifieChemin(const std::string& path) {
  if (path.empty()) LanceErreurFichier(ENOENT, path);
  if (path.find('\0') != std::string::npos) {
    LanceErreurAcces(path.substr(0, path.find('\0')), "the name holds a NUL byte");
  }
}

void SynchroniseDossier(const std::string& path) {
  const int folder = open(DossierParent(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return;
  fsync(folder);
  close(folder);
}

std::vector<std::string> NomsDe(const std::string& folder) {
  std::vector<std::string> names;
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.c_str()), closedir);
  if (entries == nullptr) return names;
  while (const dirent* entry = readdir(entries.get())) names.emplace_back(entry->d_name);
  return names;
}

int RenommeSansEcraser(const std::string& from, const std::string& to) {
#ifdef __linux__
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS) return errno;
#endif
  struct stat there {};
  if (lstat(to.c_str(), &there) == 0) return EEXIST;
  return rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

}  // namespace talpena
