#include "platform/sqlite/utf8.h"

namespace talpena::sqlite {
namespace {

constexpr char32_t Replacement = 0xFFFD;

/// Length of the sequence that a byte opens; 0 for none.
int LongueurDe(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

}  // namespace

char32_t LitPoint(std::string_view text, std::size_t& at) {
  const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(at);
  const int length = LongueurDe(lead);
  const std::size_t start = at++;
  if (length == 1) return lead;
  if (length == 0 || start + static_cast<std::size_t>(length) > text.size()) return Replacement;
  char32_t c = lead & (0xffu >> (length + 1));
  for (std::size_t i = start + 1; i < start + static_cast<std::size_t>(length); ++i) {
    if ((byte(i) & 0xC0) != 0x80) return Replacement;
    c = (c << 6) | (byte(i) & 0x3Fu);
  }
  const bool overlong = (length == 3 && c < 0x800) || (length == 4 && c < 0x10000);
  if (overlong || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) return Replacement;
  at = start + static_cast<std::size_t>(length);
  return c;
}

void AjoutePoint(char32_t c, std::string& text) {
  const auto tail = [&text, c](int shift) {
    text.push_back(static_cast<char>(0x80 | ((c >> shift) & 0x3F)));
  };
  if (c < 0x80) {
    text.push_back(static_cast<char>(c));
  } else if (c < 0x800) {
    text.push_back(static_cast<char>(0xC0 | (c >> 6)));
    tail(0);
  } else if (c < 0x10000) {
    text.push_back(static_cast<char>(0xE0 | (c >> 12)));
    tail(6);
    tail(0);
  } else {
    text.push_back(static_cast<char>(0xF0 | (c >> 18)));
    tail(12);
    tail(6);
    tail(0);
  }
}

std::string_view Caracteres(std::string_view text, std::size_t start, std::size_t count) {
  std::size_t at = 0;
  for (; start > 0 && at < text.size(); --start) LitPoint(text, at);
  const std::size_t first = at;
  for (; count > 0 && at < text.size(); --count) LitPoint(text, at);
  return text.substr(first, at - first);
}

}  // namespace talpena::sqlite
