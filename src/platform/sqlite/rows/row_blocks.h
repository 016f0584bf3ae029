// Statements over many rows of a table, a block of rows at a time.
#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "platform/sqlite/rows/row_list.h"
#include "platform/sqlite/rows/source_table.h"
#include "platform/sqlite/statement.h"
#include "platform/table_engine.h"

namespace talpena::sqlite {

/// Rows that one statement changes: few enough for progress to be seen, too many for the cost of
/// a statement to count.
inline constexpr std::int64_t BlockRows = 4096;

/// How a statement names its rows: ?2 and ?3 are the first and last key, or ?2 is a source of keys.
enum class Rows : std::uint8_t { KeyRange, KeyList };

/// The condition for that; `key` is the key column, quoted.
std::string ConditionSurCles(const std::string& key, Rows rows);

/// Keys as rows of the source table.
class KeySource final : public SourceRows {
 public:
  explicit KeySource(std::span<const RowKey> keys) : keys_(keys) {}
  bool Suivante(std::span<const Cell>& cells) override;

 private:
  std::span<const RowKey> keys_;
  std::size_t next_ = 0;
  Cell cell_;
};

/// The keys of a list that are alive and, if `only` is given, named there; rising, each once.
std::vector<RowKey> ClesDe(const RowList& rows, std::optional<std::span<const Bookmark>> only);

/// Binds block after block of keys and runs each. `execute` is told how many keys are bound so far.
using BlockRun = std::function<void(std::int64_t bound)>;
void ParEtendues(Statement& statement, std::int64_t first, std::int64_t last,
                 const BlockRun& execute);
void ParCles(Statement& statement, std::span<const RowKey> keys, const BlockRun& execute);

}  // namespace talpena::sqlite
