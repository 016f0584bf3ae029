// One UPDATE over many rows whose new values C++ works out.
#pragma once
#include <cstddef>
#include <cstdint>
#include <exception>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/sqlite/rows/row_blocks.h"
#include "platform/sqlite/table_state.h"
#include "platform/table_engine.h"

namespace talpena::sqlite {

class Connection;

/// What "tlp_change(?1, place, key ...)" asks for the new value of a field. The rows may come in
/// any order; the answer for the row asked last is kept for its other fields.
class RowUpdate {
 public:
  RowUpdate(const TableState& table, const RowPass& pass, RowChange& change);

  /// True when `row` is the one that was asked last.
  bool Connait(std::int64_t row) const { return known_ && row_ == row; }
  /// Place of the written field that SQLite asks for first in each row.
  std::size_t Premier() const { return first_; }
  /// Where the fields that the pass reads are put before a row is asked for.
  std::span<Cell> Donnees() { return given_; }
  /// Asks for a row. After a failure, which is kept in `failure`, rows are left as they are:
  /// a statement that is broken off would take back the rows before.
  void Demande(std::int64_t row);
  /// The value of the written field at `place`; null when it stays as it is and is not known here.
  const Cell* Valeur(std::size_t place) const;

  std::int64_t Modifiees() const { return count_; }
  std::int64_t Vues() const { return seen_; }

  std::exception_ptr failure;

 private:
  void Calcule();

  const TableState& table_;
  const RowPass& pass_;
  RowChange& change_;
  std::size_t first_;
  std::vector<std::optional<std::size_t>> own_;  ///< of what is written: its place in given_
  std::vector<Cell> given_;                      ///< texts are gone behind Demande
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
