// TableRecordset: what is done to many rows alike, by plain statements.
#include "platform/sqlite/columns.h"
#include "platform/sqlite/errors.h"
#include "platform/sqlite/rows/number_reader.h"
#include "platform/sqlite/rows/row_blocks.h"
#include "platform/sqlite/rows/table_recordset.h"
#include "platform/sqlite/savepoint.h"

namespace talpena::sqlite {
namespace {

/// Neighbouring keys from which on a statement of their own is worth it.
constexpr std::size_t ShortestRun = 16;

/// Place of the first value among the parameters: behind those that name the rows.
constexpr int FirstValue = 3;

std::string SqlRemplissage(const TableState& table, std::span<const int> fields, Rows rows) {
  std::string assignments;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    assignments += (i == 0 ? "" : ", ") + table.ChampSql(fields[i]) + " = ?" +
                   std::to_string(static_cast<std::size_t>(FirstValue) + i + 1);
  }
  return "UPDATE OR FAIL " + table.NomSql() + " SET " + assignments + " WHERE " +
         ConditionSurCles(table.CleSql(), rows);
}

}  // namespace

std::int64_t TableRecordset::RemplitLignes(std::span<const int> fields,
                                           std::span<const Cell> values, const Progress& avance) {
  ExigeEcriture();
  VerifieChampsEcrits(fields);
  if (values.size() != fields.size()) throw ArgumentInvalide();
  FinEdition();
  const std::int64_t total = rows_->Vivants();
  if (total == 0) return 0;
  std::vector<std::string> scratch(fields.size());
  const auto range = EtendueDeToutes();
  Statement statement =
      connection_->Prepare(SqlRemplissage(*table_, fields, range ? Rows::KeyRange : Rows::KeyList));
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const bool binary = StockageDe(table_->Def(fields[i]).type) == Storage::Blob;
    statement.Lie(FirstValue + static_cast<int>(i),
                  Convertit(*table_, fields[i], values[i], scratch[i]), binary);
  }
  std::int64_t count = 0;
  const auto execute = [&](std::int64_t) {
    connection_->ArreteLecteurs();
    table_->NoteChangement();
    statement.Execute();
    count += connection_->LignesChangees();
    avance(count, total);
  };
  if (range) {
    ParEtendues(statement, range->first, range->second, execute);
  } else {
    ParCles(statement, ClesDe(*rows_, std::nullopt), execute);
  }
  return count;
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

void TableRecordset::LitNombres(std::span<const int> fields, const std::vector<Bookmark>* only,
                                const NumberVisitor& visit) {
  for (const int field : fields) ExigeChamp(field);
  NumberReader reader(*connection_, *table_, fields, visit);
  only == nullptr ? reader.LitTout(*rows_) : reader.LitNommees(*rows_, *only);
}

// Chosen rows mostly stand together, and then their keys do: a run of them goes by its ends.
void TableRecordset::ExecuteSuppression(std::span<const RowKey> keys) {
  const std::string sql = "DELETE FROM " + table_->NomSql() + " WHERE ";
  Statement run = connection_->Prepare(sql + ConditionSurCles(table_->CleSql(), Rows::KeyRange));
  std::vector<RowKey> scattered;
  for (std::size_t first = 0; first < keys.size();) {
    std::size_t behind = first + 1;
    while (behind < keys.size() && keys[behind] == keys[behind - 1] + 1) ++behind;
    if (behind - first < ShortestRun) {
      scattered.insert(scattered.end(), keys.begin() + static_cast<std::ptrdiff_t>(first),
                       keys.begin() + static_cast<std::ptrdiff_t>(behind));
    } else {
      run.Lie(1, std::int64_t{keys[first]});
      run.Lie(2, std::int64_t{keys[behind - 1]});
      run.Execute();
    }
    first = behind;
  }
  if (scattered.empty()) return;
  Statement list = connection_->Prepare(sql + ConditionSurCles(table_->CleSql(), Rows::KeyList));
  KeySource source(scattered);
  list.LiePointeur(1, static_cast<SourceRows*>(&source), SourcePointer);
  list.Execute();
}

}  // namespace talpena::sqlite
