// One UPDATE over many rows whose new values C++ works out.
#pragma once
#include <cstdint>
#include <exception>
#include <string>
#include <vector>

#include "platform/sqlite/rows/row_blocks.h"
#include "platform/sqlite/table_state.h"
#include "platform/table_engine.h"

namespace talpena::sqlite {

class Connection;

/// What "tlp_change(?1, place, key, old, given...)" asks for the new value of a field. The rows
/// may come in any order and their fields too: the answer for the row asked last is kept.
class RowUpdate {
 public:
  RowUpdate(const TableState& table, const RowPass& pass, RowChange& change)
      : table_(table),
        pass_(pass),
        change_(change),
        changed_(pass.written.size()),
        stored_(pass.written.size()),
        scratch_(pass.written.size()) {}

  /// True when `row` is the one that was asked last.
  bool Connait(std::int64_t row) const { return known_ && row_ == row; }
  /// Asks for a row. After a failure, which is kept in `failure`, rows are left as they are:
  /// a statement that is broken off would take back the rows before.
  void Demande(std::int64_t row, std::span<const Cell> given);
  /// The value of the written field at `place`, or null when the row stays as it is.
  const Cell* Valeur(std::size_t place) const { return modified_ ? &stored_[place] : nullptr; }

  std::int64_t Modifiees() const { return count_; }
  std::int64_t Vues() const { return seen_; }

  std::exception_ptr failure;

 private:
  void Calcule(std::span<const Cell> given);

  const TableState& table_;
  const RowPass& pass_;
  RowChange& change_;
  std::vector<Cell> changed_;
  std::vector<Cell> stored_;
  std::vector<std::string> scratch_;
  std::int64_t row_ = 0;
  bool known_ = false;
  bool modified_ = false;
  std::int64_t count_ = 0;
  std::int64_t seen_ = 0;
};

/// The UPDATE of a pass: ?1 is the RowUpdate.
std::string SqlModification(const TableState& table, const RowPass& pass, Rows rows);

inline constexpr const char* UpdatePointer = "talpena-change";

void EnregistreModification(Connection& connection);

}  // namespace talpena::sqlite
