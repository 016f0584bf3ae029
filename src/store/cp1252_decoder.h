// Code page 1252 into UTF-8 for many short texts, in memory that is used again.
#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace talpena {

/// Gives the texts of Cp1252VersUtf8, whose table it takes over when it is built.
class Cp1252Decoder {
 public:
  Cp1252Decoder();

  /// Puts the bytes, decoded, in the place of what `text` held.
  void Decode(std::string_view bytes, std::string& text) const;

 private:
  struct Sequence {
    std::array<char, 3> bytes{};
    std::uint8_t length = 0;
  };
  std::array<Sequence, 128> upper_;  ///< characters of bytes 80 to FF
};

/// True when no byte of the text is 80 or above.
bool EstAscii(std::string_view bytes);

}  // namespace talpena
