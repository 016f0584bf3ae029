// How texts compare: without regard to case, accents count (US English, secondary strength).
#pragma once
#include <memory>
#include <string>
#include <string_view>

namespace talpena::sqlite {

/// Name under which the comparison is known to SQLite.
inline constexpr const char* CollationName = "TALPENA";

/// ASCII texts are compared through a table of weights taken from ICU at construction, all
/// others by ICU itself; the two agree (held by CollationTest.AgreesWithIcu). UTF-8 throughout.
class Collation {
 public:
  Collation();
  ~Collation();
  Collation(const Collation&) = delete;
  Collation& operator=(const Collation&) = delete;

  /// Below, at or above 0.
  int Compare(std::string_view a, std::string_view b) const;

  /// ASCII alone, and each of its characters counts: two such texts are equal just when they are
  /// without regard to case.
  bool EstSimple(std::string_view text) const;

  /// Bytes whose order (memcmp, the shorter first) is that of the texts, appended to `key`.
  /// The key holds at most one zero byte: keys of several texts may be joined with "\0\0".
  void AjouteCle(std::string_view text, std::string& key) const;

 private:
  struct Icu;

  unsigned char Poids(char c) const { return weights_[static_cast<unsigned char>(c)]; }
  bool CompareAscii(std::string_view a, std::string_view b, int& result) const;
  void AjouteCleIcu(std::string_view text, std::string& key) const;
  void AjoutePrimaire(unsigned primary, std::string& key) const;

  std::unique_ptr<Icu> icu_;
  unsigned char weights_[128] = {};  ///< even; 0: the character does not count
};

/// A character without its case, as LIKE compares: accents stay, and no letter beyond ASCII
/// falls together with one of ASCII.
char32_t SansCasse(char32_t c);

}  // namespace talpena::sqlite
