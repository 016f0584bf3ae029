// A file of the user, read by POSIX calls.
#pragma once
#include <sys/stat.h>

#include <string>

#include "platform/files.h"
#include "platform/os/file_attributes.h"

namespace talpena {

/// Refuses folders, pipes and devices; `path` is for the message.
void VerifieOrdinaire(const struct stat& status, const std::string& path);

class PosixInput final : public InputFile {
 public:
  explicit PosixInput(std::string path);
  PosixInput(const PosixInput&) = delete;
  PosixInput& operator=(const PosixInput&) = delete;
  ~PosixInput() override;

  std::size_t Lit(std::span<char> buffer) override;
  std::int64_t Taille() const override { return status_.st_size; }
  FileAttributes Attributs() const { return AttributsDe(path_, status_); }

 private:
  std::string path_;
  int file_ = -1;
  struct stat status_ {};  ///< when it was opened
};

}  // namespace talpena
