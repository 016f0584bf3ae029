// The rows of a recordset: which, and in what order.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "platform/sqlite/rows/slot_marks.h"

namespace talpena::sqlite {

using RowKey = std::int32_t;  ///< value of a table's key column

/// Keys in the order of a recordset, each at a slot of its own; rows that were deleted leave their
/// slot dead, and live again at it. Slots only move when rows are taken up between them: the
/// cursors that have registered their slot move with them. Keys without gaps, in rising or falling
/// order, are kept as a range; any others take 4 bytes each, and 4 more once a row is looked up by
/// its key.
class RowList {
 public:
  static RowList Etendue(RowKey first, RowKey last, bool falling = false);
  explicit RowList(std::vector<RowKey> keys);

  std::size_t Slots() const { return marks_.Nombre(); }
  std::int64_t Vivants() const { return static_cast<std::int64_t>(marks_.Vivants()); }
  RowKey Cle(std::size_t slot) const;
  bool Vivant(std::size_t slot) const { return marks_.Vivant(slot); }
  /// The slot of a key, dead or alive.
  std::optional<std::size_t> Place(RowKey key) const;
  /// True when later slots hold higher keys.
  bool Croissant() const { return rising_; }

  /// First live slot from here on; last live slot up to here.
  std::optional<std::size_t> Suivant(std::size_t from) const { return marks_.Suivant(from); }
  std::optional<std::size_t> Precedent(std::size_t from) const { return marks_.Precedent(from); }
  std::int64_t Rang(std::size_t slot) const { return marks_.Rang(slot); }  ///< live ones before
  std::optional<std::size_t> SlotDuRang(std::int64_t rank) const { return marks_.SlotDuRang(rank); }

  void Ajoute(RowKey key);
  void Supprime(RowKey key);  ///< nothing when the key is not listed
  void SupprimeTout();

  /// A row that comes back lives again at its slot; false when it has none.
  bool Ranime(RowKey key);
  /// Takes up keys that are not listed, each where it has `rank` live slots before it once all
  /// are in, or at the end if there are fewer. Linear in slots and keys.
  struct Arrival {
    std::int64_t rank;
    RowKey key;
  };
  void Intercale(std::vector<Arrival> arrivals);

  void Inscrit(std::size_t* cursor) { cursors_.push_back(cursor); }
  void Raye(std::size_t* cursor) { std::erase(cursors_, cursor); }

  // What a transaction did to the list can be taken back.
  void Debut();
  void Valide() {
    inTransaction_ = false;
    saved_.reset();
  }
  void Annule();

 private:
  RowList() = default;
  void Enumere();  ///< range to single keys
  void ConstruitInverse() const;
  void AjouteInverse(RowKey key);
  void SauveEtat();
  std::vector<std::size_t> Emplacements(const std::vector<Arrival>& arrivals) const;
  void ElargitEtat(const std::vector<std::size_t>& before);

  bool range_ = false;
  bool falling_ = false;
  bool rising_ = true;
  RowKey first_ = 0;  ///< of the range, at slot 0
  std::vector<RowKey> keys_;
  SlotMarks marks_;
  std::vector<std::size_t*> cursors_;

  // Slots by key: an array where keys lie close together, else pairs sorted by key.
  mutable bool inverseReady_ = false;
  mutable RowKey inverseFirst_ = 0;
  mutable std::vector<std::uint32_t> inverse_;  ///< slot + 1; 0 for none
  mutable std::vector<std::pair<RowKey, std::uint32_t>> pairs_;

  bool inTransaction_ = false;
  std::optional<SlotMarks> saved_;
};

}  // namespace talpena::sqlite
