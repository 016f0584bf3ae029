// Compound files (OLE2): streams in a file of sectors, as workbooks are kept in.
// Source: Microsoft, [MS-CFB] Compound File Binary File Format.
#pragma once
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/foreign/excel/byte_source.h"

namespace talpena::excel {

/// Nothing in the file is believed: sectors that it lacks, chains that go in a circle and streams
/// longer than their chain end in UnrecognizedFormat (3343). Memory is some four bytes a sector.
class CompoundFile {
 public:
  explicit CompoundFile(std::shared_ptr<ByteSource> file);

  /// A stream of the root by its name, without regard to case; null when there is none. It goes on
  /// without the CompoundFile.
  std::shared_ptr<ByteSource> Flux(std::string_view name);

 private:
  using Sectors = std::vector<std::uint32_t>;
  struct Entry {
    std::u16string name;
    int kind = 0;
    std::uint32_t left = 0, right = 0, child = 0, start = 0;
    std::size_t size = 0;
  };

  void LitTete();
  Sectors SecteursDeFat(const std::vector<char>& head);
  void LitFat(const Sectors& fatSectors);
  Sectors Chaine(std::uint32_t start) const;
  std::shared_ptr<ByteSource> Flux(const Entry& entry);
  std::shared_ptr<ByteSource> PetitFlux(const Entry& entry);
  Entry LitEntree(std::uint32_t number);

  std::shared_ptr<ByteSource> file_;
  unsigned shift_ = 0;  ///< a sector has 2 to this bytes
  std::uint32_t sectors_ = 0;
  std::uint32_t directoryStart_ = 0, miniFatStart_ = 0;
  Sectors fat_;
  std::shared_ptr<ByteSource> directory_;
};

}  // namespace talpena::excel
