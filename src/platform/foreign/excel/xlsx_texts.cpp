#include "platform/foreign/excel/xlsx_texts.h"

#include <charconv>
#include <cstddef>
#include <optional>
#include <utility>

#include "platform/foreign/excel/biff_text.h"
#include "platform/foreign/excel/xml_part.h"

namespace talpena::excel {
namespace {

constexpr std::size_t escapeBytes = 7;  // _x000D_

/// The code of an escape at the beginning of a text.
std::optional<char16_t> CodeEchappe(std::string_view text) {
  if (text.size() < escapeBytes || !text.starts_with("_x") || text[escapeBytes - 1] != '_') {
    return {};
  }
  unsigned code = 0;
  const char* const digits = text.data() + 2;
  const auto [end, error] = std::from_chars(digits, digits + 4, code, 16);
  if (error != std::errc() || end != digits + 4) return {};
  return static_cast<char16_t>(code);
}

class SharedHandler final : public XmlHandler {
 public:
  explicit SharedHandler(SharedTexts& texts) : texts_(texts) {}
  void Debut(std::string_view name, const XmlAttributes&) override {
    if (name == "si") pieces_.Commence();
    pieces_.Debut(name);
  }
  void Fin(std::string_view name) override {
    pieces_.Fin(name);
    if (name != "si") return;
    texts_.Suite() += pieces_.Texte();
    if (!texts_.Finit()) Echoue();
  }
  void Texte(std::string_view text) override {
    if (!pieces_.Ajoute(text)) Echoue();
  }

 private:
  SharedTexts& texts_;
  TextPieces pieces_;
};

}  // namespace

void TextPieces::Debut(std::string_view name) {
  if (name == "t" || name == "v") ++within_;
  if (name == "rPh") ++spoken_;
}

void TextPieces::Fin(std::string_view name) {
  if (name == "t" || name == "v") --within_;
  if (name == "rPh") --spoken_;
}

bool TextPieces::Ajoute(std::string_view text) {
  constexpr std::size_t mostBytes = std::size_t{1} << 20;
  if (within_ > 0 && spoken_ == 0) text_ += text;
  return text_.size() <= mostBytes;
}

std::string TextPieces::Texte() const { return SansEchappement(text_); }

std::string SansEchappement(std::string_view text) {
  if (text.find("_x") == std::string_view::npos) return std::string(text);
  std::string out;
  while (!text.empty()) {
    std::u16string units;  // two escapes may make one character
    while (const auto code = CodeEchappe(text)) {
      units += *code;
      text.remove_prefix(escapeBytes);
    }
    AjouteUtf16(units, out);
    const std::size_t next = text.empty() ? 0 : text.find("_x", units.empty() ? 1 : 0);
    out += text.substr(0, next);
    text.remove_prefix(next == std::string_view::npos ? text.size() : next);
  }
  return out;
}

std::string AvecEchappement(std::string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\0') {
      out += "_x0000_";
      continue;
    }
    const std::string_view here = text.substr(i, 3);
    if (here == "\xEF\xBF\xBE" || here == "\xEF\xBF\xBF") {  // no characters of XML
      out += here == "\xEF\xBF\xBE" ? "_xFFFE_" : "_xFFFF_";
      i += 2;
      continue;
    }
    if (CodeEchappe(text.substr(i))) out += "_x005F";
    out += text[i];
  }
  return out;
}

SharedTexts LitTextesPartages(const ZipFile& file, const std::string& part) {
  SharedTexts texts;
  if (auto bytes = file.Partie(part)) {
    SharedHandler handler(texts);
    XmlPart(file, std::move(bytes), handler).LitTout();
  }
  return texts;
}

}  // namespace talpena::excel
