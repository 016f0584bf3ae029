// Texts of .xlsx files.
#pragma once
#include <string>
#include <string_view>

#include "platform/foreign/excel/shared_texts.h"
#include "platform/foreign/excel/zip_reader.h"

namespace talpena::excel {

/// Collects the text of an element that may be in pieces of different looks; how it is pronounced
/// is left out.
class TextPieces {
 public:
  void Commence() { text_.clear(); }
  void Debut(std::string_view name);
  void Fin(std::string_view name);
  /// False when it grows beyond any cell's.
  [[nodiscard]] bool Ajoute(std::string_view text);
  /// With its escapes read.
  std::string Texte() const;

 private:
  std::string text_;
  int within_ = 0;  ///< elements that hold text
  int spoken_ = 0;  ///< elements that say how it is pronounced
};

/// `_x000D_` and the like as the characters that they stand for.
std::string SansEchappement(std::string_view text);
/// A text that SansEchappement gives back: what looks like an escape, NUL and what is no character
/// of XML are escaped; the other controls are left to who writes the XML.
std::string AvecEchappement(std::string_view text);

/// The texts that cells share; none when the file has no such part.
SharedTexts LitTextesPartages(const ZipFile& file, const std::string& part);

}  // namespace talpena::excel
