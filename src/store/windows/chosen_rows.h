// Which rows of the grid are chosen, and in what order.
#pragma once
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace talpena {

/// Neighbouring rows, both ends included; from the lower end up when `to` < `from`.
struct RowRun {
  int from = 0;
  int to = 0;
  bool operator==(const RowRun&) const = default;
};

/// Rows in the order in which they were chosen, each once. Kept as runs of neighbours, so that a
/// hundred thousand rows chosen at once cost what two do.
class ChosenRows {
 public:
  void Vide() { runs_.clear(); }

  /// From now on these rows are chosen, and no others. Those that were chosen before keep their
  /// place; the new ones come behind them, from the first to the last or, `upwards`, from the last
  /// to the first. The runs are rising, in any order, and have no row in common.
  void Devient(std::vector<RowRun> rows, bool upwards);

  /// From now on these rows are chosen, in this order. No row is named twice.
  void DevientDansLOrdre(std::span<const RowRun> rows);

  const std::vector<RowRun>& Suites() const { return runs_; }
  bool Contient(int row) const;
  /// The row chosen last; empty when there is none.
  std::optional<int> Derniere() const;
  std::int64_t Nombre() const;

 private:
  void Ajoute(RowRun run);

  std::vector<RowRun> runs_;
};

}  // namespace talpena
