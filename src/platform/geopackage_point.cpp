#include "platform/geopackage_point.h"

#include <bit>
#include <cstddef>
#include <cstdint>

namespace talpena {
namespace {

using namespace std::literals;

// "GP", version 1, little-endian without an envelope, system 4326; a point, little-endian.
constexpr std::string_view head = "GP\x00\x01\xE6\x10\x00\x00\x01\x01\x00\x00\x00"sv;

void AjouteReel(std::string& bytes, double value) {
  const auto bits = std::bit_cast<std::uint64_t>(value);
  for (std::size_t shift = 0; shift < 64; shift += 8) {
    bytes.push_back(static_cast<char>((bits >> shift) & 0xFF));
  }
}

}  // namespace

std::string PointGeoPackage(double longitude, double latitude) {
  std::string bytes(head);
  AjouteReel(bytes, longitude);
  AjouteReel(bytes, latitude);
  return bytes;
}

}  // namespace talpena
