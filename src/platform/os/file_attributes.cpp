#include "platform/os/file_attributes.h"

#include <sys/types.h>
#include <unistd.h>

#include <array>
#include <string_view>
#include <vector>

#ifdef __linux__
#include <sys/xattr.h>
#endif

namespace talpena {
namespace {

constexpr mode_t groupBits = 070;
constexpr mode_t rightsBits = 0777;

#ifdef __linux__
void CopieAttributsEtendus(int file, const std::string& source) {
  std::array<char, 4096> names{};
  const ssize_t length = listxattr(source.c_str(), names.data(), names.size());
  if (length <= 0) return;
  std::string_view rest(names.data(), static_cast<std::size_t>(length));
  std::vector<char> value(65536);
  while (!rest.empty()) {
    const std::string name(rest.substr(0, rest.find('\0')));
    rest.remove_prefix(name.size() + 1);
    const ssize_t size = getxattr(source.c_str(), name.c_str(), value.data(), value.size());
    // One that this user may not set is left out, as a copy by hand would.
    if (size >= 0 && fsetxattr(file, name.c_str(), value.data(), static_cast<std::size_t>(size), 0))
      continue;
  }
}
#else
void CopieAttributsEtendus(int, const std::string&) {}
#endif

}  // namespace

FileAttributes AttributsDe(const std::string& path, const struct stat& status) {
  return {path, status.st_mode & 07777, status.st_uid, status.st_gid};
}

void PoseAttributs(int file, const FileAttributes& attributes) {
  mode_t mode = attributes.mode;
  struct stat now {};
  if (fstat(file, &now) != 0) return;
  const bool sameOwner = (now.st_uid == attributes.owner && now.st_gid == attributes.group) ||
                         fchown(file, attributes.owner, attributes.group) == 0;
  if (!sameOwner) {
    mode &= rightsBits;  // set-id bits belong to the former owner
    const bool sameGroup = now.st_gid == attributes.group ||
                           fchown(file, static_cast<uid_t>(-1), attributes.group) == 0;
    if (!sameGroup) mode = (mode & ~groupBits) | ((mode & 7U) << 3U);
  }
  CopieAttributsEtendus(file, attributes.source);
  // Last: changing the owner or the access list changes the mode. File systems without modes
  // refuse it, and then there is none to keep.
  if (fchmod(file, mode) != 0) return;
}

}  // namespace talpena
