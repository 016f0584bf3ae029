// The file that pages go to, one after the other or back to where they stood.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foreign/isolated_process.h"

namespace talpena::jet {

/// A new file. Failures are those of the file system (common/talpena_error.h).
class PageFile {
 public:
  /// Nobody's file is written over: FileExists (58).
  ///
  /// @param most  bytes that the file may have
  PageFile(std::string path, std::size_t most);

  PageFile(const PageFile&) = delete;
  PageFile& operator=(const PageFile&) = delete;
  /// Takes the file away when it was never whole.
  ~PageFile();

  /// Gives out the next page and has room for it on the disk, so that writing it cannot fail for
  /// want of it: DiskFull (61), or InvalidArgument (3001) at the limit, come from here alone, and
  /// what was written before stays good.
  std::uint32_t Alloue();
  /// Writes one page that was given out.
  void Ecrit(std::uint32_t page, std::string_view bytes);
  /// Cuts off what was set aside and hands the bytes to the disk.
  void Acheve();

  std::uint32_t Pages() const { return pages_; }
  /// Pages for the bits of a map of the whole file, of which there are enough at any moment.
  const std::vector<std::uint32_t>& PagesDeBits() const { return bitPages_; }
  const std::string& Chemin() const { return path_; }

 private:
  std::uint32_t Prochaine();
  void Reserve(std::size_t bytes);
  bool Coupe();

  std::string path_;
  std::size_t most_;
  Descripteur fd_;
  std::uint32_t pages_ = 0;
  std::vector<std::uint32_t> bitPages_;
  std::size_t reserved_ = 0;  ///< bytes set aside on the disk
  bool whole_ = false;        ///< has been finished once
};

}  // namespace talpena::jet
