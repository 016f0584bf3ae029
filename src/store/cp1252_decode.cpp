#include "store/cp1252_decode.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "common/text.h"

namespace talpena {
namespace {

struct Sequence {
  std::array<char, 3> bytes{};
  std::uint8_t length = 0;
};
using UpperHalf = std::array<Sequence, 128>;  ///< characters of bytes 80 to FF

UpperHalf FaitMoitieHaute() {
  UpperHalf upper;
  for (std::size_t i = 0; i < upper.size(); ++i) {
    const char byte = static_cast<char>(static_cast<unsigned char>(0x80 + i));
    const std::string character = Cp1252VersUtf8({&byte, 1});
    upper[i].length = static_cast<std::uint8_t>(character.size());
    std::copy(character.begin(), character.end(), upper[i].bytes.begin());
  }
  return upper;
}

}  // namespace

void DecodeCp1252(std::string_view bytes, std::string& text) {
  static const UpperHalf upper = FaitMoitieHaute();
  if (EstAscii(bytes)) {
    text.assign(bytes);
    return;
  }
  text.resize(bytes.size() * sizeof(Sequence::bytes));
  char* out = text.data();
  for (const char b : bytes) {
    const auto byte = static_cast<unsigned char>(b);
    if (byte < 0x80) {
      *out++ = b;
    } else {
      const Sequence& s = upper[byte - 0x80U];
      out = std::copy_n(s.bytes.begin(), s.length, out);
    }
  }
  text.resize(static_cast<std::size_t>(out - text.data()));
}

}  // namespace talpena
