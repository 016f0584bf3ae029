// Whole numbers in the bytes of files.
#pragma once
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace talpena {

// Read where they stand; the bytes have to be there.

inline std::uint16_t Lit16(std::string_view bytes, std::size_t place) {
  const auto at = [&](std::size_t i) { return static_cast<unsigned char>(bytes[place + i]); };
  return static_cast<std::uint16_t>(at(0) | at(1) << 8);
}

/// Least significant byte first.
inline std::uint32_t Lit32(std::string_view bytes, std::size_t place) {
  return Lit16(bytes, place) | std::uint32_t{Lit16(bytes, place + 2)} << 16;
}

/// Most significant byte first.
inline std::uint32_t Lit32Inverse(std::string_view bytes, std::size_t place) {
  const std::uint32_t swapped = Lit32(bytes, place);
  return swapped >> 24 | (swapped >> 8 & 0xFF00) | (swapped << 8 & 0xFF0000) | swapped << 24;
}

// Written over what stands there.

/// Least significant byte first.
template <std::unsigned_integral Number>
void Pose(std::string& bytes, std::size_t place, Number value) {
  for (std::size_t i = 0; i < sizeof value; ++i) {
    bytes[place + i] = static_cast<char>(value >> (8 * i));
  }
}

/// Most significant byte first.
template <std::unsigned_integral Number>
void PoseInverse(std::string& bytes, std::size_t place, Number value) {
  for (std::size_t i = 0; i < sizeof value; ++i) {
    bytes[place + sizeof value - 1 - i] = static_cast<char>(value >> (8 * i));
  }
}

}  // namespace talpena
