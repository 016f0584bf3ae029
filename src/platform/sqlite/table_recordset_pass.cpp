// TableRecordset: many rows at once. One pass over them is UPDATE statements over a block of them
// each; deleting them is a statement for every run of keys.
#include <algorithm>
#include <limits>
#include <optional>

#include "platform/sqlite/errors.h"
#include "platform/sqlite/row_update.h"
#include "platform/sqlite/savepoint.h"
#include "platform/sqlite/source_table.h"
#include "platform/sqlite/table_recordset.h"

namespace talpena::sqlite {
namespace {

/// Rows that one statement changes: few enough for progress to be seen, too many for the cost of
/// a statement to count.
constexpr std::int64_t BlockRows = 4096;

/// Keys per row up to which a walk over all keys is worth it.
constexpr std::int64_t WidestSpread = 4;

/// Keys as rows of the source table.
class KeySource final : public SourceRows {
 public:
  explicit KeySource(std::span<const RowKey> keys) : keys_(keys) {}
  bool Suivante(std::span<const Cell>& cells) override {
    if (next_ == keys_.size()) return false;
    cell_ = Cell::Of(std::int64_t{keys_[next_++]});
    cells = {&cell_, 1};
    return true;
  }

 private:
  std::span<const RowKey> keys_;
  std::size_t next_ = 0;
  Cell cell_;
};

/// The keys of a list that are alive and, if `only` is given, named there; rising, each once.
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

/// A pass on its way: runs the statement block by block and tells how far it came.
class Passe {
 public:
  Passe(Connection& connection, TableState& table, const RowPass& pass, RowChange& change,
        std::int64_t total)
      : connection_(connection),
        table_(table),
        pass_(pass),
        change_(change),
        update_(table, pass, change),
        total_(total) {}

  void ParEtendues(std::int64_t first, std::int64_t last) {
    Statement statement = connection_.Prepare(SqlModification(table_, pass_, Rows::KeyRange));
    for (std::int64_t from = first; from <= last; from += BlockRows) {
      statement.Lie(1, from);
      statement.Lie(2, std::min(from + BlockRows - 1, last));
      Execute(statement);
      change_.Avance(update_.Vues(), total_);
    }
  }

  void ParCles(std::span<const RowKey> keys) {
    Statement statement = connection_.Prepare(SqlModification(table_, pass_, Rows::KeyList));
    for (std::size_t from = 0; from < keys.size(); from += BlockRows) {
      const std::size_t count = std::min<std::size_t>(BlockRows, keys.size() - from);
      KeySource block(keys.subspan(from, count));
      statement.LiePointeur(1, static_cast<SourceRows*>(&block), SourcePointer);
      Execute(statement);
      change_.Avance(static_cast<std::int64_t>(from + count), total_);
    }
  }

  std::int64_t Modifiees() const { return update_.Modifiees(); }

 private:
  void Execute(Statement& statement) {
    connection_.ArreteLecteurs();
    statement.LiePointeur(0, &update_, UpdatePointer);
    try {
      statement.Execute();
    } catch (...) {
      table_.NoteChangement();
      throw;
    }
    table_.NoteChangement();
    if (update_.failure) std::rethrow_exception(update_.failure);
  }

  Connection& connection_;
  TableState& table_;
  const RowPass& pass_;
  RowChange& change_;
  RowUpdate update_;
  std::int64_t total_;
};

}  // namespace

void TableRecordset::VerifiePasse(const RowPass& pass) const {
  ExigeEcriture();
  for (const int field : pass.read) ExigeChamp(field);
  for (const int field : pass.written) {
    ExigeChamp(field);
    if (table_->Def(field).autoIncrement) throw ChampFige();
    if (std::count(pass.written.begin(), pass.written.end(), field) > 1) throw ArgumentInvalide();
  }
  if (pass.written.empty()) throw ArgumentInvalide();
}

/// First and last key, when the list shows every row of the table and the keys lie close enough
/// together for blocks of them to be blocks of rows.
std::optional<std::pair<std::int64_t, std::int64_t>> TableRecordset::EtendueDeToutes() {
  Statement table = connection_->Prepare("SELECT count(*), min(" + table_->CleSql() + "), max(" +
                                         table_->CleSql() + ") FROM " + table_->NomSql());
  if (!table.Avance() || table.Entier(0) != rows_->Vivants() || table.EstNull(1)) return {};
  const std::int64_t first = table.Entier(1), last = table.Entier(2);
  if (last - first > WidestSpread * rows_->Vivants()) return {};
  return std::pair(first, last);
}

std::int64_t TableRecordset::ModifieLignes(const RowPass& pass, RowChange& change) {
  VerifiePasse(pass);
  FinEdition();
  const auto range = pass.only == nullptr ? EtendueDeToutes() : std::nullopt;
  if (range) {
    Passe whole(*connection_, *table_, pass, change, rows_->Vivants());
    whole.ParEtendues(range->first, range->second);
    return whole.Modifiees();
  }
  std::optional<std::span<const Bookmark>> only;
  if (pass.only != nullptr) only.emplace(*pass.only);
  const std::vector<RowKey> keys = ClesDe(*rows_, only);
  Passe some(*connection_, *table_, pass, change, static_cast<std::int64_t>(keys.size()));
  some.ParCles(keys);
  return some.Modifiees();
}

std::int64_t TableRecordset::SupprimeLignes(std::span<const Bookmark> rows) {
  ExigeEcriture();
  FinEdition();
  const std::vector<RowKey> keys = ClesDe(*rows_, rows);
  if (keys.empty()) return 0;
  connection_->ArreteLecteurs();
  PointDeReprise point(*connection_);
  ExecuteSuppression(keys);
  point.Valide();
  table_->NoteSuppressions(keys);
  OublieLigne();
  return static_cast<std::int64_t>(keys.size());
}

// Chosen rows mostly stand together, and then their keys do.
void TableRecordset::ExecuteSuppression(const std::vector<RowKey>& keys) {
  const std::string sql = "DELETE FROM " + table_->NomSql() + " WHERE " + table_->CleSql();
  Statement one = connection_->Prepare(sql + " = ?1");
  Statement run = connection_->Prepare(sql + " BETWEEN ?1 AND ?2");
  for (std::size_t first = 0; first < keys.size();) {
    std::size_t last = first;
    while (last + 1 < keys.size() && keys[last + 1] == keys[last] + 1) ++last;
    Statement& statement = first == last ? one : run;
    statement.Lie(0, std::int64_t{keys[first]});
    if (first != last) statement.Lie(1, std::int64_t{keys[last]});
    statement.Execute();
    first = last + 1;
  }
}

}  // namespace talpena::sqlite
