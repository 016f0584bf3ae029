#include "platform/sqlite/dialect/like_pattern.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "common/text.h"
#include "platform/sqlite/errors.h"
#include "platform/sqlite/utf8.h"

namespace talpena::sqlite {
namespace {

constexpr std::array<char, 256> MinusculesAscii() {
  std::array<char, 256> table{};
  for (unsigned i = 0; i < 256; ++i) {
    table[i] = static_cast<char>(i >= 'A' && i <= 'Z' ? i + 32 : i);
  }
  return table;
}

constexpr std::array<char, 256> lower = MinusculesAscii();

/// Steps that looking into a list or range counts for: texts are compared there.
constexpr std::size_t setSteps = 32;

/// Counts the steps of one match, and tells of them now and then.
class Steps {
 public:
  explicit Steps(const LikePattern::Work& tell) : tell_(tell) {}
  void Fait(std::size_t steps) {
    constexpr std::size_t block = std::size_t{1} << 16;
    done_ += steps;
    if (done_ < block) return;
    if (tell_) tell_(done_);
    done_ = 0;
  }

 private:
  const LikePattern::Work& tell_;
  std::size_t done_ = 0;
};

char Minuscule(char c) { return lower[static_cast<unsigned char>(c)]; }

}  // namespace

std::u32string PointsDeCode(std::string_view utf8) {
  std::u32string points;
  for (std::size_t at = 0; at < utf8.size();) points.push_back(LitPoint(utf8, at));
  return points;
}

LikePattern::LikePattern(std::string_view pattern, const Collation& collation)
    : collation_(&collation) {
  const std::u32string points = PointsDeCode(pattern);
  for (std::size_t at = 0; at < points.size();) {
    const char32_t c = points[at++];
    if (c == U'*') {
      if (steps_.empty() || steps_.back().kind != Kind::Any)
        steps_.push_back({Kind::Any, 0, false, {}});
    } else if (c == U'?') {
      steps_.push_back({Kind::One, 0, false, {}});
    } else if (c == U'#') {
      steps_.push_back({Kind::Digit, 0, false, {}});
    } else if (c == U'[') {
      LitEnsemble(points, at);
    } else {
      steps_.push_back({Kind::Literal, SansCasse(c), false, {}});
    }
  }
  Accelere();
}

// Reads a list up to its "]". "[]" stands for nothing at all, "[!]" for a "!", and a "-" at
// either end for itself.
void LikePattern::LitEnsemble(std::u32string_view pattern, std::size_t& at) {
  const std::size_t close = pattern.find(U']', at);
  if (close == std::u32string_view::npos) throw MotifInvalide();
  std::u32string_view list = pattern.substr(at, close - at);
  at = close + 1;
  if (list.empty()) return;
  Step step{Kind::Set, 0, false, {}};
  if (list.size() > 1 && list.front() == U'!') {
    step.excluded = true;
    list.remove_prefix(1);
  }
  for (std::size_t i = 0; i < list.size(); ++i) {
    const char32_t low = list[i];
    if (i + 2 < list.size() && list[i + 1] == U'-') {
      const char32_t high = list[i + 2];
      if (low > high) throw MotifInvalide();
      step.items.push_back({low, high});
      i += 2;
    } else {
      step.items.push_back({SansCasse(low), SansCasse(low)});
    }
  }
  steps_.push_back(std::move(step));
}

// Most searches are for a piece of plain text anywhere.
void LikePattern::Accelere() {
  if (steps_.size() < 3 || steps_.front().kind != Kind::Any || steps_.back().kind != Kind::Any) {
    return;
  }
  std::u32string points;
  for (std::size_t i = 1; i + 1 < steps_.size(); ++i) {
    if (steps_[i].kind != Kind::Literal) return;
    points.push_back(steps_[i].literal);
  }
  const bool ascii =
      std::all_of(points.begin(), points.end(), [](char32_t point) { return point < 128; });
  if (ascii) {
    contained_.assign(points.begin(), points.end());
  } else {
    containedPoints_ = std::move(points);
  }
}

// A character beyond ASCII is found among its like only: plain texts are done with at once.
bool LikePattern::ContientPoints(std::string_view text, const Work& travaille) const {
  if (EstAscii(text)) return false;
  Steps steps(travaille);
  for (std::size_t start = 0; start < text.size();) {
    std::size_t at = start;
    std::size_t i = 0;
    while (i < containedPoints_.size() && at < text.size() &&
           SansCasse(LitPoint(text, at)) == containedPoints_[i]) {
      ++i;
    }
    if (i == containedPoints_.size()) return true;
    steps.Fait(i + 1);
    LitPoint(text, start);
  }
  return false;
}

// Steps from one place of the first character to the next, in either case.
bool LikePattern::ContientAscii(std::string_view text, const Work& travaille) const {
  Steps steps(travaille);
  const std::size_t length = contained_.size();
  if (text.size() < length) return false;
  const char* const end = text.data() + (text.size() - length) + 1;
  const auto find = [end](const char* from, char c) {
    const void* found = std::memchr(from, c, static_cast<std::size_t>(end - from));
    return found != nullptr ? static_cast<const char*>(found) : end;
  };
  const char low = contained_[0];
  const char high = low >= 'a' && low <= 'z' ? static_cast<char>(low - 32) : low;
  const char* nextLow = find(text.data(), low);
  const char* nextHigh = high == low ? end : find(text.data(), high);
  for (;;) {
    const char* p = std::min(nextLow, nextHigh);
    if (p == end) return false;
    std::size_t i = 1;
    while (i < length && Minuscule(p[i]) == contained_[i]) ++i;
    if (i == length) return true;
    steps.Fait(i);
    if (p == nextLow) {
      nextLow = find(p + 1, low);
    } else {
      nextHigh = find(p + 1, high);
    }
  }
}

// One star at a time is enough: what an earlier star could take, a later one can take as well.
bool LikePattern::Correspond(std::string_view text, const Work& travaille) const {
  if (!contained_.empty()) return ContientAscii(text, travaille);
  if (!containedPoints_.empty()) return ContientPoints(text, travaille);
  constexpr std::size_t none = static_cast<std::size_t>(-1);
  std::size_t at = 0;
  std::size_t step = 0;
  std::size_t starStep = none;
  std::size_t starText = 0;
  Steps steps(travaille);
  while (at < text.size()) {
    steps.Fait(step < steps_.size() && steps_[step].kind == Kind::Set ? setSteps : 1);
    if (step < steps_.size() && steps_[step].kind == Kind::Any) {
      starStep = ++step;
      starText = at;
      continue;
    }
    std::size_t next = at;
    if (step < steps_.size() && Accepte(steps_[step], LitPoint(text, next))) {
      at = next;
      ++step;
      continue;
    }
    if (starStep == none) return false;
    LitPoint(text, starText);
    at = starText;
    step = starStep;
  }
  while (step < steps_.size() && steps_[step].kind == Kind::Any) ++step;
  return step == steps_.size();
}

bool LikePattern::Accepte(const Step& step, char32_t c) const {
  switch (step.kind) {
    case Kind::Literal:
      return SansCasse(c) == step.literal;
    case Kind::One:
      return true;
    case Kind::Digit:
      return c >= U'0' && c <= U'9';
    case Kind::Set:
      return DansEnsemble(step, c) != step.excluded;
    case Kind::Any:
      break;
  }
  return false;
}

// Ranges follow the order in which texts sort, so that [a-z] takes an accented letter too.
bool LikePattern::DansEnsemble(const Step& step, char32_t c) const {
  std::string character;
  AjoutePoint(c, character);
  const auto within = [&](const SetItem& item) {
    if (item.low == item.high) return SansCasse(c) == item.low;
    std::string low;
    std::string high;
    AjoutePoint(item.low, low);
    AjoutePoint(item.high, high);
    return collation_->Compare(low, character) <= 0 && collation_->Compare(character, high) <= 0;
  };
  return std::any_of(step.items.begin(), step.items.end(), within);
}

}  // namespace talpena::sqlite
