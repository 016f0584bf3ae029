// Rows of dBase and FoxPro tables as bytes.
#pragma once
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foreign/dbase/columns.h"
#include "platform/foreign/dbase/memo_writer.h"
#include "platform/value.h"

namespace talpena::dbase {

class RowEncoder {
 public:
  /// @param memos       null for a table without memos
  /// @param mostOfRow   bytes that the memos of a row may have together
  RowEncoder(const std::vector<WrittenColumn>& columns, MemoWriter* memos, std::size_t mostOfRow);

  /// The row for one cell a column, valid until the next. Its memos are put into their file once
  /// all its values are known to fit. Raises FieldTooSmall (3163), NotInCodePage (481), and what
  /// the memo file does.
  std::string_view Ligne(std::span<const Cell> cells);

 private:
  void Pose(const WrittenColumn& column, const Cell& cell);
  void PoseTexte(const WrittenColumn& column, const Cell& cell);
  bool PoseNombre(const WrittenColumn& column, const Cell& cell);
  void EncodeMemos(std::span<const Cell> cells);
  void RangeMemos();

  const std::vector<WrittenColumn>& columns_;
  MemoWriter* memos_;
  std::size_t mostOfRow_;
  std::string row_;
  std::string text_;                    ///< in code page 1252
  std::vector<std::string> memoTexts_;  ///< the same, of the memo columns
};

}  // namespace talpena::dbase
