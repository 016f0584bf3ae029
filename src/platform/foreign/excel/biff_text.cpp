#include "platform/foreign/excel/biff_text.h"

#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>

#include <algorithm>
#include <array>

namespace talpena::excel {
namespace {

struct WidePage {
  int number;
  const char* converter;
};

// Those of Office on other systems, and of East Asia.
constexpr WidePage widePages[] = {
    {874, "windows-874"},      {932, "windows-932"},
    {936, "windows-936"},      {949, "windows-949"},
    {950, "windows-950"},      {1255, "windows-1255"},
    {1256, "windows-1256"},    {1257, "windows-1257"},
    {1258, "windows-1258"},    {10000, "macintosh"},
    {0x8000, "macintosh"},     {10006, "macgr"},
    {10007, "x-mac-cyrillic"}, {10029, "x-mac-centraleurroman"},
};

const char* ConvertisseurDe(int codePage) {
  const auto* const found = std::ranges::find(widePages, codePage, &WidePage::number);
  return found == std::end(widePages) ? nullptr : found->converter;
}

/// Bytes without a meaning are U+FFFD; left alone, the library takes a control for some.
void RemplaceOctets(const void*, UConverterToUnicodeArgs* args, const char*, int32_t,
                    UConverterCallbackReason reason, UErrorCode* status) {
  constexpr UChar replacement = 0xFFFD;
  if (reason > UCNV_IRREGULAR) return;
  *status = U_ZERO_ERROR;
  ucnv_cbToUWriteUChars(args, &replacement, 1, 0, status);
}

void AjouteCaractere(char32_t c, std::string& out) {
  const auto tail = [&](unsigned shift) { out += static_cast<char>(0x80 | (c >> shift & 0x3F)); };
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | c >> 6);
    tail(0);
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | c >> 12);
    tail(6);
    tail(0);
  } else {
    out += static_cast<char>(0xF0 | c >> 18);
    tail(12);
    tail(6);
    tail(0);
  }
}

bool EstPremiere(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool EstSeconde(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

}  // namespace

void ByteTexts::Fermeture::operator()(UConverter* converter) const { ucnv_close(converter); }

ByteTexts::ByteTexts(int codePage) {
  constexpr int western = 1252;
  if (const char* const name = ConvertisseurDe(codePage)) {
    UErrorCode status = U_ZERO_ERROR;
    wide_.reset(ucnv_open(name, &status));
    ucnv_setToUCallBack(wide_.get(), RemplaceOctets, nullptr, nullptr, nullptr, &status);
    if (U_FAILURE(status)) wide_.reset();
  }
  if (wide_ == nullptr) page_.emplace(CodePage::Connue(codePage) ? codePage : western);
}

std::string ByteTexts::EnUtf8(std::string_view bytes) const {
  if (page_) return page_->EnUtf8(bytes);
  std::u16string text(bytes.size() * 2, u'\0');  // no byte becomes more than two units
  UErrorCode status = U_ZERO_ERROR;
  const int32_t units = ucnv_toUChars(wide_.get(), text.data(), static_cast<int32_t>(text.size()),
                                      bytes.data(), static_cast<int32_t>(bytes.size()), &status);
  std::string out;
  if (U_SUCCESS(status)) {
    AjouteUtf16(std::u16string_view(text).substr(0, static_cast<std::size_t>(units)), out);
  }
  return out;
}

/// Goes to the next CONTINUE when the bytes here are at their end; false when there is none.
bool ContinuedRecord::Continue() {
  while (at_ >= cursor_.Donnees().size()) {
    if (cursor_.Prochain() != Biff::Continue) return false;
    cursor_.Avance();
    at_ = 0;
  }
  return true;
}

bool ContinuedRecord::Fini() { return !Continue(); }

std::uint8_t ContinuedRecord::Octet() {
  if (!Continue()) cursor_.Refuse();
  return cursor_.Octet(at_++);
}

std::uint16_t ContinuedRecord::Mot16() {
  const unsigned low = Octet();
  return static_cast<std::uint16_t>(low | static_cast<unsigned>(Octet()) << 8);
}

std::uint32_t ContinuedRecord::Mot32() {
  const std::uint32_t low = Mot16();
  return low | std::uint32_t{Mot16()} << 16;
}

void ContinuedRecord::Saute(std::size_t bytes) {
  while (bytes > 0) {
    if (!Continue()) cursor_.Refuse();
    const std::size_t here = std::min(bytes, cursor_.Donnees().size() - at_);
    at_ += here;
    bytes -= here;
  }
}

void ContinuedRecord::Texte(std::size_t characters, std::string& out) {
  constexpr unsigned wideFlag = 1, eastAsian = 4, rich = 8;
  constexpr std::size_t runBytes = 4;
  const unsigned flags = Octet();
  std::size_t behind = (flags & rich) != 0 ? Mot16() * runBytes : 0;
  if ((flags & eastAsian) != 0) behind += Mot32();
  std::u16string units;
  Caracteres(characters, (flags & wideFlag) != 0, units);
  AjouteUtf16(units, out);
  Saute(behind);
}

/// Where a text goes on in the next record, that begins with a flag of its own.
void ContinuedRecord::Caracteres(std::size_t count, bool wide, std::u16string& out) {
  while (count > 0) {
    if (at_ >= cursor_.Donnees().size()) wide = (Octet() & 1U) != 0;
    const std::size_t width = wide ? 2 : 1;
    const std::size_t here = std::min(count, (cursor_.Donnees().size() - at_) / width);
    if (here == 0) cursor_.Refuse();
    for (std::size_t i = 0; i < here; ++i, at_ += width) {
      out += static_cast<char16_t>(wide ? cursor_.Mot16(at_) : cursor_.Octet(at_));
    }
    count -= here;
  }
}

void AjouteUtf16(std::u16string_view text, std::string& out) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t c = text[i];
    if (EstPremiere(text[i]) && i + 1 < text.size() && EstSeconde(text[i + 1])) {
      c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00U);
    } else if (EstPremiere(text[i]) || EstSeconde(text[i])) {
      c = 0xFFFD;
    }
    AjouteCaractere(c, out);
  }
}

}  // namespace talpena::excel
