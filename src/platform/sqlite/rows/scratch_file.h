// A file without a name, for what does not fit into memory.
#pragma once
#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace talpena::sqlite {

/// Stands where SQLite puts its own, and is gone when it is closed, also by a crash. Failures,
/// a full disk above all, are answers: who uses it can do without.
class ScratchFile {
 public:
  ScratchFile() = default;
  ~ScratchFile();
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  bool Ouvre();
  bool Ecrit(const void* bytes, std::size_t size, std::int64_t at);
  bool Lit(void* bytes, std::size_t size, std::int64_t at);

 private:
  std::unique_ptr<std::max_align_t[]> memory_;  ///< that SQLite's file takes
  sqlite3_file* file_ = nullptr;                ///< open
};

}  // namespace talpena::sqlite
