#include "platform/sqlite/rows/rows_ahead.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <span>
#include <utility>

#include "common/talpena_error.h"
#include "platform/sqlite/rows/packed_cells.h"

namespace talpena::sqlite {
namespace {

constexpr std::int64_t InMemory = 8 << 20;  ///< bytes of a table whose rows are one part
constexpr std::int64_t PartBytes = 4 << 20;
constexpr std::size_t LargestPart = 16 << 20;  ///< rows of one that turns out larger are looked up
constexpr std::size_t MostParts = 1024;
constexpr std::size_t AllBuffers = 4 << 20;
constexpr std::size_t LargestBuffer = 64 << 10;
constexpr std::int64_t FewestRows = 256;
/// Rows of the table for one of the list, up to which going through the table is quicker than
/// looking up each.
constexpr std::int64_t WidestWalk = 4;

/// In front of the cells of a row.
struct RecordHead {
  std::uint32_t slot;
  std::uint32_t size;
};

std::int64_t LitUnNombre(Connection& connection, const std::string& sql) {
  Statement statement = connection.Prepare(sql);
  return statement.Avance() ? statement.Entier(0) : 0;
}

std::int64_t OctetsDe(Connection& connection) {
  return LitUnNombre(connection, "PRAGMA page_count") * LitUnNombre(connection, "PRAGMA page_size");
}

}  // namespace

std::unique_ptr<RowsAhead> RowsAhead::Lit(Connection& connection, const TableState& table,
                                          const RowList& rows, const Recordset::Progress& avance) {
  if (rows.Croissant() || rows.Vivants() < FewestRows) return nullptr;
  try {
    const std::int64_t all = LitUnNombre(connection, "SELECT count(*) FROM " + table.NomSql());
    const std::int64_t bytes = OctetsDe(connection);
    if (all > WidestWalk * rows.Vivants() ||
        bytes > PartBytes * static_cast<std::int64_t>(MostParts)) {
      return nullptr;
    }
    std::unique_ptr<RowsAhead> ahead(new RowsAhead(table, rows, bytes));
    if (!ahead->Lit(connection, all, avance)) return nullptr;
    return ahead;
  } catch (const TalpenaError&) {  // whoever looks up the row meets it again
    return nullptr;
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

RowsAhead::RowsAhead(const TableState& table, const RowList& rows, std::int64_t tableBytes)
    : table_(table), rows_(rows), version_(table.Version()) {
  const std::int64_t wanted = tableBytes <= InMemory ? 1 : tableBytes / PartBytes + 1;
  slotsPerPart_ = rows.Slots() / static_cast<std::size_t>(wanted) + 1;
  parts_.resize(rows.Slots() / slotsPerPart_ + 1);
  bufferSize_ = std::min(LargestBuffer, AllBuffers / parts_.size());
  loaded_ = parts_.size();
}

bool RowsAhead::Lit(Connection& connection, std::int64_t total, const Recordset::Progress& avance) {
  constexpr std::int64_t step = 4096;
  if (parts_.size() > 1 && !file_.Ouvre()) return false;
  Statement all = connection.Prepare("SELECT " + table_.TousLesChamps() + ", " + table_.CleSql() +
                                     " FROM " + table_.NomSql() + " ORDER BY " + table_.CleSql());
  std::vector<Cell> cells(table_.Definition().fields.size());
  const int keyColumn = static_cast<int>(cells.size());
  std::int64_t seen = 0;
  while (all.Avance()) {
    if (++seen % step == 0 && avance) avance(seen, total);
    const auto slot = rows_.Place(static_cast<RowKey>(all.Entier(keyColumn)));
    if (!slot || !rows_.Vivant(*slot)) continue;
    for (int i = 0; i < keyColumn; ++i) cells[static_cast<std::size_t>(i)] = all.Cellule(i);
    if (!Range(*slot, cells)) return false;
  }
  return true;
}

/// Adds a row to its part.
bool RowsAhead::Range(std::size_t slot, std::span<const Cell> cells) {
  Part& part = parts_[slot / slotsPerPart_];
  std::vector<char>& bytes = part.bytes;
  const std::size_t most = sizeof(RecordHead) + PlaceAuPlus(cells);
  if (most > LargestPart) return true;  // looked up when its turn comes
  const bool toFile = parts_.size() > 1;
  if (toFile && !bytes.empty() && bytes.size() + most > bufferSize_ && !Verse(part)) return false;
  const std::size_t start = bytes.size();
  if (toFile && start == 0) bytes.reserve(std::max(bufferSize_, most));
  bytes.resize(start + most);
  char* const from = bytes.data() + start + sizeof(RecordHead);
  const auto size = static_cast<std::size_t>(Emballe(cells, from) - from);
  const RecordHead head{static_cast<std::uint32_t>(slot), static_cast<std::uint32_t>(size)};
  std::memcpy(bytes.data() + start, &head, sizeof head);
  bytes.resize(start + sizeof head + size);
  part.total += sizeof head + size;
  return true;
}

/// Moves what is buffered of a part to the file.
bool RowsAhead::Verse(Part& part) {
  if (!file_.Ecrit(part.bytes.data(), part.bytes.size(), end_)) return false;
  part.chunks.push_back({end_, part.bytes.size()});
  end_ += static_cast<std::int64_t>(part.bytes.size());
  part.bytes.clear();
  return true;
}

const char* RowsAhead::Ligne(std::size_t slot) {
  const std::size_t number = slot / slotsPerPart_;
  if (number != loaded_ && !Charge(number)) return nullptr;
  const std::size_t place = slot - number * slotsPerPart_;
  return place < places_.size() && places_[place] != 0 ? records_.data() + places_[place] : nullptr;
}

/// Makes a part the one at hand. A part that cannot be had has no rows.
bool RowsAhead::Charge(std::size_t number) {
  if (number >= parts_.size()) return false;
  loaded_ = number;
  records_.clear();
  places_.clear();
  Part& part = parts_[number];
  if (part.total == 0 || part.total > LargestPart) return false;
  try {
    if (parts_.size() == 1) {
      records_ = std::move(part.bytes);
    } else if (!Rassemble(part)) {
      return false;
    }
    Indexe(number);
  } catch (const std::bad_alloc&) {
    return false;
  }
  return true;
}

bool RowsAhead::Rassemble(const Part& part) {
  records_.resize(part.total);
  std::size_t at = 0;
  for (const Chunk& chunk : part.chunks) {
    if (!file_.Lit(records_.data() + at, chunk.size, chunk.at)) return false;
    at += chunk.size;
  }
  std::copy(part.bytes.begin(), part.bytes.end(),
            records_.begin() + static_cast<std::ptrdiff_t>(at));
  return true;
}

void RowsAhead::Indexe(std::size_t number) {
  places_.assign(slotsPerPart_, 0);
  for (std::size_t at = 0; at < records_.size();) {
    RecordHead head;
    std::memcpy(&head, records_.data() + at, sizeof head);
    at += sizeof head;
    places_[head.slot - number * slotsPerPart_] = static_cast<std::uint32_t>(at);
    at += head.size;
  }
}

}  // namespace talpena::sqlite
