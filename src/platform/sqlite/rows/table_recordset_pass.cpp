// TableRecordset: one pass over many rows, as UPDATE statements over a block of them each.
#include <algorithm>

#include "platform/sqlite/errors.h"
#include "platform/sqlite/rows/row_blocks.h"
#include "platform/sqlite/rows/row_update.h"
#include "platform/sqlite/rows/table_recordset.h"

namespace talpena::sqlite {
namespace {

/// Keys per row up to which a walk over all keys is worth it.
constexpr std::int64_t WidestPass = 4;

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

  void SurEtendue(std::int64_t first, std::int64_t last) {
    Statement statement = connection_.Prepare(SqlModification(table_, pass_, Rows::KeyRange));
    ParEtendues(statement, first, last, [&](std::int64_t) {
      Execute(statement);
      change_.Avance(update_.Vues(), total_);
    });
  }

  void SurCles(std::span<const RowKey> keys) {
    Statement statement = connection_.Prepare(SqlModification(table_, pass_, Rows::KeyList));
    ParCles(statement, keys, [&](std::int64_t bound) {
      Execute(statement);
      change_.Avance(bound, total_);
    });
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

void TableRecordset::VerifieChampsEcrits(std::span<const int> fields) const {
  for (const int field : fields) {
    ExigeChamp(field);
    if (table_->Def(field).autoIncrement) throw ChampFige();
    if (std::count(fields.begin(), fields.end(), field) > 1) throw ArgumentInvalide();
  }
  if (fields.empty()) throw ArgumentInvalide();
}

/// First and last key, when the list shows every row of the table and the keys lie close enough
/// together for blocks of them to be blocks of rows.
std::optional<std::pair<std::int64_t, std::int64_t>> TableRecordset::EtendueDeToutes() {
  // Each by itself, SQLite finds them without reading the rows.
  const auto one = [this](const std::string& what) {
    return "(SELECT " + what + " FROM " + table_->NomSql() + ")";
  };
  Statement table = connection_->Prepare("SELECT " + one("count(*)") + ", " +
                                         one("min(" + table_->CleSql() + ")") + ", " +
                                         one("max(" + table_->CleSql() + ")"));
  if (!table.Avance() || table.Entier(0) != rows_->Vivants() || table.EstNull(1)) return {};
  const std::int64_t first = table.Entier(1), last = table.Entier(2);
  if (last - first > WidestPass * rows_->Vivants()) return {};
  return std::pair(first, last);
}

std::int64_t TableRecordset::ModifieLignes(const RowPass& pass, RowChange& change) {
  ExigeEcriture();
  for (const int field : pass.read) ExigeChamp(field);
  VerifieChampsEcrits(pass.written);
  FinEdition();
  const auto range = pass.only == nullptr ? EtendueDeToutes() : std::nullopt;
  if (range) {
    Passe whole(*connection_, *table_, pass, change, rows_->Vivants());
    whole.SurEtendue(range->first, range->second);
    return whole.Modifiees();
  }
  std::optional<std::span<const Bookmark>> only;
  if (pass.only != nullptr) only.emplace(*pass.only);
  const std::vector<RowKey> keys = ClesDe(*rows_, only);
  Passe some(*connection_, *table_, pass, change, static_cast<std::int64_t>(keys.size()));
  some.SurCles(keys);
  return some.Modifiees();
}

}  // namespace talpena::sqlite
