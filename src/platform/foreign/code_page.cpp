#include "platform/foreign/code_page.h"

#include <unicode/ucnv.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <memory>

#include "common/msg_id_errors.h"
#include "common/talpena_error.h"
#include "common/text.h"

namespace talpena {
namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";  // U+FFFD

struct Converter {
  int number;
  const char* name;
};

// clang-format off
constexpr Converter converters[] = {
    {437, "cp437"}, {737, "cp737"}, {850, "cp850"}, {852, "cp852"}, {857, "cp857"},
    {860, "cp860"}, {861, "cp861"}, {863, "cp863"}, {865, "cp865"}, {866, "cp866"}, {869, "cp869"},
    {1250, "windows-1250"}, {1251, "windows-1251"}, {1252, "windows-1252"},
    {1253, "windows-1253"}, {1254, "windows-1254"},
};
// clang-format on

struct Correction {
  int number;
  unsigned char byte;
  std::string_view character;
};

/// Where the converters differ from the tables that Unicode publishes for these code pages.
constexpr Correction corrections[] = {
    {437, 0xE6, "\u00B5"}, {860, 0xE6, "\u00B5"}, {861, 0xE6, "\u00B5"},
    {863, 0xE6, "\u00B5"}, {865, 0xE6, "\u00B5"}, {869, 0x88, "\u00B7"},
    {869, 0xEF, "\u0384"}, {852, 0xAA, "\u00AC"}, {1253, 0xAA, replacement}};

TalpenaError PageInconnue(int number) {
  return {ErrorNumber::InvalidArgument,
          "Invalid argument: code page " + std::to_string(number) + " is not known.",
          {}};
}

/// The converters give controls, and places that are nobody's, where a code page has nothing.
bool SansSens(UChar32 c) {
  const bool control = c >= 0x80 && c < 0xA0, privateUse = c >= 0xE000 && c < 0xF900;
  return control || privateUse || c == 0xFFFD;
}

std::string EnUtf8(UConverter* converter, char byte) {
  UErrorCode status = U_ZERO_ERROR;
  const char* from = &byte;
  const UChar32 c = ucnv_getNextUChar(converter, &from, from + 1, &status);
  if (U_FAILURE(status) || SansSens(c)) return std::string(replacement);
  std::array<char, 8> utf8{};
  const std::int32_t length =
      ucnv_toAlgorithmic(UCNV_UTF8, converter, utf8.data(), utf8.size(), &byte, 1, &status);
  return {utf8.data(), static_cast<std::size_t>(length)};
}

CodePage::UpperHalf FaitMoitieHaute(const Converter& page) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UConverter, decltype(&ucnv_close)> converter(ucnv_open(page.name, &status),
                                                                     &ucnv_close);
  if (U_FAILURE(status)) throw PageInconnue(page.number);
  CodePage::UpperHalf upper;
  for (std::size_t i = 0; i < upper.size(); ++i) {
    upper[i] = EnUtf8(converter.get(), static_cast<char>(0x80 + i));
  }
  for (const Correction& correction : corrections) {
    if (correction.number == page.number) upper[correction.byte - 0x80U] = correction.character;
  }
  return upper;
}

const CodePage::UpperHalf& MoitieHaute(int number) {
  static const std::map<int, CodePage::UpperHalf> halves = [] {
    std::map<int, CodePage::UpperHalf> made;
    for (const Converter& page : converters) made.emplace(page.number, FaitMoitieHaute(page));
    return made;
  }();
  return halves.at(number);
}

void AjouteUtf8(std::string& out, std::string_view bytes) {
  if (EstUtf8(bytes)) {
    out += bytes;
    return;
  }
  while (!bytes.empty()) {
    const std::string_view character = PremiersCaracteres(bytes, 1);
    out += EstUtf8(character) ? character : replacement;
    bytes.remove_prefix(character.size());
  }
}

[[noreturn]] void RefuseCaractere(const std::string& character) {
  throw TalpenaError(ErrorNumber::NotInCodePage,
                     "The character '" + character + "' is not in code page 1252.",
                     {.text = MsgId::TexteSansCaractere, .about = {character}});
}

/// The name of a control that stands in a text though its byte has no meaning.
const char* ControleSansSens(char byte) {
  switch (static_cast<unsigned char>(byte)) {
    case 0x81:
      return "U+0081";
    case 0x8D:
      return "U+008D";
    case 0x8F:
      return "U+008F";
    case 0x90:
      return "U+0090";
    case 0x9D:
      return "U+009D";
    default:
      return nullptr;
  }
}

}  // namespace

bool CodePage::Connue(int number) {
  return number == utf8 ||
         std::ranges::find(converters, number, &Converter::number) != std::end(converters);
}

CodePage::CodePage(int number) : number_(number) {
  if (!Connue(number)) throw PageInconnue(number);
  if (number != utf8) upper_ = &MoitieHaute(number);
}

void CodePage::Ajoute(std::string& out, std::string_view bytes) const {
  if (EstAscii(bytes)) {
    out += bytes;
  } else if (number_ == utf8) {
    AjouteUtf8(out, bytes);
  } else {
    for (const char byte : bytes) {
      const auto value = static_cast<unsigned char>(byte);
      if (value < 0x80) {
        out += byte;
      } else {
        out += (*upper_)[value - 0x80U];
      }
    }
  }
}

std::string CodePage::EnUtf8(std::string_view bytes) const {
  std::string out;
  Ajoute(out, bytes);
  return out;
}

void AjouteEn1252(std::string& out, std::string_view utf8) {
  if (EstAscii(utf8)) {
    out += utf8;
    return;
  }
  std::string missing;
  const auto bytes = Utf8VersCp1252(utf8, &missing);
  if (!bytes) RefuseCaractere(missing);
  for (const char byte : *bytes) {
    if (const char* const name = ControleSansSens(byte)) RefuseCaractere(name);
  }
  out += *bytes;
}

}  // namespace talpena
