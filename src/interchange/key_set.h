// Many numbers of which only is asked whether they are there.
#pragma once
#include <cstddef>
#include <cstdint>
#include <vector>

namespace talpena {

/// One block of memory, given back at once however many there are.
class KeySet {
 public:
  /// False when it is there already.
  bool Ajoute(std::uint64_t key) {
    if (2 * (count_ + 1) > slots_.size()) Agrandit();
    std::uint64_t& slot = slots_[Place(key)];
    if (slot == key + 1) return false;
    slot = key + 1;
    ++count_;
    return true;
  }
  bool Contient(std::uint64_t key) const {
    return !slots_.empty() && slots_[Place(key)] == key + 1;
  }
  bool EstVide() const { return count_ == 0; }

 private:
  static constexpr std::size_t fewest = 1024;

  /// Where a key stands, or the free slot that it would take.
  std::size_t Place(std::uint64_t key) const {
    const std::size_t mask = slots_.size() - 1;
    std::uint64_t mixed = key * 0x9E3779B97F4A7C15U;  // 2^64 by the golden ratio
    mixed ^= mixed >> 32;
    std::size_t at = static_cast<std::size_t>(mixed) & mask;
    while (slots_[at] != 0 && slots_[at] != key + 1) at = (at + 1) & mask;
    return at;
  }
  void Agrandit() {
    std::vector<std::uint64_t> before(slots_.empty() ? fewest : 2 * slots_.size());
    before.swap(slots_);
    for (const std::uint64_t slot : before) {
      if (slot != 0) slots_[Place(slot - 1)] = slot;
    }
  }

  std::vector<std::uint64_t> slots_;  ///< a power of two of them; key + 1, 0 for a free one
  std::size_t count_ = 0;
};

}  // namespace talpena
