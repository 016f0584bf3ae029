// The head of a dBase or FoxPro table: which kind it is and where its columns stand in a row.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/foreign/bytes_at.h"

namespace talpena::dbase {

/// How memos are kept beside the table.
enum class MemoKind : std::uint8_t { None, Dbt3, Dbt4, Fpt };

enum class ColumnType : std::uint8_t { Text, Number, Date, Logical, Memo, Binary };

struct Column {
  std::string name;  ///< bytes in the table's code page
  ColumnType type = ColumnType::Text;
  std::size_t offset = 0;  ///< in the row
  std::size_t width = 0;
  int decimals = 0;
};

struct Header {
  MemoKind memos = MemoKind::None;
  std::uint32_t rows = 0;  ///< deleted ones too
  std::size_t bytes = 0;
  std::size_t rowBytes = 0;
  int language = 0;  ///< the code page as the head marks it
  std::vector<Column> columns;

  std::uint64_t PlaceDe(std::uint32_t row) const { return bytes + std::uint64_t{row} * rowBytes; }
};

inline constexpr std::size_t headBytes = 32;    ///< before the columns
inline constexpr std::size_t columnBytes = 32;  ///< of each of them
inline constexpr char endOfColumns = '\r';
inline constexpr char endOfRows = '\x1A';
inline constexpr char liveRow = ' ', deletedRow = '*';

/// Empty for what is no such table, and for one that is damaged: columns of an unknown type or
/// beyond the row, rows beyond the end of the file.
std::optional<Header> LitEnTete(const BytesAt& file);

}  // namespace talpena::dbase
