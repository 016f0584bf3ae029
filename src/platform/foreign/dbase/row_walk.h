// The rows of a dBase or FoxPro table and their memos, as bytes.
#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/foreign/bytes_at.h"
#include "platform/foreign/dbase/memo_file.h"
#include "platform/foreign/dbase/table_reader.h"

namespace talpena::dbase {

/// Goes once over the rows of a table. Damage raises UnrecognizedFormat (3343).
class RowWalk {
 public:
  RowWalk(TableBytes bytes, const Header& header, const LimitesDbase& limits,
          std::shared_ptr<const WorkBeat> attente);

  /// The next row that is not deleted, valid until the next call; empty behind the last.
  std::optional<std::string_view> Prochaine();

  /// The memo that a row names in a column; empty when there is none. False when the memo file
  /// itself is missing.
  bool LitMemo(const Column& column, std::string_view row, std::string& into);

 private:
  void Respire();

  TableBytes bytes_;
  Header header_;
  std::shared_ptr<const WorkBeat> attente_;
  ByteWindow window_;
  std::optional<MemoFile> memos_;
  std::uint64_t mostOfRow_ = 0;  ///< bytes that the memos of a row may have together
  std::uint64_t left_ = 0;       ///< of these
  std::uint32_t next_ = 0;
};

}  // namespace talpena::dbase
