#include "platform/sqlite/rows/row_list.h"

#include <algorithm>
#include <bit>

namespace talpena::sqlite {
namespace {

constexpr std::size_t WordSlots = 64;
constexpr std::size_t BlockSlots = 4096;

std::size_t NombreDe(std::size_t slots, std::size_t per) { return (slots + per - 1) / per; }

}  // namespace

RowList RowList::Etendue(RowKey first, RowKey last, bool falling) {
  RowList list;
  list.range_ = true;
  list.falling_ = falling;
  list.first_ = falling ? last : first;
  list.count_ = last < first ? 0 : static_cast<std::size_t>(last - first) + 1;
  list.rising_ = !falling || list.count_ < 2;
  return list;
}

RowList::RowList(std::vector<RowKey> keys) : count_(keys.size()), keys_(std::move(keys)) {
  rising_ = std::is_sorted(keys_.begin(), keys_.end());
}

RowKey RowList::Cle(std::size_t slot) const {
  if (!range_) return keys_[slot];
  const auto offset = static_cast<RowKey>(slot);
  return falling_ ? first_ - offset : first_ + offset;
}

bool RowList::Vivant(std::size_t slot) const {
  if (slot >= count_) return false;
  return dead_.empty() || ((dead_[slot / WordSlots] >> (slot % WordSlots)) & 1) == 0;
}

std::optional<std::size_t> RowList::Place(RowKey key) const {
  if (range_) {
    const std::int64_t offset = falling_ ? std::int64_t{first_} - key : std::int64_t{key} - first_;
    if (offset < 0 || offset >= static_cast<std::int64_t>(count_)) return std::nullopt;
    return static_cast<std::size_t>(offset);
  }
  if (rising_) {
    const auto place = std::lower_bound(keys_.begin(), keys_.end(), key);
    if (place == keys_.end() || *place != key) return std::nullopt;
    return static_cast<std::size_t>(place - keys_.begin());
  }
  if (!inverseReady_) ConstruitInverse();
  if (!pairs_.empty()) {
    const auto place = std::lower_bound(pairs_.begin(), pairs_.end(), std::pair(key, 0u));
    if (place == pairs_.end() || place->first != key) return std::nullopt;
    return place->second;
  }
  const std::int64_t offset = std::int64_t{key} - inverseFirst_;
  if (offset < 0 || offset >= static_cast<std::int64_t>(inverse_.size())) return std::nullopt;
  const std::uint32_t slot = inverse_[static_cast<std::size_t>(offset)];
  return slot == 0 ? std::nullopt : std::optional<std::size_t>(slot - 1);
}

void RowList::ConstruitInverse() const {
  inverse_.clear();
  pairs_.clear();
  inverseReady_ = true;
  if (keys_.empty()) return;
  const auto [low, high] = std::minmax_element(keys_.begin(), keys_.end());
  const std::int64_t span = std::int64_t{*high} - *low + 1;
  if (span <= static_cast<std::int64_t>(2 * keys_.size() + 1024)) {
    inverseFirst_ = *low;
    inverse_.assign(static_cast<std::size_t>(span), 0);
    for (std::size_t slot = 0; slot < keys_.size(); ++slot) {
      inverse_[static_cast<std::size_t>(std::int64_t{keys_[slot]} - inverseFirst_)] =
          static_cast<std::uint32_t>(slot + 1);
    }
    return;
  }
  pairs_.reserve(keys_.size());
  for (std::size_t slot = 0; slot < keys_.size(); ++slot) {
    pairs_.emplace_back(keys_[slot], static_cast<std::uint32_t>(slot));
  }
  std::sort(pairs_.begin(), pairs_.end());
}

// Rows are added one by one: the array grows with them.
void RowList::AjouteInverse(RowKey key) {
  const std::int64_t offset = std::int64_t{key} - inverseFirst_;
  inverseReady_ =
      pairs_.empty() && offset >= 0 && offset < static_cast<std::int64_t>(2 * keys_.size() + 1024);
  if (!inverseReady_) return;
  const auto index = static_cast<std::size_t>(offset);
  if (index >= inverse_.size()) inverse_.resize(index + 1, 0);
  inverse_[index] = static_cast<std::uint32_t>(keys_.size());
}

std::optional<std::size_t> RowList::Suivant(std::size_t from) const {
  if (from >= count_) return std::nullopt;
  if (deadCount_ == 0) return from;
  std::size_t slot = from;
  while (slot < count_) {
    const std::size_t block = slot / BlockSlots;
    if (slot % BlockSlots == 0 && deadPerBlock_[block] == BlockSlots) {
      slot += BlockSlots;
      continue;
    }
    const std::uint64_t alive = ~dead_[slot / WordSlots] >> (slot % WordSlots);
    if (alive != 0) {
      slot += static_cast<std::size_t>(std::countr_zero(alive));
      return slot < count_ ? std::optional(slot) : std::nullopt;
    }
    slot = (slot / WordSlots + 1) * WordSlots;
  }
  return std::nullopt;
}

std::optional<std::size_t> RowList::Precedent(std::size_t from) const {
  if (count_ == 0) return std::nullopt;
  std::size_t slot = std::min(from, count_ - 1);
  if (deadCount_ == 0) return slot;
  for (;;) {
    const std::size_t block = slot / BlockSlots;
    if (slot % BlockSlots == BlockSlots - 1 && deadPerBlock_[block] == BlockSlots) {
      if (block == 0) return std::nullopt;
      slot = block * BlockSlots - 1;
      continue;
    }
    const std::size_t bit = slot % WordSlots;
    const std::uint64_t alive = ~dead_[slot / WordSlots] << (WordSlots - 1 - bit);
    if (alive != 0) return slot - static_cast<std::size_t>(std::countl_zero(alive));
    if (slot < WordSlots) return std::nullopt;
    slot = (slot / WordSlots) * WordSlots - 1;
  }
}

std::int64_t RowList::Rang(std::size_t slot) const {
  if (deadCount_ == 0) return static_cast<std::int64_t>(slot);
  std::size_t dead = 0;
  const std::size_t block = slot / BlockSlots;
  for (std::size_t i = 0; i < block; ++i) dead += deadPerBlock_[i];
  for (std::size_t word = block * (BlockSlots / WordSlots); word < slot / WordSlots; ++word) {
    dead += static_cast<std::size_t>(std::popcount(dead_[word]));
  }
  if (slot % WordSlots != 0) {
    const std::uint64_t below = (std::uint64_t{1} << (slot % WordSlots)) - 1;
    dead += static_cast<std::size_t>(std::popcount(dead_[slot / WordSlots] & below));
  }
  return static_cast<std::int64_t>(slot - dead);
}

std::optional<std::size_t> RowList::SlotDuRang(std::int64_t rank) const {
  if (rank < 0 || rank >= Vivants()) return std::nullopt;
  auto left = static_cast<std::size_t>(rank);
  if (deadCount_ == 0) return left;
  std::size_t slot = 0;
  for (std::size_t block = 0;; ++block) {
    const std::size_t alive = BlockSlots - deadPerBlock_[block];
    if (left < alive) break;
    left -= alive;
    slot += BlockSlots;
  }
  for (;; slot += WordSlots) {
    const auto alive = static_cast<std::size_t>(std::popcount(~dead_[slot / WordSlots]));
    if (left < alive) break;
    left -= alive;
  }
  std::uint64_t alive = ~dead_[slot / WordSlots];
  for (; left > 0; --left) alive &= alive - 1;
  return slot + static_cast<std::size_t>(std::countr_zero(alive));
}

void RowList::Enumere() {
  keys_.resize(count_);
  for (std::size_t slot = 0; slot < count_; ++slot) keys_[slot] = Cle(slot);
  range_ = false;
}

void RowList::Ajoute(RowKey key) {
  SauveEtat();
  if (count_ == 0 && range_) {
    first_ = key;
    falling_ = false;
  } else if (range_ && (falling_ || std::int64_t{key} !=
                                        std::int64_t{first_} + static_cast<std::int64_t>(count_))) {
    Enumere();
  }
  if (!range_) {
    rising_ = rising_ && (keys_.empty() || keys_.back() < key);
    keys_.push_back(key);
    if (inverseReady_) AjouteInverse(key);
  }
  ++count_;
  if (!dead_.empty()) {
    dead_.resize(NombreDe(count_, WordSlots), 0);
    deadPerBlock_.resize(NombreDe(count_, BlockSlots), 0);
  }
}

void RowList::SauveEtat() {
  if (!inTransaction_ || saved_) return;
  saved_ = Saved{count_, deadCount_, dead_, deadPerBlock_};
}

void RowList::Tue(std::size_t slot) {
  if (!Vivant(slot)) return;
  SauveEtat();
  if (dead_.empty()) {
    dead_.assign(NombreDe(count_, WordSlots), 0);
    deadPerBlock_.assign(NombreDe(count_, BlockSlots), 0);
  }
  dead_[slot / WordSlots] |= std::uint64_t{1} << (slot % WordSlots);
  ++deadPerBlock_[slot / BlockSlots];
  ++deadCount_;
}

void RowList::Supprime(RowKey key) {
  if (const auto slot = Place(key)) Tue(*slot);
}

void RowList::SupprimeTout() {
  SauveEtat();
  dead_.assign(NombreDe(count_, WordSlots), ~std::uint64_t{0});
  deadPerBlock_.assign(NombreDe(count_, BlockSlots), BlockSlots);
  if (!deadPerBlock_.empty() && count_ % BlockSlots != 0) {
    deadPerBlock_.back() = static_cast<std::uint32_t>(count_ % BlockSlots);
  }
  if (!dead_.empty() && count_ % WordSlots != 0) {
    dead_.back() = (std::uint64_t{1} << (count_ % WordSlots)) - 1;
  }
  deadCount_ = count_;
}

void RowList::Debut() {
  inTransaction_ = true;
  saved_.reset();
}

void RowList::Annule() {
  inTransaction_ = false;
  if (!saved_) return;
  count_ = saved_->count;
  deadCount_ = saved_->deadCount;
  dead_ = std::move(saved_->dead);
  deadPerBlock_ = std::move(saved_->deadPerBlock);
  saved_.reset();
  if (!range_) {
    keys_.resize(count_);
    rising_ = std::is_sorted(keys_.begin(), keys_.end());
  }
  inverseReady_ = false;
}

}  // namespace talpena::sqlite
