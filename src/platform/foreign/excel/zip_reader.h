// Zip files: their parts, read from front to back.
// Source: PKWARE, APPNOTE.TXT, .ZIP File Format Specification, without its extension to 64 bits.
#pragma once
#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foreign/excel/byte_source.h"

namespace talpena::excel {

/// One part while it is read.
class ZipPart {
 public:
  virtual ~ZipPart() = default;
  /// Fills the buffer, but at the end; how many bytes. A part that is shorter than the file says,
  /// or has another check sum, is a damaged file.
  virtual std::size_t Lit(std::span<char> into) = 0;
};

/// Nothing in the file is believed; damage raises UnrecognizedFormat (3343).
class ZipFile {
 public:
  explicit ZipFile(std::shared_ptr<ByteSource> file);

  /// A part by its name, without a slash in front; null when there is none.
  std::unique_ptr<ZipPart> Partie(const std::string& name) const;

  [[noreturn]] void Refuse() const { file_->Refuse(); }

 private:
  struct Entry {
    unsigned method = 0;
    std::uint32_t check = 0, packed = 0, size = 0, place = 0;
  };

  void LitRepertoire(std::size_t place, std::size_t bytes);

  std::shared_ptr<ByteSource> file_;
  std::map<std::string, Entry> entries_;
};

}  // namespace talpena::excel
