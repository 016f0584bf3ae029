// What a Paradox memo file is made of: blocks, the first of which is its head.
#pragma once
#include <cstddef>
#include <cstdint>

namespace talpena::paradox {

enum class MemoBlock : std::uint8_t {
  Head = 0,
  Single = 2,  ///< one value
  Shared = 3,  ///< small values
  Free = 4
};

inline constexpr std::size_t memoBlockBytes = 4096;  ///< blocks are some of these
inline constexpr std::size_t singleHead = 9;         ///< bytes in front of a value of its own
inline constexpr std::size_t mostShared = 2048;      ///< longer values have a block of their own

// A block of small values: a head, then for each value five bytes, then the values in chunks.
inline constexpr std::size_t sharedHead = 12;
inline constexpr std::size_t sharedEntries = 64;
inline constexpr std::size_t entryBytes = 5;
inline constexpr std::size_t chunkBytes = 16;
inline constexpr std::size_t firstChunk = 0x150 / chunkBytes;

constexpr std::size_t PlaceEntree(std::size_t entry) { return sharedHead + entryBytes * entry; }

}  // namespace talpena::paradox
