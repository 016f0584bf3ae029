// Whole numbers at places of a text that holds the bytes of a file.
#pragma once
#include <algorithm>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/foreign/little_endian.h"

namespace talpena {

// Read where they stand; the bytes have to be there.

/// Least significant byte first.
inline std::uint16_t Lit16(std::string_view bytes, std::size_t place) {
  return NombreLu<std::uint16_t>(bytes.data() + place);
}
inline std::uint32_t Lit32(std::string_view bytes, std::size_t place) {
  return NombreLu<std::uint32_t>(bytes.data() + place);
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
  PoseNombre(bytes.data() + place, value);
}

/// Most significant byte first.
template <std::unsigned_integral Number>
void PoseInverse(std::string& bytes, std::size_t place, Number value) {
  Pose(bytes, place, value);
  std::reverse(bytes.data() + place, bytes.data() + place + sizeof value);
}

}  // namespace talpena
