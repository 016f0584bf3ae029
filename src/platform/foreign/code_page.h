// Texts of other makers' files, one byte a character or UTF-8.
#pragma once
#include <array>
#include <string>
#include <string_view>

namespace talpena {

/// A code page that files are read in.
class CodePage {
 public:
  static constexpr int utf8 = 65001;
  /// Characters of the bytes from 80 (hexadecimal) on.
  using UpperHalf = std::array<std::string, 128>;

  /// 437, 737, 850, 852, 857, 860, 861, 863, 865, 866, 869, 1250 to 1254, and UTF-8.
  static bool Connue(int number);

  /// Raises InvalidArgument (3001) for a number that is not known.
  explicit CodePage(int number);

  int Numero() const { return number_; }

  /// Adds bytes as UTF-8. Those without a meaning become U+FFFD: nothing fails.
  void Ajoute(std::string& out, std::string_view bytes) const;
  std::string EnUtf8(std::string_view bytes) const;

 private:
  int number_;
  const UpperHalf* upper_ = nullptr;  ///< null for UTF-8
};

/// Adds a UTF-8 text in code page 1252. A character that it lacks raises NotInCodePage (481), which
/// names it; so do the controls U+0081, U+008D, U+008F, U+0090 and U+009D, whose bytes have no
/// meaning. Nothing is added then.
void AjouteEn1252(std::string& out, std::string_view utf8);

}  // namespace talpena
