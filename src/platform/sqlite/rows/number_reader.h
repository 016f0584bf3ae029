// Numbers of many rows, read in the order of a list of keys.
#pragma once
#include <cstdint>
#include <span>
#include <vector>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/rows/row_list.h"
#include "platform/sqlite/statement.h"
#include "platform/sqlite/table_state.h"
#include "platform/table_engine.h"

namespace talpena::sqlite {

/// Goes through the table in the order in which it lies and puts each row at its place in the list,
/// block by block; rows that lie too far apart for that are looked up one by one.
class NumberReader {
 public:
  /// The fields exist. DataConversion (3421) when one of them holds no numbers.
  NumberReader(Connection& connection, const TableState& table, std::span<const int> fields,
               const NumberVisitor& visit);

  /// All rows of a list that are alive.
  void LitTout(const RowList& rows);
  /// The rows named that are alive in the list, in the order of the names.
  void LitNommees(const RowList& rows, std::span<const Bookmark> named);

 private:
  template <typename Next>
  void ParBlocs(Next next);
  bool Serrees();
  void LitBloc();
  void Parcourt();
  void ChercheUneAUne();
  void Range(const Statement& row, std::size_t place);
  void Rend();

  std::size_t fields_;
  const NumberVisitor& visit_;
  Statement range_;  ///< keys from ?1 to ?2: key, then the fields
  Statement one_;    ///< key ?1

  std::vector<RowKey> keys_;  ///< of the block, in the order of the list
  RowKey low_ = 0, high_ = 0;
  std::vector<std::uint32_t> places_;  ///< by key from low_: place in the block + 1
  std::vector<double> values_;
  std::vector<bool> found_;
};

}  // namespace talpena::sqlite
