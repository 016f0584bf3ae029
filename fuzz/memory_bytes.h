// A file that a fuzz target has in memory.
#pragma once
#include <algorithm>
#include <string_view>

#include "platform/foreign/bytes_at.h"

namespace talpena::fuzz {

class MemoryBytes final : public BytesAt {
 public:
  /// @param skipped  zero bytes in front of those given
  explicit MemoryBytes(std::string_view bytes, std::size_t skipped = 0)
      : bytes_(bytes), skipped_(skipped) {}

  std::uint64_t Taille() const override { return skipped_ + bytes_.size(); }
  std::size_t Lit(std::uint64_t place, std::span<char> into) const override {
    const auto there = static_cast<std::size_t>(
        std::min<std::uint64_t>(into.size(), Taille() - std::min(place, Taille())));
    for (std::size_t i = 0; i < there; ++i) {
      into[i] =
          place + i < skipped_ ? '\0' : bytes_[static_cast<std::size_t>(place + i - skipped_)];
    }
    return there;
  }

 private:
  std::string_view bytes_;
  std::size_t skipped_;
};

}  // namespace talpena::fuzz
