// The lines of a .deg file or a typed list, in the bytes of their code page, read in blocks.
#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace talpena {

/// Longest line that is read: of a header, and of a row.
inline constexpr std::size_t MaxHeaderLine = std::size_t{1} << 20;
inline constexpr std::size_t MaxRowLine = std::size_t{16} << 20;

/// A file as lines. A line ends at CR or at CR LF; a bare LF belongs to the text, as line breaks
/// inside a remark do. The last line needs no end. NUL and all other bytes are ordinary
/// characters. Only a block of the file is in memory, and one line when it is longer. What is added
/// to the file while it is read is not read.
class DegLines {
 public:
  enum class LineEnd {
    Cr,      ///< CR or CR LF
    CrOrLf,  ///< LF alone too, for lists that are typed by hand
  };

  explicit DegLines(std::unique_ptr<InputFile> file, LineEnd end = LineEnd::Cr);

  /// The next line without its end; valid until the next call. False at the end of the file.
  /// A line above the limit raises Overflow (6), the description naming the line.
  bool Lit(std::string_view& line);

  /// The next line where one has to be; InputPastEnd (62) at the end of the file.
  std::string_view LitObligatoire();

  /// The longest line that Lit takes from now on; MaxHeaderLine at first.
  void Limite(std::size_t bytes) { limit_ = bytes; }

  /// A last line without an end of its own held LFs: what was written line by line with LF alone
  /// looks so.
  bool FinsLf() const { return lfOnly_; }

  std::int64_t Numero() const { return number_; }      ///< of the line read last, from 1
  std::int64_t Position() const { return position_; }  ///< bytes up to the end of that line
  std::int64_t Taille() const { return file_->Taille(); }

 private:
  bool Remplit();
  void FaitPlace();
  bool TrouveFin(std::size_t& length);
  std::size_t LongueurFin(std::size_t length);
  [[noreturn]] void RefuseLongueur();

  std::unique_ptr<InputFile> file_;
  LineEnd end_;
  std::vector<char> buffer_;
  std::size_t first_ = 0;  ///< of what is still to be handed out
  std::size_t last_ = 0;   ///< behind it
  std::size_t limit_ = MaxHeaderLine;
  std::int64_t number_ = 0;
  std::int64_t position_ = 0;
  std::int64_t unread_ = 0;  ///< bytes of the file as it was when it was opened
  bool lfOnly_ = false;      ///< the last line has LFs in it and no end
};

}  // namespace talpena
