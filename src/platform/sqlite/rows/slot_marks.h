// Which slots of a list are alive.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace talpena::sqlite {

/// So many slots, some of them dead. Steps over dead ones and ranks among the live cost what the
/// dead ones around cost to pass over, 4096 at a time.
class SlotMarks {
 public:
  explicit SlotMarks(std::size_t count = 0) : count_(count) {}

  std::size_t Nombre() const { return count_; }
  std::size_t Vivants() const { return count_ - deadCount_; }
  bool Vivant(std::size_t slot) const;

  std::optional<std::size_t> Suivant(std::size_t from) const;    ///< first live slot >= from
  std::optional<std::size_t> Precedent(std::size_t from) const;  ///< last live slot <= from
  std::int64_t Rang(std::size_t slot) const;                     ///< live slots before it
  std::optional<std::size_t> SlotDuRang(std::int64_t rank) const;

  void Tue(std::size_t slot);  ///< which is alive
  void TueTout();
  void Ranime(std::size_t slot);  ///< which is dead
  void Ajoute();                  ///< a live one at the end

  /// New slots, all alive or all dead, each before the slot that `before` names (rising, the
  /// number of slots for the end).
  void Intercale(const std::vector<std::size_t>& before, bool alive);

 private:
  void Prepare();

  std::size_t count_ = 0;
  std::size_t deadCount_ = 0;
  std::vector<std::uint64_t> dead_;          ///< one bit a slot; empty while all live
  std::vector<std::uint32_t> deadPerBlock_;  ///< of BlockSlots slots each
};

}  // namespace talpena::sqlite
