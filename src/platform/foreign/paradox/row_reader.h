// The rows of a Paradox table.
#pragma once
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foreign/code_page.h"
#include "platform/foreign/paradox/head.h"
#include "platform/foreign/paradox/input.h"
#include "platform/foreign/paradox/memo_reader.h"
#include "platform/table_engine.h"

namespace talpena::paradox {

/// Block after block, as they follow from each other. Raises UnrecognizedFormat (3343) for blocks
/// that follow from themselves, records that are not in their block, and fewer of them than the
/// head counts; with words of its own for a value whose memo file is missing.
class RowReader final : public RowSource {
 public:
  /// @param memos  the table's own memo file, if there is one
  /// @param path   what messages call the table
  RowReader(Input file, TableHead head, std::optional<MemoReader> memos, std::string path);

  bool Suivante(std::span<Cell> cells) override;

 private:
  bool ProchainBloc();
  Cell Valeur(std::size_t number, std::string_view bytes);
  Cell ValeurLongue(std::size_t number, std::string_view bytes);
  std::string& TexteVide(std::size_t number);

  Input file_;
  TableHead head_;
  std::optional<MemoReader> memos_;
  std::string path_;
  CodePage page_;
  std::vector<char> block_;
  std::uint32_t next_;  ///< block to read; 0 behind the last
  std::uint32_t blocksRead_ = 0;
  std::size_t place_ = 0;           ///< of the next record in the block
  std::size_t records_ = 0;         ///< still to come from the block
  std::uint64_t given_ = 0;         ///< rows so far
  std::vector<std::string> texts_;  ///< of the row that is out, by column
};

}  // namespace talpena::paradox
