#include "platform/sqlite/rows/row_list.h"

#include <algorithm>
#include <utility>

namespace talpena::sqlite {

RowList RowList::Etendue(RowKey first, RowKey last, bool falling) {
  RowList list;
  list.range_ = true;
  list.falling_ = falling;
  list.first_ = falling ? last : first;
  const std::size_t count = last < first ? 0 : static_cast<std::size_t>(last - first) + 1;
  list.marks_ = SlotMarks(count);
  list.rising_ = !falling || count < 2;
  return list;
}

RowList::RowList(std::vector<RowKey> keys) : keys_(std::move(keys)), marks_(keys_.size()) {
  rising_ = std::is_sorted(keys_.begin(), keys_.end());
}

RowKey RowList::Cle(std::size_t slot) const {
  if (!range_) return keys_[slot];
  const auto offset = static_cast<RowKey>(slot);
  return falling_ ? first_ - offset : first_ + offset;
}

std::optional<std::size_t> RowList::Place(RowKey key) const {
  if (range_) {
    const std::int64_t offset = falling_ ? std::int64_t{first_} - key : std::int64_t{key} - first_;
    if (offset < 0 || offset >= static_cast<std::int64_t>(Slots())) return std::nullopt;
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

void RowList::Enumere() {
  if (!range_) return;
  keys_.resize(Slots());
  for (std::size_t slot = 0; slot < Slots(); ++slot) keys_[slot] = Cle(slot);
  range_ = false;
}

void RowList::Ajoute(RowKey key) {
  SauveEtat();
  if (Slots() == 0 && range_) {
    first_ = key;
    falling_ = false;
  } else if (range_ && (falling_ || std::int64_t{key} != std::int64_t{first_} +
                                                             static_cast<std::int64_t>(Slots()))) {
    Enumere();
  }
  if (!range_) {
    rising_ = rising_ && (keys_.empty() || keys_.back() < key);
    keys_.push_back(key);
    if (inverseReady_) AjouteInverse(key);
  }
  marks_.Ajoute();
}

void RowList::SauveEtat() {
  if (inTransaction_ && !saved_) saved_ = marks_;
}

void RowList::Supprime(RowKey key) {
  const auto slot = Place(key);
  if (!slot || !Vivant(*slot)) return;
  SauveEtat();
  marks_.Tue(*slot);
}

void RowList::SupprimeTout() {
  SauveEtat();
  marks_.TueTout();
}

bool RowList::Ranime(RowKey key) {
  const auto slot = Place(key);
  if (!slot) return false;
  if (Vivant(*slot)) return true;
  SauveEtat();
  marks_.Ranime(*slot);
  return true;
}

// The slots that the arrivals go before, as the list is now.
std::vector<std::size_t> RowList::Emplacements(const std::vector<Arrival>& arrivals) const {
  std::vector<std::size_t> before;
  before.reserve(arrivals.size());
  std::int64_t rank = 0;
  for (auto slot = Suivant(0); slot && before.size() < arrivals.size(); ++rank) {
    if (arrivals[before.size()].rank <= rank) {
      before.push_back(*slot);
    } else {
      slot = Suivant(*slot + 1);
    }
  }
  before.resize(arrivals.size(), Slots());
  return before;
}

// In what a transaction would bring back the arrivals have slots too, dead ones: so the slots of
// that state and of this one stay the same, and with them the places of cursors.
void RowList::ElargitEtat(const std::vector<std::size_t>& before) {
  if (!saved_) return;
  const auto end = std::lower_bound(before.begin(), before.end(), saved_->Nombre());
  saved_->Intercale({before.begin(), end}, false);
}

void RowList::Intercale(std::vector<Arrival> arrivals) {
  if (arrivals.empty()) return;
  SauveEtat();
  Enumere();
  std::stable_sort(arrivals.begin(), arrivals.end(),
                   [](const Arrival& a, const Arrival& b) { return a.rank < b.rank; });
  const std::vector<std::size_t> before = Emplacements(arrivals);
  std::vector<RowKey> keys;
  keys.reserve(keys_.size() + arrivals.size());
  std::size_t from = 0;
  for (std::size_t i = 0; i < arrivals.size(); from = before[i++]) {
    keys.insert(keys.end(), keys_.begin() + static_cast<std::ptrdiff_t>(from),
                keys_.begin() + static_cast<std::ptrdiff_t>(before[i]));
    keys.push_back(arrivals[i].key);
  }
  keys.insert(keys.end(), keys_.begin() + static_cast<std::ptrdiff_t>(from), keys_.end());
  keys_ = std::move(keys);
  ElargitEtat(before);
  marks_.Intercale(before, true);
  for (std::size_t* cursor : cursors_) {
    *cursor += static_cast<std::size_t>(std::upper_bound(before.begin(), before.end(), *cursor) -
                                        before.begin());
  }
  rising_ = std::is_sorted(keys_.begin(), keys_.end());
  inverseReady_ = false;
}

void RowList::Debut() {
  inTransaction_ = true;
  saved_.reset();
}

void RowList::Annule() {
  inTransaction_ = false;
  if (!saved_) return;
  marks_ = std::move(*saved_);
  saved_.reset();
  if (!range_) {
    keys_.resize(Slots());
    rising_ = std::is_sorted(keys_.begin(), keys_.end());
  }
  inverseReady_ = false;
}

}  // namespace talpena::sqlite
