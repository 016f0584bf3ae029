// Mode, owner and extended attributes of a file, carried over to the one that takes its place.
#pragma once
#include <sys/stat.h>

#include <optional>
#include <string>

namespace talpena {

struct FileAttributes {
  std::string source;  ///< the file they come from
  mode_t mode = 0;
  uid_t owner = 0;
  gid_t group = 0;
};

FileAttributes AttributsDe(const std::string& path, const struct stat& status);

/// Gives an open file the mode, and as far as this user may, the owner, group, access list and
/// other attributes. Where the group cannot be kept its rights shrink to those of everybody, so
/// that nobody gains any.
void PoseAttributs(int file, const FileAttributes& attributes);

}  // namespace talpena
