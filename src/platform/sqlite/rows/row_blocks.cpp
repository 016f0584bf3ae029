#include "platform/sqlite/rows/row_blocks.h"

#include <algorithm>
#include <limits>

namespace talpena::sqlite {

std::string ConditionSurCles(const std::string& key, Rows rows) {
  return key + (rows == Rows::KeyRange
                    ? std::string(" BETWEEN ?2 AND ?3")
                    : std::string(" IN (SELECT c0 FROM ") + SourceTable + "(?2))");
}

bool KeySource::Suivante(std::span<const Cell>& cells) {
  if (next_ == keys_.size()) return false;
  cell_ = Cell::Of(std::int64_t{keys_[next_++]});
  cells = {&cell_, 1};
  return true;
}

std::vector<RowKey> ClesDe(const RowList& rows, std::optional<std::span<const Bookmark>> only) {
  std::vector<RowKey> keys;
  if (!only) {
    keys.reserve(static_cast<std::size_t>(rows.Vivants()));
    for (auto slot = rows.Suivant(0); slot; slot = rows.Suivant(*slot + 1)) {
      keys.push_back(rows.Cle(*slot));
    }
  } else {
    keys.reserve(only->size());
    for (const Bookmark bookmark : *only) {
      if (bookmark < std::numeric_limits<RowKey>::min() ||
          bookmark > std::numeric_limits<RowKey>::max()) {
        continue;
      }
      const auto slot = rows.Place(static_cast<RowKey>(bookmark));
      if (slot && rows.Vivant(*slot)) keys.push_back(static_cast<RowKey>(bookmark));
    }
  }
  if (!std::is_sorted(keys.begin(), keys.end())) std::sort(keys.begin(), keys.end());
  keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
  return keys;
}

void ParEtendues(Statement& statement, std::int64_t first, std::int64_t last,
                 const BlockRun& execute) {
  for (std::int64_t from = first; from <= last; from += BlockRows) {
    const std::int64_t to = std::min(from + BlockRows - 1, last);
    statement.Lie(1, from);
    statement.Lie(2, to);
    execute(to - first + 1);
  }
}

void ParCles(Statement& statement, std::span<const RowKey> keys, const BlockRun& execute) {
  for (std::size_t from = 0; from < keys.size(); from += BlockRows) {
    const std::size_t count = std::min<std::size_t>(BlockRows, keys.size() - from);
    KeySource block(keys.subspan(from, count));
    statement.LiePointeur(1, static_cast<SourceRows*>(&block), SourcePointer);
    execute(static_cast<std::int64_t>(from + count));
  }
}

}  // namespace talpena::sqlite
