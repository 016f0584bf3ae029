#include "common/text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace talpena {
namespace {

/// Characters of bytes 80 to 9F; the rest of the code page is Latin-1.
constexpr std::array<char32_t, 32> upperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t CaractereDeOctet(unsigned char byte) {
  return byte >= 0x80 && byte <= 0x9F ? upperControls[byte - 0x80U] : char32_t{byte};
}

std::optional<unsigned char> OctetDeCaractere(char32_t c) {
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<unsigned char>(c);
  for (std::size_t i = 0; i < upperControls.size(); ++i) {
    if (upperControls[i] == c) return static_cast<unsigned char>(0x80 + i);
  }
  return std::nullopt;
}

void AjouteUtf8(std::string& out, char32_t c) {
  const auto octet = [&out](char32_t v) {
    out += static_cast<char>(static_cast<unsigned char>(v));
  };
  if (c < 0x80) {
    octet(c);
  } else if (c < 0x800) {
    octet(0xC0 | (c >> 6));
    octet(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    octet(0xE0 | (c >> 12));
    octet(0x80 | ((c >> 6) & 0x3F));
    octet(0x80 | (c & 0x3F));
  } else {
    octet(0xF0 | (c >> 18));
    octet(0x80 | ((c >> 12) & 0x3F));
    octet(0x80 | ((c >> 6) & 0x3F));
    octet(0x80 | (c & 0x3F));
  }
}

constexpr char32_t Malforme = 0xFFFFFFFF;

struct Decoded {
  char32_t character;  ///< Malforme for a byte that starts no character
  std::size_t length;
};

/// The character at the head of a text that is not empty.
Decoded PremierCaractere(std::string_view text) {
  const auto at = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = at(0);
  if (lead < 0x80) return {lead, 1};
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return {Malforme, 1};
  char32_t c = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((at(i) & 0xC0) != 0x80) return {Malforme, 1};
    c = (c << 6) | (at(i) & 0x3FU);
  }
  const bool shortForm = (length == 3 && c < 0x800) || (length == 4 && c < 0x10000);
  const bool surrogate = c >= 0xD800 && c <= 0xDFFF;
  if (shortForm || surrogate || c > 0x10FFFF) return {Malforme, 1};
  return {c, length};
}

char32_t EnMajuscule(char32_t c) {
  if (c >= 'a' && c <= 'z') return c - 32;
  if (c < 0xE0) return c;
  if (c <= 0xFE && c != 0xF7) return c - 32;
  if (c == 0xFF) return 0x178;
  const bool evenUpper = (c >= 0x100 && c <= 0x137 && c != 0x131) || (c >= 0x14A && c <= 0x177);
  if (evenUpper) return c & ~char32_t{1};
  const bool oddUpper = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
  if (oddUpper && (c & 1) == 0) return c - 1;
  return c;
}

char32_t EnMinuscule(char32_t c) {
  if (c >= 'A' && c <= 'Z') return c + 32;
  if (c < 0xC0) return c;
  if (c <= 0xDE && c != 0xD7) return c + 32;
  if (c == 0x178) return 0xFF;
  const bool evenUpper = (c >= 0x100 && c <= 0x137 && c != 0x130) || (c >= 0x14A && c <= 0x177);
  if (evenUpper) return c | 1;
  const bool oddUpper = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
  if (oddUpper && (c & 1) == 1) return c + 1;
  return c;
}

template <typename Change>
std::string ChangeCaracteres(std::string_view text, Change change) {
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    const Decoded d = PremierCaractere(text);
    if (d.character == Malforme) {
      out += text[0];
    } else {
      AjouteUtf8(out, change(d.character));
    }
    text.remove_prefix(d.length);
  }
  return out;
}

std::optional<std::string> Encode(std::string_view text, bool withQuestionMarks,
                                  std::string* missing) {
  std::string bytes;
  bytes.reserve(text.size());
  while (!text.empty()) {
    const Decoded d = PremierCaractere(text);
    const auto byte = d.character == Malforme ? std::nullopt : OctetDeCaractere(d.character);
    if (!byte && !withQuestionMarks) {
      if (missing != nullptr) *missing = std::string(text.substr(0, d.length));
      return std::nullopt;
    }
    bytes += byte ? static_cast<char>(*byte) : '?';
    text.remove_prefix(d.length);
  }
  return bytes;
}

}  // namespace

std::string Cp1252VersUtf8(std::string_view bytes) {
  std::string out;
  out.reserve(bytes.size());
  for (const char b : bytes) AjouteUtf8(out, CaractereDeOctet(static_cast<unsigned char>(b)));
  return out;
}

std::optional<std::string> Utf8VersCp1252(std::string_view text, std::string* missing) {
  return Encode(text, false, missing);
}

std::string Utf8VersCp1252AvecManques(std::string_view text) {
  return *Encode(text, true, nullptr);
}

bool EstAscii(std::string_view bytes) {
  constexpr std::uint64_t highBits = 0x8080808080808080U;
  std::uint64_t seen = 0;
  std::size_t i = 0;
  for (; i + sizeof seen <= bytes.size(); i += sizeof seen) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, bytes.data() + i, sizeof eight);
    seen |= eight;
  }
  for (; i < bytes.size(); ++i) seen |= static_cast<unsigned char>(bytes[i]);
  return (seen & highBits) == 0;
}

bool EstUtf8(std::string_view bytes) {
  constexpr std::size_t block = 64;
  while (!bytes.empty()) {
    const std::string_view some = bytes.substr(0, block);
    if (EstAscii(some)) {
      bytes.remove_prefix(some.size());
      continue;
    }
    for (std::size_t read = 0; read < some.size();) {
      const Decoded d = PremierCaractere(bytes);
      if (d.character == Malforme) return false;
      bytes.remove_prefix(d.length);
      read += d.length;
    }
  }
  return true;
}

std::size_t CompteCaracteres(std::string_view utf8) {
  std::size_t count = 0;
  for (; !utf8.empty(); ++count) utf8.remove_prefix(PremierCaractere(utf8).length);
  return count;
}

std::string_view PremiersCaracteres(std::string_view utf8, std::size_t count) {
  std::size_t length = 0;
  for (; count > 0 && length < utf8.size(); --count) {
    length += PremierCaractere(utf8.substr(length)).length;
  }
  return utf8.substr(0, length);
}

std::string Majuscules(std::string_view utf8) { return ChangeCaracteres(utf8, EnMajuscule); }

std::string Minuscules(std::string_view utf8) { return ChangeCaracteres(utf8, EnMinuscule); }

bool EgalSansCasse(std::string_view a, std::string_view b) {
  return a == b || Majuscules(a) == Majuscules(b);
}

std::string_view RogneGauche(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return text;
}

std::string_view RogneDroite(std::string_view text) {
  const std::size_t last = text.find_last_not_of(' ');
  return last == std::string_view::npos ? std::string_view{} : text.substr(0, last + 1);
}

std::string_view Rogne(std::string_view text) { return RogneGauche(RogneDroite(text)); }

std::vector<std::string> Decoupe(std::string_view text, char separator) {
  std::vector<std::string> pieces;
  while (true) {
    const std::size_t at = text.find(separator);
    pieces.emplace_back(text.substr(0, at));
    if (at == std::string_view::npos) return pieces;
    text.remove_prefix(at + 1);
  }
}

std::string Remplace(std::string_view text, std::string_view search, std::string_view replacement) {
  if (search.empty()) return std::string(text);
  std::string out;
  while (true) {
    const std::size_t at = text.find(search);
    out += text.substr(0, at);
    if (at == std::string_view::npos) return out;
    out += replacement;
    text.remove_prefix(at + search.size());
  }
}

}  // namespace talpena
