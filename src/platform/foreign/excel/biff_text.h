// Texts of workbooks as UTF-8. What has no meaning becomes U+FFFD; nothing fails but a text that is
// longer than its record.
#pragma once
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/foreign/code_page.h"
#include "platform/foreign/excel/biff_cursor.h"

struct UConverter;

namespace talpena::excel {

/// Texts of BIFF5, in the code page that the workbook names.
class ByteTexts {
 public:
  /// @param codePage  as the record CODEPAGE has it; one that is not known counts as 1252
  explicit ByteTexts(int codePage);

  std::string EnUtf8(std::string_view bytes) const;

 private:
  struct Fermeture {
    void operator()(UConverter* converter) const;
  };

  std::optional<CodePage> page_;
  std::unique_ptr<UConverter, Fermeture> wide_;  ///< of a page in which a character takes two bytes
};

/// The bytes of a record on which a cursor stands and of the CONTINUE records behind it.
class ContinuedRecord {
 public:
  ContinuedRecord(BiffCursor& cursor, std::size_t from) : cursor_(cursor), at_(from) {}

  bool Fini();
  std::uint8_t Octet();
  std::uint16_t Mot16();
  std::uint32_t Mot32();
  void Saute(std::size_t bytes);
  /// Adds a text of BIFF8 with its flags, but without the length, which stood ahead of them.
  void Texte(std::size_t characters, std::string& out);

 private:
  bool Continue();
  void Caracteres(std::size_t count, bool wide, std::u16string& out);

  BiffCursor& cursor_;
  std::size_t at_;
};

/// Adds UTF-16 as UTF-8.
void AjouteUtf16(std::u16string_view text, std::string& out);

}  // namespace talpena::excel
