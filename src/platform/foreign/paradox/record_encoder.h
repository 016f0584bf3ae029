// A row of a Paradox table as bytes.
#pragma once
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foreign/paradox/memo_writer.h"
#include "platform/foreign/paradox/written_columns.h"
#include "platform/value.h"

namespace talpena::paradox {

class RecordEncoder {
 public:
  /// @param memos       takes long values; may be null when no column has them
  /// @param mostInMemo  bytes of one of them
  RecordEncoder(const std::vector<WrittenColumn>& columns, MemoWriter* memos,
                std::size_t mostInMemo);

  /// The record for one cell a column, valid until the next. Nothing goes to the memo file before
  /// all values were found good. Raises FieldTooSmall (3163), NotInCodePage (481), DataConversion
  /// (3421).
  std::string_view Enregistrement(std::span<const Cell> cells);

 private:
  /// A value for the memo file.
  struct Pending {
    std::size_t place;  ///< of its reference in the record
    std::string bytes;
  };

  void Pose(const WrittenColumn& column, const Cell& cell, std::size_t place);
  void PoseTexte(const WrittenColumn& column, std::string_view text, std::size_t place);
  void PoseLong(const WrittenColumn& column, std::string_view value, std::size_t place);

  const std::vector<WrittenColumn>& columns_;
  MemoWriter* memos_;
  std::size_t mostInMemo_;
  std::string record_;
  std::string encoded_;
  std::vector<Pending> pending_;
};

}  // namespace talpena::paradox
