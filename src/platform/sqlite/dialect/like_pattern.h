// LIKE as users of the engine write it: * any text, ? one character, # one digit, [a-z] one of
// a list or range, [!a-z] one outside it. Without regard to case; accents count.
#pragma once
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sqlite/collation.h"

namespace talpena::sqlite {

class LikePattern {
 public:
  /// Raises 93 (invalid pattern) for a "[" without its "]" and a range that falls.
  LikePattern(std::string_view pattern, const Collation& collation);

  /// At most (length of text) x (length of pattern) steps, whatever the pattern.
  /// `travaille` is told now and then how many steps were done; what it throws is thrown on.
  using Work = std::function<void(std::size_t steps)>;
  bool Correspond(std::string_view text, const Work& travaille = {}) const;

 private:
  enum class Kind : unsigned char { Literal, Any, One, Digit, Set };

  struct SetItem {
    char32_t low;
    char32_t high;
  };

  struct Step {
    Kind kind = Kind::Literal;
    char32_t literal = 0;  ///< without its case
    bool excluded = false;
    std::vector<SetItem> items;
  };

  void LitEnsemble(std::u32string_view pattern, std::size_t& at);
  void Accelere();
  bool ContientAscii(std::string_view text, const Work& travaille) const;
  bool ContientPoints(std::string_view text, const Work& travaille) const;
  bool Accepte(const Step& step, char32_t c) const;
  bool DansEnsemble(const Step& step, char32_t c) const;

  const Collation* collation_;
  std::vector<Step> steps_;
  std::string contained_;           ///< the pattern is *contained_* in ASCII: searched by bytes
  std::u32string containedPoints_;  ///< the same beyond ASCII, without case
};

/// The code points of a text; malformed bytes count as U+FFFD each.
std::u32string PointsDeCode(std::string_view utf8);

}  // namespace talpena::sqlite
