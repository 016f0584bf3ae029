// A file that another program holds, as those of SQLite do.
#pragma once
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

namespace talpena::test {

/// Another process has a read lock on a byte of the file as long as this lives.
class LockedElsewhere {
 public:
  explicit LockedElsewhere(const std::string& path) {
    int ready[2]{};
    EXPECT_EQ(pipe(ready), 0);
    child_ = fork();
    if (child_ == 0) Tient(path, ready[1]);
    char locked = 0;
    EXPECT_EQ(read(ready[0], &locked, 1), 1);
    close(ready[0]);
    close(ready[1]);
  }
  LockedElsewhere(const LockedElsewhere&) = delete;
  LockedElsewhere& operator=(const LockedElsewhere&) = delete;
  ~LockedElsewhere() {
    kill(child_, SIGKILL);
    waitpid(child_, nullptr, 0);
  }

 private:
  [[noreturn]] static void Tient(const std::string& path, int ready) {
    constexpr off_t sharedByte = 0x40000002;
    struct flock lock {};
    lock.l_type = F_RDLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = sharedByte;
    lock.l_len = 1;
    const int file = open(path.c_str(), O_RDWR | O_CLOEXEC);
    const char locked = 1;
    if (fcntl(file, F_SETLK, &lock) != 0 || write(ready, &locked, 1) != 1) _exit(1);
    for (;;) pause();
  }

  pid_t child_ = 0;
};

}  // namespace talpena::test
