// The rows of a sorted list, read before they are asked for.
#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/rows/row_list.h"
#include "platform/sqlite/rows/scratch_file.h"
#include "platform/sqlite/table_state.h"
#include "platform/table_engine.h"

namespace talpena::sqlite {

/// Who looks up the rows of a large sorted table one after the other reads a page of it for each.
/// These are read once, in the order in which they lie, and put aside in parts of the list: in
/// memory while they are few, else in a file. Going on from part to part takes up to 16 MB.
class RowsAhead {
 public:
  /// The rows as they are now. Null where they are better looked up one by one, and after a
  /// failure, that of `avance` included, which is told how many rows of the table were read.
  static std::unique_ptr<RowsAhead> Lit(Connection& connection, const TableState& table,
                                        const RowList& rows, const Recordset::Progress& avance);

  /// The packed cells of the row at a slot; null for one that is not among them. Valid until the
  /// next.
  const char* Ligne(std::size_t slot);
  /// False once the table was changed.
  bool EstActuel() const { return version_ == table_.Version(); }

 private:
  struct Chunk {
    std::int64_t at;  ///< in the file
    std::size_t size;
  };
  struct Part {
    std::vector<char> bytes;  ///< records that the file has not got
    std::vector<Chunk> chunks;
    std::size_t total = 0;  ///< bytes of all its records
  };

  RowsAhead(const TableState& table, const RowList& rows, std::int64_t tableBytes);
  bool Lit(Connection& connection, std::int64_t total, const Recordset::Progress& avance);
  bool Range(std::size_t slot, std::span<const Cell> cells);
  bool Verse(Part& part);
  bool Charge(std::size_t number);
  bool Rassemble(const Part& part);
  void Indexe(std::size_t number);

  const TableState& table_;
  const RowList& rows_;
  std::uint64_t version_;
  std::size_t slotsPerPart_;
  std::size_t bufferSize_;
  std::vector<Part> parts_;
  ScratchFile file_;
  std::int64_t end_ = 0;  ///< of the file

  // The part at hand.
  std::size_t loaded_;
  std::vector<char> records_;
  std::vector<std::uint32_t>
      places_;  ///< by slot of the part: of its cells in records_; 0 for none
};

}  // namespace talpena::sqlite
