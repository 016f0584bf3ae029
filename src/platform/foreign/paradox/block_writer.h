// The blocks of a Paradox table that is written, one after the other.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/foreign/paradox/head_writer.h"
#include "platform/foreign/reserved_file.h"

namespace talpena::paradox {

/// A new file. What is written is whole with a head that says what is in it, after Acheve; the file
/// is taken away when it never was.
class BlockWriter {
 public:
  /// @param headBytes  room for the head
  /// @param most       bytes that the file may have
  /// @param mostBlocks blocks that it may have
  BlockWriter(const std::string& path, std::size_t headBytes, std::size_t recordBytes,
              std::size_t most, std::uint32_t mostBlocks);

  /// Puts a record down. When there is no room for it, by DiskFull (61), or InvalidArgument (3001)
  /// at the limit, those before stay good. The first time that the number of blocks is not enough,
  /// all that is there goes into large blocks.
  void Ajoute(std::string_view record);
  /// Writes what is in memory and the head, of the size that room was kept for.
  void Acheve(std::string_view head);

  std::uint32_t Lignes() const { return records_; }
  std::uint32_t Blocs() const { return blocks_; }
  std::size_t Unites() const { return units_; }
  const std::string& Chemin() const { return file_.Chemin(); }

 private:
  std::size_t PlaceDuBloc(std::uint32_t number) const;
  void Commence();
  void Ecrit(std::uint32_t next);
  void Agrandit();

  ReservedFile file_;
  std::size_t headBytes_;
  std::size_t recordBytes_;
  std::uint32_t mostBlocks_;
  std::size_t units_ = smallUnits;
  std::string block_;         ///< that fills
  std::size_t inBlock_ = 0;   ///< records in it
  std::uint32_t blocks_ = 0;  ///< with it
  std::uint32_t records_ = 0;
};

}  // namespace talpena::paradox
