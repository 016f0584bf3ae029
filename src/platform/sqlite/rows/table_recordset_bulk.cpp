// TableRecordset: what is done to many rows alike, by plain statements.
#include <algorithm>

#include "platform/sqlite/columns.h"
#include "platform/sqlite/errors.h"
#include "platform/sqlite/rows/insert_source.h"
#include "platform/sqlite/rows/number_reader.h"
#include "platform/sqlite/rows/row_blocks.h"
#include "platform/sqlite/rows/table_recordset.h"
#include "platform/sqlite/savepoint.h"

namespace talpena::sqlite {
namespace {

/// Place of the first value among the parameters: behind those that name the rows.
constexpr int FirstValue = 3;

/// Behind the values stands what the first field holds before, when that is asked for.
std::string SqlRemplissage(const TableState& table, std::span<const int> fields, Rows rows,
                           bool conditional) {
  const auto parameter = [](std::size_t value) {
    return " = ?" + std::to_string(static_cast<std::size_t>(FirstValue) + value + 1);
  };
  std::string assignments;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    assignments += (i == 0 ? "" : ", ") + table.ChampSql(fields[i]) + parameter(i);
  }
  // With the plus an index of the field is left alone: the rows of a block lie side by side.
  const std::string condition =
      conditional ? " AND +" + table.ChampSql(fields[0]) + parameter(fields.size()) : "";
  return "UPDATE OR FAIL " + table.NomSql() + " SET " + assignments + " WHERE " +
         ConditionSurCles(table.CleSql(), rows) + condition;
}

}  // namespace

std::int64_t TableRecordset::RemplitLignes(std::span<const int> fields,
                                           std::span<const Cell> values, const Progress& avance) {
  return Remplit(fields, values, nullptr, avance);
}

std::int64_t TableRecordset::RemplaceValeur(int field, const Cell& before, const Cell& value,
                                            const Progress& avance) {
  return Remplit({&field, 1}, {&value, 1}, &before, avance);
}

/// The rows in which the first field holds `before`; null for all.
std::int64_t TableRecordset::Remplit(std::span<const int> fields, std::span<const Cell> values,
                                     const Cell* before, const Progress& avance) {
  ExigeEcriture();
  VerifieChampsEcrits(fields);
  if (values.size() != fields.size()) throw ArgumentInvalide();
  FinEdition();
  const std::int64_t total = rows_->Vivants();
  if (total == 0) return 0;
  std::vector<std::string> scratch(fields.size() + 1);
  const auto range = EtendueDeToutes();
  Statement statement = connection_->Prepare(
      SqlRemplissage(*table_, fields, range ? Rows::KeyRange : Rows::KeyList, before != nullptr));
  const auto lie = [&](std::size_t place, int field, const Cell& value) {
    const bool binary = StockageDe(table_->Def(field).type) == Storage::Blob;
    statement.Lie(FirstValue + static_cast<int>(place),
                  Convertit(*table_, field, value, scratch[place]), binary);
  };
  for (std::size_t i = 0; i < fields.size(); ++i) lie(i, fields[i], values[i]);
  if (before != nullptr) lie(fields.size(), fields[0], *before);
  std::int64_t count = 0;
  const auto execute = [&](std::int64_t bound) {
    connection_->ArreteLecteurs();
    table_->NoteChangement();
    statement.Execute();
    count += connection_->LignesChangees();
    avance(before == nullptr ? count : std::min(bound, total), total);
  };
  if (range) {
    ParEtendues(statement, range->first, range->second, execute);
  } else {
    ParCles(statement, ClesDe(*rows_, std::nullopt), execute);
  }
  return count;
}

std::int64_t TableRecordset::AjouteLignes(std::span<const int> fields, RowSource& source) {
  ExigeEcriture();
  VerifieChampsEcrits(fields);
  for (std::size_t i = 0; i < Fields().size(); ++i) {
    const FieldDef& field = Fields()[i];
    const bool given = std::count(fields.begin(), fields.end(), static_cast<int>(i)) > 0;
    if (field.required && !field.autoIncrement && !given) {
      throw NullRefuse(table_->Nom(), field.name);
    }
  }
  FinEdition();
  const std::int64_t before = CleLaPlusHaute();
  try {
    const std::int64_t count =
        InsereTout(*connection_, *table_, {fields.begin(), fields.end()}, source, Check::Strict);
    MontreAjoutees(before);
    return count;
  } catch (...) {
    MontreAjoutees(before);
    throw;
  }
}

/// 0 without rows.
std::int64_t TableRecordset::CleLaPlusHaute() {
  Statement highest =
      connection_->Prepare("SELECT MAX(" + table_->CleSql() + ") FROM " + table_->NomSql());
  return highest.Avance() ? highest.Entier(0) : 0;
}

// New rows have keys above all others, each the next of the one before; the first is more than one
// above `before` where rows at the end were deleted, since no number is given twice.
void TableRecordset::MontreAjoutees(std::int64_t before) {
  const std::int64_t last = CleLaPlusHaute();
  if (last <= before) return;
  Statement lowest =
      connection_->Prepare("SELECT MIN(" + table_->CleSql() + ") FROM " + table_->NomSql() +
                           " WHERE " + table_->CleSql() + " > ?1");
  lowest.Lie(0, before);
  if (!lowest.Avance()) return;
  for (std::int64_t key = lowest.Entier(0); key <= last; ++key) {
    rows_->Ajoute(static_cast<RowKey>(key));
  }
  lastAdded_ = static_cast<RowKey>(last);
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

void TableRecordset::ExecuteSuppression(std::span<const RowKey> keys) {
  const std::string sql = "DELETE FROM " + table_->NomSql() + " WHERE ";
  const KeyRuns chosen = EnSuites(keys);
  Statement run = connection_->Prepare(sql + ConditionSurCles(table_->CleSql(), Rows::KeyRange));
  for (const auto& [first, last] : chosen.runs) {
    run.Lie(1, std::int64_t{first});
    run.Lie(2, std::int64_t{last});
    run.Execute();
  }
  if (chosen.scattered.empty()) return;
  Statement list = connection_->Prepare(sql + ConditionSurCles(table_->CleSql(), Rows::KeyList));
  KeySource source(chosen.scattered);
  list.LiePointeur(1, static_cast<SourceRows*>(&source), SourcePointer);
  list.Execute();
}

}  // namespace talpena::sqlite
