#include "platform/sqlite/rows/slot_marks.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace talpena::sqlite {
namespace {

constexpr std::size_t WordSlots = 64;
constexpr std::size_t BlockSlots = 4096;

std::size_t NombreDe(std::size_t slots, std::size_t per) { return (slots + per - 1) / per; }

}  // namespace

bool SlotMarks::Vivant(std::size_t slot) const {
  if (slot >= count_) return false;
  return dead_.empty() || ((dead_[slot / WordSlots] >> (slot % WordSlots)) & 1) == 0;
}

std::optional<std::size_t> SlotMarks::Suivant(std::size_t from) const {
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

std::optional<std::size_t> SlotMarks::Precedent(std::size_t from) const {
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

std::int64_t SlotMarks::Rang(std::size_t slot) const {
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

std::optional<std::size_t> SlotMarks::SlotDuRang(std::int64_t rank) const {
  if (rank < 0 || rank >= static_cast<std::int64_t>(Vivants())) return std::nullopt;
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

void SlotMarks::Prepare() {
  if (!dead_.empty()) return;
  dead_.assign(NombreDe(count_, WordSlots), 0);
  deadPerBlock_.assign(NombreDe(count_, BlockSlots), 0);
}

void SlotMarks::Tue(std::size_t slot) {
  Prepare();
  dead_[slot / WordSlots] |= std::uint64_t{1} << (slot % WordSlots);
  ++deadPerBlock_[slot / BlockSlots];
  ++deadCount_;
}

void SlotMarks::Ranime(std::size_t slot) {
  dead_[slot / WordSlots] &= ~(std::uint64_t{1} << (slot % WordSlots));
  --deadPerBlock_[slot / BlockSlots];
  --deadCount_;
}

void SlotMarks::TueTout() {
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

void SlotMarks::Ajoute() {
  ++count_;
  if (dead_.empty()) return;
  dead_.resize(NombreDe(count_, WordSlots), 0);
  deadPerBlock_.resize(NombreDe(count_, BlockSlots), 0);
}

void SlotMarks::Intercale(const std::vector<std::size_t>& before, bool alive) {
  const SlotMarks old = std::exchange(*this, SlotMarks(count_ + before.size()));
  if (alive && old.deadCount_ == 0) return;
  auto next = before.begin();
  std::size_t to = 0;
  for (std::size_t from = 0; from <= old.count_; ++from) {
    for (; next != before.end() && *next == from; ++next, ++to) {
      if (!alive) Tue(to);
    }
    if (from < old.count_ && !old.Vivant(from)) Tue(to);
    ++to;
  }
}

}  // namespace talpena::sqlite
