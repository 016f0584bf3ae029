#include "platform/foreign/dbase/text_page.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "common/text.h"
#include "platform/foreign/code_page.h"

namespace talpena::dbase {
namespace {

constexpr std::string_view softEnd = "\x8D\n";

struct Mark {
  int language;
  int page;
};

// clang-format off
constexpr Mark marks[] = {
    {0x01, 437}, {0x02, 850}, {0x03, 1252}, {0x57, 1252}, {0x58, 1252}, {0x59, 1252},
    {0x64, 852}, {0x65, 866}, {0xC8, 1250}, {0xC9, 1251}, {0xCA, 1254}, {0xCB, 1253},
};

struct PageName {
  std::string_view name;
  int page;
};

/// Without blanks, hyphens and underlines.
constexpr PageName pageNames[] = {
    {"UTF8", CodePage::utf8}, {"ISO88591", 1252}, {"88591", 1252}, {"LATIN1", 1252},
    {"ANSI", 1252},
};
// clang-format on

/// The number that a text ends in; 0 for none.
int NombreFinal(std::string_view text) {
  const std::size_t last = text.find_last_not_of("0123456789");
  const std::string_view digits = text.substr(last == std::string_view::npos ? 0 : last + 1);
  int value = 0;
  std::from_chars(digits.begin(), digits.end(), value);
  return value;
}

}  // namespace

std::optional<int> PageDeMarque(int language) {
  const auto* const found = std::ranges::find(marks, language, &Mark::language);
  return found == std::end(marks) ? std::nullopt : std::optional(found->page);
}

std::optional<int> PageDeCpg(std::string_view content) {
  constexpr std::string_view language = "LDID/";
  std::string name = Majuscules(content);
  std::erase_if(
      name, [](char c) { return std::string_view(" -_\r\n\t").find(c) != std::string_view::npos; });
  const auto* const found = std::ranges::find(pageNames, name, &PageName::name);
  if (found != std::end(pageNames)) return found->page;
  const int number = NombreFinal(name);
  if (name.starts_with(language)) return PageDeMarque(number);
  return CodePage::Connue(number) ? std::optional(number) : std::nullopt;
}

void PageGuess::Voit(std::string_view text) {
  if (EstAscii(text)) return;
  utf8_ = utf8_ && EstUtf8(text);
  Compte(text);
}

void PageGuess::VoitMemo(std::string_view memo) {
  if (EstAscii(memo)) return;
  utf8_ = utf8_ && EstUtf8(memo);
  for (std::size_t end = 0; (end = memo.find(softEnd)) != std::string_view::npos;) {
    Compte(memo.substr(0, end));
    memo.remove_prefix(end + softEnd.size());
  }
  Compte(memo);
}

void PageGuess::Compte(std::string_view text) {
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    above_ += byte >= 0x80 ? 1 : 0;
    dos_ += byte >= 0x80 && byte <= 0xA5 ? 1 : 0;
    windows_ += byte >= 0xC0 ? 1 : 0;
  }
}

int PageGuess::Page() const {
  constexpr int dos = 850, windows = 1252;
  if (utf8_ && above_ > 0) return CodePage::utf8;
  return dos_ > windows_ ? dos : windows;
}

void OteFinsSouples(std::string& memo) {
  if (memo.find(softEnd) != std::string::npos) memo = Remplace(memo, softEnd, " ");
}

}  // namespace talpena::dbase
