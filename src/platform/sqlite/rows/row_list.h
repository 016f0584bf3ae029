// The rows of a recordset: which, and in what order.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace talpena::sqlite {

using RowKey = std::int32_t;  ///< value of a table's key column

/// Keys in the order of a recordset, each at a slot that it keeps for good; rows that were
/// deleted leave their slot dead. Keys without gaps, in rising or falling order, are kept as a
/// range; any others take 4 bytes each, and 4 more once a row is looked up by its key.
class RowList {
 public:
  static RowList Etendue(RowKey first, RowKey last, bool falling = false);
  explicit RowList(std::vector<RowKey> keys);

  std::size_t Slots() const { return count_; }
  std::int64_t Vivants() const { return static_cast<std::int64_t>(count_ - deadCount_); }
  RowKey Cle(std::size_t slot) const;
  bool Vivant(std::size_t slot) const;
  /// The slot of a key, dead or alive.
  std::optional<std::size_t> Place(RowKey key) const;
  /// True when later slots hold higher keys.
  bool Croissant() const { return rising_; }

  std::optional<std::size_t> Suivant(std::size_t from) const;    ///< first live slot >= from
  std::optional<std::size_t> Precedent(std::size_t from) const;  ///< last live slot <= from
  std::int64_t Rang(std::size_t slot) const;                     ///< live slots before it
  std::optional<std::size_t> SlotDuRang(std::int64_t rank) const;

  void Ajoute(RowKey key);
  void Supprime(RowKey key);  ///< nothing when the key is not listed
  void SupprimeTout();

  // What a transaction did to the list can be taken back.
  void Debut();
  void Valide() {
    inTransaction_ = false;
    saved_.reset();
  }
  void Annule();

 private:
  RowList() = default;
  void Tue(std::size_t slot);
  void Enumere();  ///< range to single keys
  void ConstruitInverse() const;
  void AjouteInverse(RowKey key);
  void SauveEtat();

  struct Saved {
    std::size_t count;
    std::size_t deadCount;
    std::vector<std::uint64_t> dead;
    std::vector<std::uint32_t> deadPerBlock;
  };

  bool range_ = false;
  bool falling_ = false;
  bool rising_ = true;
  RowKey first_ = 0;  ///< of the range, at slot 0
  std::size_t count_ = 0;
  std::vector<RowKey> keys_;

  std::size_t deadCount_ = 0;
  std::vector<std::uint64_t> dead_;          ///< one bit a slot; empty while all live
  std::vector<std::uint32_t> deadPerBlock_;  ///< of BlockSlots slots each

  // Slots by key: an array where keys lie close together, else pairs sorted by key.
  mutable bool inverseReady_ = false;
  mutable RowKey inverseFirst_ = 0;
  mutable std::vector<std::uint32_t> inverse_;  ///< slot + 1; 0 for none
  mutable std::vector<std::pair<RowKey, std::uint32_t>> pairs_;

  bool inTransaction_ = false;
  std::optional<Saved> saved_;
};

}  // namespace talpena::sqlite
