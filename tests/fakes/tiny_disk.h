// A disk of its own with a few blocks, to be filled: real ENOSPC, at any stage of a save.
#pragma once
#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "fakes/temp_folder.h"

namespace talpena::test {

/// A tmpfs on a folder, seen by this process alone. Needs the right to mount.
class TinyDisk {
 public:
  /// @param options  of tmpfs, as "size=64k"
  explicit TinyDisk(const std::string& options) {
    if (unshare(CLONE_NEWNS) == 0 &&
        mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
        mount("tmpfs", point_.path().c_str(), "tmpfs", 0, options.c_str()) == 0) {
      mounted_ = true;
    } else {
      refusal_ = std::strerror(errno);
    }
  }
  TinyDisk(const TinyDisk&) = delete;
  TinyDisk& operator=(const TinyDisk&) = delete;
  ~TinyDisk() {
    if (mounted_) umount2(point_.path().c_str(), MNT_DETACH);
  }

  /// Why there is no disk; empty when there is one.
  const std::string& Refus() const { return refusal_; }
  std::string operator/(const std::string& name) const { return point_ / name; }
  std::vector<std::string> Noms() const { return point_.Noms(); }

  fsblkcnt_t BlocsLibres() const { return Etat().f_bfree; }
  std::size_t TailleBloc() const { return Etat().f_bsize; }

  /// Leaves so many blocks free; the rest goes to a file "filler".
  void LaisseLibres(fsblkcnt_t blocks) const {
    const std::string filler = point_ / "filler";
    unlink(filler.c_str());
    const int file = open(filler.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    const auto bytes = static_cast<off_t>((BlocsLibres() - blocks) * TailleBloc());
    if (file < 0 || (bytes > 0 && posix_fallocate(file, 0, bytes) != 0)) {
      ADD_FAILURE() << "cannot fill the disk";
    }
    if (file >= 0) close(file);
    EXPECT_EQ(BlocsLibres(), blocks);
  }

 private:
  struct statvfs Etat() const {
    struct statvfs state {};
    EXPECT_EQ(statvfs(point_.path().c_str(), &state), 0);
    return state;
  }

  TempFolder point_;
  std::string refusal_;
  bool mounted_ = false;
};

}  // namespace talpena::test
