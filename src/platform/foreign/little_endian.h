// Numbers of other makers' files as bytes, least significant byte first.
#pragma once
#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>

namespace talpena {

template <std::unsigned_integral Number>
void PoseNombre(char* into, Number value) {
  for (std::size_t i = 0; i < sizeof value; ++i) into[i] = static_cast<char>(value >> (8 * i));
}

template <std::unsigned_integral Number>
void AjouteNombre(std::string& out, Number value) {
  char bytes[sizeof value];
  PoseNombre(bytes, value);
  out.append(bytes, sizeof bytes);
}

/// The number whose bytes begin there; as many have to be there.
template <std::unsigned_integral Number>
Number NombreLu(const char* from) {
  Number value = 0;
  for (std::size_t i = sizeof value; i > 0; --i) {
    value = static_cast<Number>(value << 8U | static_cast<unsigned char>(from[i - 1]));
  }
  return value;
}
template <>
inline std::uint8_t NombreLu<std::uint8_t>(const char* from) {
  return static_cast<std::uint8_t>(*from);
}

inline double DoubleLu(const char* from) {
  return std::bit_cast<double>(NombreLu<std::uint64_t>(from));
}

}  // namespace talpena
