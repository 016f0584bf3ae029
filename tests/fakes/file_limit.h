// A disk that is full: while it lives no file of this process grows beyond a size.
#pragma once
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace talpena::test {

class FileLimit {
 public:
  explicit FileLimit(rlim_t bytes) {
    EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &former_), 0);
    const rlimit limit{bytes, former_.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
  FileLimit(const FileLimit&) = delete;
  FileLimit& operator=(const FileLimit&) = delete;
  ~FileLimit() { setrlimit(RLIMIT_FSIZE, &former_); }

 private:
  rlimit former_{};
};

}  // namespace talpena::test
