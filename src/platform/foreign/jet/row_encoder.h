// A row of an Access table (Jet 4) as bytes.
#pragma once
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foreign/jet/columns.h"
#include "platform/foreign/jet/long_values.h"
#include "platform/foreign/jet/text.h"
#include "platform/value.h"

namespace talpena::jet {

class RowEncoder {
 public:
  /// @param longValues  that of each column with long values, by the column's number
  RowEncoder(const std::vector<Column>& columns, std::map<std::size_t, LongValues>& longValues,
             TextForm form);

  /// The row for one cell a column, valid until the next. A text that does not fit its column
  /// raises FieldTooSmall (3163), a row that fits on no page RecordTooLarge (3047).
  std::string_view Ligne(std::span<const Cell> cells);

 private:
  void PoseFixe(const Column& column, const Cell& cell);
  void AjouteVariable(std::size_t number, const Cell& cell);
  void AjouteMemo(std::size_t number, std::string_view text);
  void AjouteFin();

  const std::vector<Column>& columns_;
  std::map<std::size_t, LongValues>& longValues_;
  TextForm form_;
  std::size_t fixedBytes_ = 0;
  std::vector<std::size_t> ends_;  ///< where each value that varies begins, and the last ends
  std::string row_;
  std::string memo_;
  std::string present_;  ///< a bit a column: it has a value; of a Boolean the value itself
};

}  // namespace talpena::jet
