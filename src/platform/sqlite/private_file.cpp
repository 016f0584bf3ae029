#include "platform/sqlite/private_file.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "common/talpena_error.h"
#include "platform/sqlite/errors.h"

#if defined(__unix__) || defined(__APPLE__)
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace talpena::sqlite {
namespace {

namespace fs = std::filesystem;

bool EstPlein(int error) {
#ifdef EDQUOT
  if (error == EDQUOT) return true;
#endif
  return error == ENOSPC;
}

[[noreturn]] void Echoue(int error, const std::string& path) {
  const std::string named = ": '" + path + "'.";
  if (error == EEXIST) throw TalpenaError(ErrorNumber::FileExists, "File already exists" + named);
  if (EstPlein(error)) throw TalpenaError(ErrorNumber::DiskFull, "Disk full" + named);
  throw AccesRefuse(path);
}

/// 0, or what the system says against it.
int Cree(const std::string& path) {
#if defined(__unix__) || defined(__APPLE__)
  const int file =
      open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (file < 0) return errno;
  close(file);
#else  // the profile's access list keeps others out
  std::FILE* file = std::fopen(path.c_str(), "wbx");
  if (file == nullptr) return errno;
  std::fclose(file);
#endif
  return 0;
}

fs::path Chemin(const std::string& utf8) {
  return fs::path(reinterpret_cast<const char8_t*>(utf8.c_str()));
}

}  // namespace

void CreeFichierPrive(const std::string& path) {
  if (const int error = Cree(path); error != 0) Echoue(error, path);
}

std::string DossierSansLiens(const std::string& path) {
  const fs::path whole = Chemin(path);
  const fs::path parent = whole.parent_path();
  std::error_code failed;
  const fs::path folder = fs::canonical(parent.empty() ? fs::path(".") : parent, failed);
  if (failed) return path;
  const std::u8string name = (folder / whole.filename()).u8string();
  return {name.begin(), name.end()};
}

}  // namespace talpena::sqlite
