// Free-format input of a text file: whole lines, then items between commas, blanks and line ends.
#pragma once
#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/files.h"

namespace talpena {

/// A line ends with CR LF, LF or CR; text is code page 1252. An item that is asked for behind the
/// end of the file raises InputPastEnd (62). Lines and texts are cut at `longest` bytes, so that no
/// file takes more memory than that.
class FreeInput {
 public:
  static constexpr std::size_t longest = 1 << 16;

  explicit FreeInput(std::unique_ptr<InputFile> file);

  std::string Ligne();  ///< the rest of the line, UTF-8
  /// In double quotes, or up to the next comma or the end of the line; UTF-8.
  std::string Chaine();
  /// A number ends at a comma, a blank or the end of its line. Nothing between two commas is 0;
  /// what is no number raises TypeMismatch (13), one out of range Overflow (6).
  float Simple();
  std::int16_t Entier();  ///< halves to even
  bool Fini();            ///< nothing is left but blanks, tabs and line ends

 private:
  static constexpr int end = -1;

  int Voit();     ///< the next byte, or `end`
  void Avance();  ///< takes it
  bool FinDeLigne(int c) const { return c == '\r' || c == '\n'; }
  void PrendFinDeLigne();
  void SauteBlancs();
  void SauteLignes();  ///< blanks, tabs and line ends
  void FermeElement();
  void Exige();
  double Nombre();

  std::unique_ptr<InputFile> file_;
  std::array<char, 4096> buffer_;
  std::size_t next_ = 0;
  std::size_t filled_ = 0;
};

}  // namespace talpena
