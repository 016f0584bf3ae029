#include "platform/sqlite/rows/scratch_file.h"

namespace talpena::sqlite {

ScratchFile::~ScratchFile() {
  if (file_ != nullptr) file_->pMethods->xClose(file_);
}

bool ScratchFile::Ouvre() {
  sqlite3_vfs* const vfs = sqlite3_vfs_find(nullptr);
  if (vfs == nullptr) return false;
  const std::size_t units = static_cast<std::size_t>(vfs->szOsFile) / sizeof(std::max_align_t) + 1;
  memory_ = std::make_unique<std::max_align_t[]>(units);
  auto* const file = reinterpret_cast<sqlite3_file*>(memory_.get());
  const int flags = SQLITE_OPEN_TRANSIENT_DB | SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE |
                    SQLITE_OPEN_EXCLUSIVE | SQLITE_OPEN_DELETEONCLOSE;
  int given = 0;
  const int rc = vfs->xOpen(vfs, nullptr, file, flags, &given);
  // SQLite asks for this: what has methods is to be closed, also when it could not be opened.
  if (file->pMethods != nullptr) file_ = file;
  return rc == SQLITE_OK && file_ != nullptr;
}

bool ScratchFile::Ecrit(const void* bytes, std::size_t size, std::int64_t at) {
  return file_->pMethods->xWrite(file_, bytes, static_cast<int>(size), at) == SQLITE_OK;
}

bool ScratchFile::Lit(void* bytes, std::size_t size, std::int64_t at) {
  return file_->pMethods->xRead(file_, bytes, static_cast<int>(size), at) == SQLITE_OK;
}

}  // namespace talpena::sqlite
