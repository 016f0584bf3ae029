// Which code page the texts of a dBase or FoxPro table are in.
#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace talpena::dbase {

/// The page that the head's byte stands for; empty where it stands for none that is known.
std::optional<int> PageDeMarque(int language);

/// The page that a file ".cpg" beside the table names; empty for one that is not known.
std::optional<int> PageDeCpg(std::string_view content);

/// A guess by the texts themselves: UTF-8 if all of them are that and one has a character above
/// 127, else 850 if more of the bytes above 127 lie in 80-A5 (its letters) than in C0-FF (those of
/// 1252), else 1252.
class PageGuess {
 public:
  void Voit(std::string_view text);
  /// The same for a memo, where a soft line end is no letter.
  void VoitMemo(std::string_view memo);
  int Page() const;

 private:
  void Compte(std::string_view text);

  bool utf8_ = true;
  std::size_t above_ = 0;    ///< bytes above 127
  std::size_t dos_ = 0;      ///< those in 80-A5
  std::size_t windows_ = 0;  ///< those in C0-FF
};

/// A dBase memo with its soft line ends (8D 0A) as blanks.
void OteFinsSouples(std::string& memo);

}  // namespace talpena::dbase
