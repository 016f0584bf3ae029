// The places that a search found, in the order in which the list shows them.
#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "gazetteer/nearest_record.h"
#include "gazetteer/place_item.h"

namespace talpena {

/// What the search while typing keeps of a place.
struct NamedPoint {
  std::string nom;
  std::optional<GeoPoint> point;
};

/// Items are made when they are looked at, so that a list of a million places costs a few bytes
/// each.
class PlaceList {
 public:
  PlaceList() = default;
  /// The rows of a search; ItemNotFound (3265) as ChampsDesLieux when there are any.
  PlaceList(const SettingsState& settings, std::unique_ptr<Recordset> rows);

  std::size_t Nombre() const { return count_; }
  /// The item at a place of the list; valid until the next call.
  const PlaceItem& Item(std::size_t place);

  /// The same place in short.
  NamedPoint NomEtPoint(std::size_t place);

  /// Sorts by the texts of a column, without regard to case; by the same column again: the other
  /// way round.
  void TrieParColonne(PlaceColumn column);
  /// The row at a place, and where a row is: what keeps an item chosen while the list is sorted.
  std::size_t RangeeDe(std::size_t place) const;
  std::size_t PlaceDe(std::size_t row) const;

 private:
  std::span<const Cell> Ligne(std::size_t row);

  std::unique_ptr<Recordset> rows_;
  PlaceFields fields_;
  std::size_t count_ = 0;
  std::vector<Cell> cells_;
  std::vector<std::uint32_t> order_;  ///< rows by places; empty while in the order of the search
  std::optional<PlaceColumn> sorted_;
  bool falling_ = false;
  std::optional<std::size_t> row_;  ///< of `item_`
  PlaceItem item_;
};

}  // namespace talpena
