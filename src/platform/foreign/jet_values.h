// Access files byte by byte: the head, and values as the columns hold them. Pure functions.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace talpena {

enum class JetVersion : std::uint8_t { Jet3, Jet4 };

/// Bytes of a file's head that VersionJet looks at.
inline constexpr std::size_t JetHeadBytes = 24;

/// The format of a file with this head; empty for any other maker's file, a later version of the
/// format included.
std::optional<JetVersion> VersionJet(std::string_view head);

/// Bytes of a page: the file is made of pages of this size.
constexpr std::size_t TaillePageJet(JetVersion version) {
  return version == JetVersion::Jet3 ? 2048 : 4096;
}

/// Column types as the file numbers them.
enum class JetType : std::uint8_t {
  Boolean = 1,
  Byte,
  Integer,
  Long,
  Currency,
  Single,
  Double,
  Date,
  Binary,
  Text,
  Ole,
  Memo,
  Guid = 15,
  Numeric
};

/// Text of a column or a memo as UTF-8: code page 1252 in Jet 3, UCS-2 in Jet 4, there also in
/// its compressed form (FF FE, then one byte a character; a zero byte switches to two and back).
/// Half a character at the end is dropped, a lone surrogate becomes U+FFFD.
std::string TexteJet(JetVersion version, std::string_view bytes);

/// Little-endian numbers; empty when the value has too few bytes.
std::optional<std::int64_t> EntierJet(std::string_view bytes, std::size_t width);  ///< signed
std::optional<double> SimpleJet(std::string_view bytes);
std::optional<double> DoubleJet(std::string_view bytes);   ///< also dates: days since 1899-12-30
std::optional<double> MonnaieJet(std::string_view bytes);  ///< stored in ten-thousandths
/// A sign byte and 128 bits, divided by ten to the scale.
std::optional<double> NumeriqueJet(std::string_view bytes, int scale);
/// "{00112233-4455-6677-8899-AABBCCDDEEFF}"
std::optional<std::string> GuidJet(std::string_view bytes);

}  // namespace talpena
