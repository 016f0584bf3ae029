// Line layers made by hand.
#pragma once
#include <bit>
#include <cstdint>
#include <string>

namespace talpena::test {

inline std::string Octets(std::uint32_t value, int count) {
  std::string bytes;
  for (int i = 0; i < count; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
  return bytes;
}
inline std::string Octets(float value) { return Octets(std::bit_cast<std::uint32_t>(value), 4); }

inline std::string EnTeteTlp() { return std::string(100, ' ') + std::string(16, '\0'); }

struct HeadFields {
  char kind = 'C';
  char style = '1';
  float count = 0;
  float north = 50, south = 40, east = 10, west = 0;
};
inline std::string TeteTlp(const HeadFields& head) {
  return "name" + std::string(26, ' ') + head.kind + head.style + ' ' + Octets(head.count) +
         Octets(head.north) + Octets(head.south) + Octets(head.east) + Octets(head.west) +
         std::string(8, '\7');
}

inline std::string PointTlp(int pen, float latitude, float longitude) {
  return Octets(static_cast<std::uint32_t>(pen), 2) + Octets(latitude) + Octets(longitude) + '\1';
}

}  // namespace talpena::test
