#include "platform/foreign/dbase/header.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <utility>

#include "platform/foreign/file_numbers.h"

namespace talpena::dbase {
namespace {

struct Version {
  unsigned char mark;
  MemoKind memos;
};

/// The first byte of a file. Tables of Visual FoxPro (30 to 32) hold values in forms of their own.
// clang-format off
constexpr Version versions[] = {
    {0x03, MemoKind::None}, {0x04, MemoKind::None}, {0x43, MemoKind::None}, {0x63, MemoKind::None},
    {0xFB, MemoKind::None}, {0x83, MemoKind::Dbt3}, {0x7B, MemoKind::Dbt4}, {0x8B, MemoKind::Dbt4},
    {0x8E, MemoKind::Dbt4}, {0xCB, MemoKind::Dbt4}, {0xF5, MemoKind::Fpt},
};

struct TypeMark {
  char mark;
  ColumnType type;
};

constexpr TypeMark typeMarks[] = {
    {'C', ColumnType::Text}, {'N', ColumnType::Number}, {'F', ColumnType::Number},
    {'D', ColumnType::Date}, {'L', ColumnType::Logical}, {'M', ColumnType::Memo},
    {'G', ColumnType::Binary}, {'P', ColumnType::Binary},
};
// clang-format on

/// A column as the head has it: texts may have the upper byte of their width in the decimals.
struct RawColumn {
  Column column;
  std::size_t longWidth = 0;
};

std::optional<RawColumn> LitColonne(std::string_view bytes) {
  constexpr std::size_t longestName = 11, typePlace = 11, widthPlace = 16;
  const auto* const found = std::ranges::find(typeMarks, bytes[typePlace], &TypeMark::mark);
  if (found == std::end(typeMarks)) return {};
  RawColumn raw;
  raw.column.type = found->type;
  raw.column.name = bytes.substr(0, std::min(longestName, bytes.find('\0')));
  raw.column.name.erase(raw.column.name.find_last_not_of(' ') + 1);
  raw.column.width = static_cast<unsigned char>(bytes[widthPlace]);
  raw.column.decimals = static_cast<unsigned char>(bytes[widthPlace + 1]);
  raw.longWidth = raw.column.type == ColumnType::Text ? Lit16(bytes, widthPlace) : raw.column.width;
  if (raw.column.name.empty() || raw.longWidth == 0) return {};
  return raw;
}

/// The descriptions of the columns, up to their end mark or the end of the head.
std::optional<std::vector<RawColumn>> LitColonnes(const BytesAt& file, std::size_t headEnd) {
  std::vector<RawColumn> columns;
  std::vector<char> head(headEnd - headBytes);
  if (file.Lit(headBytes, head) != head.size()) return {};
  std::string_view rest(head.data(), head.size());
  while (rest.size() >= columnBytes && rest.front() != endOfColumns) {
    auto column = LitColonne(rest.substr(0, columnBytes));
    if (!column) return {};
    columns.push_back(std::move(*column));
    rest.remove_prefix(columnBytes);
  }
  if (columns.empty()) return {};
  return columns;
}

/// Gives the columns their places in the row; false when they do not fit it. The long widths hold
/// where they alone fill it.
bool Place(std::vector<RawColumn> raw, Header& header) {
  std::size_t plain = 1, extended = 1;
  for (const RawColumn& column : raw) {
    plain += column.column.width;
    extended += column.longWidth;
  }
  const bool useLong = plain != header.rowBytes && extended == header.rowBytes;
  if (!useLong && plain > header.rowBytes) return false;
  std::size_t offset = 1;
  for (RawColumn& column : raw) {
    if (useLong) column.column.width = column.longWidth;
    if (column.column.width == 0) return false;
    column.column.offset = offset;
    offset += column.column.width;
    header.columns.push_back(std::move(column.column));
  }
  return true;
}

bool EstMemo(const Column& column) {
  return column.type == ColumnType::Memo || column.type == ColumnType::Binary;
}

}  // namespace

std::optional<Header> LitEnTete(const BytesAt& file) {
  std::array<char, headBytes> bytes{};
  if (file.Lit(0, bytes) != bytes.size()) return {};
  const std::string_view head(bytes.data(), bytes.size());
  const auto mark = static_cast<unsigned char>(head.front());
  const auto* const version = std::ranges::find(versions, mark, &Version::mark);
  if (version == std::end(versions)) return {};
  constexpr std::size_t rowsPlace = 4, bytesPlace = 8, rowBytesPlace = 10, languagePlace = 29;
  Header header{.memos = version->memos,
                .rows = Lit32(head, rowsPlace),
                .bytes = Lit16(head, bytesPlace),
                .rowBytes = Lit16(head, rowBytesPlace),
                .language = static_cast<unsigned char>(head[languagePlace]),
                .columns = {}};
  if (header.bytes < headBytes + columnBytes || header.rowBytes < 2) return {};
  if (header.PlaceDe(header.rows) > file.Taille()) return {};
  auto columns = LitColonnes(file, header.bytes);
  if (!columns || !Place(std::move(*columns), header)) return {};
  const bool hasMemos = std::ranges::any_of(header.columns, EstMemo);
  if (hasMemos && header.memos == MemoKind::None) header.memos = MemoKind::Dbt3;
  return header;
}

}  // namespace talpena::dbase
