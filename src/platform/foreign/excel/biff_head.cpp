#include "platform/foreign/excel/biff_head.h"

#include <initializer_list>

#include "platform/foreign/code_page.h"
#include "platform/foreign/excel/biff_records.h"
#include "platform/foreign/little_endian.h"

namespace talpena::excel {
namespace {

constexpr std::size_t styles = 15;  // formats ahead of those of cells: readers count on them

std::string Mots(std::initializer_list<int> words) {
  std::string bytes;
  for (const int word : words) AjouteNombre(bytes, static_cast<std::uint16_t>(word));
  return bytes;
}

std::string Fiche(Biff number, const std::string& data) {
  return Mots({static_cast<int>(number), static_cast<int>(data.size())}) + data;
}

std::string Debut(int kind) {
  constexpr int build = 0x096C, year = 1993;
  return Fiche(Biff::Bof, Mots({versionBiff5, kind, build, year}));
}

std::string Fenetre() {
  constexpr int width = 0x25BC, height = 0x1572, tabsAndBars = 0x0038, tabRatio = 0x0258;
  return Fiche(Biff::Window1, Mots({0, 0, width, height, tabsAndBars, 0, 0, 1, tabRatio}));
}

std::string Police(bool bold) {
  constexpr int tenPoints = 200, automatic = 0x7FFF, normalWeight = 400, boldWeight = 700;
  const std::string name = "Arial";
  std::string data = Mots({tenPoints, 0, automatic, bold ? boldWeight : normalWeight, 0});
  data.append(4, '\0');  // underline, family, character set
  data += static_cast<char>(name.size());
  return Fiche(Biff::Font, data + name);
}

/// @param own  which attributes are not those of the style, from bit 10 on
std::string Format(int font, int number, int protection, int own) {
  constexpr int atBottom = 0x20, systemColours = 0x20C0;
  return Fiche(Biff::Xf, Mots({font, number, protection, atBottom | own, systemColours, 0, 0, 0}));
}

// The fifth font has the number 5: no font is number 4.
std::string PolicesEtFormats() {
  constexpr int boldFont = 5, style = 0xFFF5, cell = 1;
  constexpr int general = 0, text = 49, date = 14;  // number formats that every program knows
  constexpr int ownNumber = 0x0400, ownFont = 0x0800, nothingButStyle = 0xF400;
  std::string bytes;
  for (int i = 0; i < 4; ++i) bytes += Police(false);
  bytes += Police(true);
  for (std::size_t i = 0; i < styles; ++i) {
    bytes += Format(0, general, style, i == 0 ? 0 : nothingButStyle);
  }
  bytes += Format(0, general, cell, 0);
  bytes += Format(0, text, cell, ownNumber);
  bytes += Format(boldFont, general, cell, ownFont);
  bytes += Format(0, date, cell, ownNumber);
  constexpr int builtIn = 0x8000, normalStyle = 0xFF00;
  return bytes + Fiche(Biff::Style, Mots({builtIn, normalStyle}));
}

std::string Feuille(std::uint32_t place, const std::string& name) {
  std::string data;
  AjouteNombre(data, place);
  data += Mots({0});  // shown, a sheet
  data += static_cast<char>(name.size());
  return Fiche(Biff::BoundSheet, data + name);
}

}  // namespace

std::string Dimensions(std::int64_t rows, std::size_t columns) {
  return Fiche(Biff::Dimensions,
               Mots({0, static_cast<int>(rows), 0, static_cast<int>(columns), 0}));
}

BiffHead TeteDeClasseur(std::string_view sheet) {
  std::string name;
  AjouteEn1252(name, sheet);
  constexpr int western = 1252;
  BiffHead head;
  head.bytes =
      Debut(biffGlobals) + Fiche(Biff::CodePage, Mots({western})) + Fenetre() + PolicesEtFormats();
  const std::string end = Fiche(Biff::Eof, "");
  const std::size_t place = head.bytes.size() + Feuille(0, name).size() + end.size();
  head.bytes += Feuille(static_cast<std::uint32_t>(place), name) + end + Debut(biffSheet);
  head.dimensions = head.bytes.size();
  head.bytes += Dimensions(0, 0);
  return head;
}

std::string PiedDeFeuille() {
  constexpr int shownAndChosen = 0x06B6;
  return Fiche(Biff::Window2, Mots({shownAndChosen, 0, 0, 0, 0})) + Fiche(Biff::Eof, "");
}

}  // namespace talpena::excel
