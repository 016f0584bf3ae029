// The files that are imported, as bytes: where they end and what their characters are.
#pragma once
#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace talpena {

enum class Encodage : std::uint8_t { Cp1252, Utf8 };

/// Reads a file to find out what its characters are: UTF-8 when it has the mark of that at its
/// start, or is nothing but UTF-8 with at least one character above 127; else code page 1252. A
/// byte 1A (hexadecimal) ends the file.
class EncodageCherche {
 public:
  explicit EncodageCherche(std::unique_ptr<InputFile> file) : file_(std::move(file)) {}

  /// Reads on, `bytes` at most but for the rest of a block; false once it is known.
  bool Avance(std::int64_t bytes);
  /// As far as it was read.
  Encodage Resultat() const {
    return (known_ ? utf8_ : accented_) ? Encodage::Utf8 : Encodage::Cp1252;
  }

 private:
  void Juge(std::string_view block, bool ended);
  void Decide(bool utf8);

  std::unique_ptr<InputFile> file_;
  std::array<char, 32 << 10> block_{};
  std::size_t kept_ = 0;   ///< bytes at the start of the block, of a character that goes on
  bool begun_ = false;     ///< the first bytes were looked at
  bool accented_ = false;  ///< a character above 127 was met
  bool known_ = false;
  bool utf8_ = false;
};

/// The same at one go.
Encodage ChercheEncodage(std::unique_ptr<InputFile> file);

/// The byte 1A that ended a file, known once the file was read to there.
struct ImportEnd {
  bool coupe = false;   ///< more stands behind it than blanks, line ends and further such bytes
  bool enTete = false;  ///< it stands at the start of a line
};

/// A file that is imported, up to its byte 1A and without the mark of UTF-8. While it is read it
/// may not change: PathFileAccess (75) then, in words of its own.
struct ImportFile {
  std::unique_ptr<InputFile> file;
  Encodage encodage = Encodage::Cp1252;
  std::shared_ptr<const ImportEnd> fin = {};
};

/// Opens a file, which is read twice, for its characters the first time. Failures are those of the
/// file system.
ImportFile OuvreImport(FileSystem& files, const std::string& path);
/// The same where the characters are known already.
ImportFile OuvreImport(FileSystem& files, const std::string& path, Encodage encodage);
/// A file that is open, read from its first byte on.
ImportFile PrendImport(std::unique_ptr<InputFile> file, Encodage encodage);

/// Text of such a file in UTF-8: the bytes themselves where they are that, or `kept`. Bytes of an
/// UTF-8 file that are none are read as code page 1252.
std::string_view TexteImporte(std::string_view bytes, Encodage encodage, std::string& kept);

}  // namespace talpena
