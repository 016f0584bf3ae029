// Numbers as the values of a Paradox table have them, most significant byte first.
#pragma once
#include <concepts>
#include <cstddef>

namespace talpena::paradox {

template <std::unsigned_integral Number>
void PoseGrosBoutiste(char* into, Number value) {
  for (std::size_t i = 0; i < sizeof value; ++i) {
    into[i] = static_cast<char>(value >> (8 * (sizeof value - 1 - i)));
  }
}

template <std::unsigned_integral Number>
Number NombreGrosBoutiste(const char* from) {
  Number value = 0;
  for (std::size_t i = 0; i < sizeof value; ++i) {
    value = static_cast<Number>(value << 8U | static_cast<unsigned char>(from[i]));
  }
  return value;
}

}  // namespace talpena::paradox
