#include "platform/foreign/jet/text.h"

#include <algorithm>

#include "platform/foreign/jet/bytes.h"

namespace talpena::jet {
namespace {

constexpr std::string_view shortMark = "\xFF\xFE";
constexpr std::size_t fewestShort = 3;  // below that the mark makes the short form longer

/// Well-formed texts only: the engine lets no others in.
char32_t Prochain(std::string_view& utf8) {
  const auto lead = static_cast<unsigned char>(utf8.front());
  const std::size_t length = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  char32_t c = length == 1 ? lead : lead & (0x7FU >> length);
  for (std::size_t i = 1; i < std::min(length, utf8.size()); ++i) {
    c = c << 6 | (static_cast<unsigned char>(utf8[i]) & 0x3F);
  }
  utf8.remove_prefix(std::min(length, utf8.size()));
  return c;
}

std::u16string EnUnites(std::string_view utf8) {
  std::u16string units;
  units.reserve(utf8.size());
  while (!utf8.empty()) {
    char32_t c = Prochain(utf8);
    if (c > 0xFFFF) {
      c -= 0x10000;
      units += static_cast<char16_t>(0xD800 + (c >> 10));
      c = 0xDC00 + (c & 0x3FF);
    }
    units += static_cast<char16_t>(c);
  }
  return units;
}

/// Two bytes for each unit; of an ASCII text each byte is one.
template <typename Units>
void AjouteLarge(std::string& row, const Units& units) {
  const std::size_t from = row.size();
  row.resize(from + 2 * units.size());
  char* into = row.data() + from;
  for (const auto unit : units) {
    PoseNombre(into, static_cast<std::uint16_t>(unit));
    into += 2;
  }
}

bool ZeroEnBas(std::u16string_view units) {
  return std::any_of(units.begin(), units.end(), [](char16_t u) { return (u & 0xFF) == 0; });
}

void AjouteUnites(std::string& row, std::u16string_view units, TextForm form) {
  constexpr char16_t byteOrderMark = 0xFEFF;  // in two bytes it looks like the mark
  const bool narrow =
      std::all_of(units.begin(), units.end(), [](char16_t u) { return u > 0 && u < 0x100; });
  if (form == TextForm::Short && narrow && units.size() >= fewestShort) {
    row += shortMark;
    for (const char16_t unit : units) row += static_cast<char>(unit);
    return;
  }
  if (!units.empty() && units.front() == byteOrderMark && !ZeroEnBas(units)) {
    row += shortMark;
    row += '\0';  // from here on two bytes a unit
  }
  AjouteLarge(row, units);
}

}  // namespace

std::size_t AjouteTexte(std::string& row, std::string_view utf8, TextForm form) {
  const bool ascii =
      std::all_of(utf8.begin(), utf8.end(), [](char c) { return static_cast<signed char>(c) > 0; });
  if (ascii) {
    if (form == TextForm::Short && utf8.size() >= fewestShort) {
      row += shortMark;
      row += utf8;
    } else {
      AjouteLarge(row, utf8);
    }
    return utf8.size();
  }
  const std::u16string units = EnUnites(utf8);
  AjouteUnites(row, units, form);
  return units.size();
}

}  // namespace talpena::jet
