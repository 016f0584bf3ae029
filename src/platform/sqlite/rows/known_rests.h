// Which ends of keys were met before.
#pragma once
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

namespace talpena::sqlite {

/// Places of texts that are kept elsewhere, by what they say. Where texts hardly ever repeat it
/// gives up after a quarter of them, and its memory back.
class KnownRests {
 public:
  static constexpr std::uint32_t None = 0xffffffff;

  /// @param expected  how many texts to expect, more or less
  explicit KnownRests(std::size_t expected) : sample_(std::max(Fewest, expected / 4)) {}

  /// The entry of a text, None when it is new: the caller puts its place there. Null after giving
  /// up. `textAt` gives the text that is kept at a place. Valid until the next.
  template <typename TextAt>
  std::uint32_t* Cherche(std::string_view text, TextAt&& textAt) {
    if (!Prepare(textAt)) return nullptr;
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = std::hash<std::string_view>()(text) & mask;
    while (slots_[slot] != None && textAt(slots_[slot]) != text) slot = (slot + 1) & mask;
    if (slots_[slot] == None) ++distinct_;
    return &slots_[slot];
  }

 private:
  static constexpr std::size_t Fewest = 1024;

  /// Room for one more; false after giving up.
  template <typename TextAt>
  bool Prepare(TextAt& textAt) {
    if (gaveUp_) return false;
    if (++asked_ == sample_ && distinct_ > sample_ / 2) {
      gaveUp_ = true;
      slots_ = {};
      return false;
    }
    if (2 * distinct_ >= slots_.size()) Elargit(textAt);
    return true;
  }

  template <typename TextAt>
  void Elargit(TextAt& textAt) {
    std::vector<std::uint32_t> wider(slots_.empty() ? Fewest : 2 * slots_.size(), None);
    const std::size_t mask = wider.size() - 1;
    for (const std::uint32_t place : slots_) {
      if (place == None) continue;
      std::size_t slot = std::hash<std::string_view>()(textAt(place)) & mask;
      while (wider[slot] != None) slot = (slot + 1) & mask;
      wider[slot] = place;
    }
    slots_ = std::move(wider);
  }

  std::vector<std::uint32_t> slots_;  ///< a power of two of them
  std::size_t sample_;
  std::size_t asked_ = 0;
  std::size_t distinct_ = 0;
  bool gaveUp_ = false;
};

}  // namespace talpena::sqlite
