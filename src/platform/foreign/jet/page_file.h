// The file that pages go to, one after the other or back to where they stood.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/foreign/jet/bytes.h"
#include "platform/foreign/reserved_file.h"

namespace talpena::jet {

/// A new file. Failures are those of the file system (common/talpena_error.h).
class PageFile {
 public:
  /// Nobody's file is written over: FileExists (58).
  ///
  /// @param most  bytes that the file may have
  PageFile(std::string path, std::size_t most) : file_(std::move(path), most) {}

  /// Gives out the next page and has room for it on the disk, so that writing it cannot fail for
  /// want of it: DiskFull (61), or InvalidArgument (3001) at the limit, come from here alone, and
  /// what was written before stays good.
  std::uint32_t Alloue();
  /// Writes one page that was given out.
  void Ecrit(std::uint32_t page, std::string_view bytes) {
    file_.Ecrit(std::size_t{page} * taillePage, bytes);
  }
  /// Cuts off what was set aside and hands the bytes to the disk.
  void Acheve() { file_.Acheve(std::size_t{pages_} * taillePage); }

  std::uint32_t Pages() const { return pages_; }
  /// Pages for the bits of a map of the whole file, of which there are enough at any moment.
  const std::vector<std::uint32_t>& PagesDeBits() const { return bitPages_; }
  const std::string& Chemin() const { return file_.Chemin(); }

 private:
  std::uint32_t Prochaine();

  ReservedFile file_;
  std::uint32_t pages_ = 0;
  std::vector<std::uint32_t> bitPages_;
};

}  // namespace talpena::jet
