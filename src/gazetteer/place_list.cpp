#include "gazetteer/place_list.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <utility>

#include "common/talpena_error.h"
#include "common/text.h"

namespace talpena {

PlaceList::PlaceList(const SettingsState& settings, std::unique_ptr<Recordset> rows)
    : rows_(std::move(rows)) {
  count_ = static_cast<std::size_t>(rows_->RecordCount());
  if (count_ == 0) return;
  fields_ = ChampsDesLieux(settings, *rows_);
  cells_.resize(rows_->Fields().size());
}

const PlaceItem& PlaceList::Item(std::size_t place) {
  const std::size_t row = RangeeDe(place);
  if (row_ == row) return item_;
  row_ = row;
  item_ = {};
  try {
    rows_->SetAbsolutePosition(static_cast<std::int64_t>(row));
    rows_->LitLigne(cells_);
    item_ = FaitItem(fields_, cells_);
  } catch (const TalpenaError&) {  // a list that is painted has nobody to tell: the line is empty
  }
  return item_;
}

std::size_t PlaceList::RangeeDe(std::size_t place) const {
  return order_.empty() ? place : order_[place];
}

std::size_t PlaceList::PlaceDe(std::size_t row) const {
  const auto found = std::find(order_.begin(), order_.end(), row);
  return order_.empty() ? row : static_cast<std::size_t>(found - order_.begin());
}

void PlaceList::TrieParColonne(PlaceColumn column) {
  falling_ = sorted_ == column && !falling_;
  sorted_ = column;
  if (count_ == 0) return;
  order_.clear();
  std::vector<std::string> keys;
  keys.reserve(count_);
  for (std::size_t row = 0; row < count_; ++row)
    keys.push_back(Majuscules(Item(row).Texte(column)));
  std::vector<std::uint32_t> order(count_);
  std::iota(order.begin(), order.end(), 0U);
  std::stable_sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
    return falling_ ? keys[b] < keys[a] : keys[a] < keys[b];
  });
  order_ = std::move(order);
}

}  // namespace talpena
