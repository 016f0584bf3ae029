// The memo file of a Paradox table while values are put into it.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "platform/foreign/reserved_file.h"

namespace talpena::paradox {

/// A new file, whole after Acheve; taken away when it never was. Nothing but the block of small
/// values that fills is kept in memory.
class MemoWriter {
 public:
  /// @param most  bytes that the file may have
  MemoWriter(const std::string& path, std::size_t most);

  /// Puts a value down and gives where it is, as its record says. Room for it is made first: what
  /// raises DiskFull (61), or InvalidArgument (3001) at the limit, changes nothing.
  std::uint32_t Range(std::string_view value);
  void Acheve();

 private:
  std::uint32_t RangeSeule(std::string_view value);
  std::uint32_t RangeCommune(std::string_view value);
  void CommenceBloc();
  void EcritBloc();

  ReservedFile file_;
  std::size_t size_ = 0;
  std::string block_;           ///< of small values
  std::size_t blockPlace_ = 0;  ///< 0 while there is none
  std::size_t entries_ = 0;     ///< in it that are used
  std::size_t chunk_ = 0;       ///< the next that is free
};

/// The longest value that a block can hold.
inline constexpr std::size_t longestMemo = std::size_t{65535} * 4096 - 9;

}  // namespace talpena::paradox
