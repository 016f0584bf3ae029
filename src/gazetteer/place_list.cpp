#include "gazetteer/place_list.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <utility>

#include "common/talpena_error.h"
#include "common/text.h"
#include "gazetteer/place_point.h"

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
    item_ = FaitItem(fields_, Ligne(row));
  } catch (const TalpenaError&) {  // a list that is painted has nobody to tell: the line is empty
  }
  return item_;
}

std::span<const Cell> PlaceList::Ligne(std::size_t row) {
  rows_->SetAbsolutePosition(static_cast<std::int64_t>(row));
  rows_->LitLigne(cells_);
  return cells_;
}

NamedPoint PlaceList::NomEtPoint(std::size_t place) {
  try {
    const auto cells = Ligne(RangeeDe(place));
    NamedPoint named{NomDuLieu(fields_, cells), {}};
    const auto cell = [&](int field) { return cells[static_cast<std::size_t>(field)]; };
    if (const auto point =
            PointDuLieu(cell(fields_.latitude), cell(fields_.longitude), fields_.coordType)) {
      named.point = GeoPoint{point->latitude, point->longitude};
    }
    return named;
  } catch (const TalpenaError&) {  // as in Item
    return {};
  }
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
