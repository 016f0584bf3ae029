// A new file of another maker's that has its room on the disk before it is written.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "platform/foreign/isolated_process.h"

namespace talpena {

/// Failures are those of the file system (common/talpena_error.h).
class ReservedFile {
 public:
  /// Nobody's file is written over: FileExists (58).
  ///
  /// @param most  bytes that the file may have
  ReservedFile(std::string path, std::size_t most);

  ReservedFile(const ReservedFile&) = delete;
  ReservedFile& operator=(const ReservedFile&) = delete;
  /// Takes the file away when it was never whole.
  ~ReservedFile();

  /// Has room on the disk for the first `size` bytes, so that writing them cannot fail for want of
  /// it: DiskFull (61), or InvalidArgument (3001) at the limit, come from here alone, and what was
  /// written before stays good.
  void Assure(std::size_t size);
  /// Writes bytes for which there is room.
  void Ecrit(std::size_t place, std::string_view bytes);
  /// Cuts off what is behind the first `size` bytes and hands them to the disk.
  void Acheve(std::size_t size);

  /// The file goes with this object, whole or not.
  void Abandonne() { whole_ = false; }

  const std::string& Chemin() const { return path_; }

 private:
  void Reserve(std::size_t needed);
  bool Coupe(std::size_t size);

  std::string path_;
  std::size_t most_;
  Descripteur fd_;
  std::size_t reserved_ = 0;  ///< bytes set aside on the disk
  std::size_t used_ = 0;      ///< bytes that were asked for
  bool whole_ = false;        ///< has been finished once
};

}  // namespace talpena
