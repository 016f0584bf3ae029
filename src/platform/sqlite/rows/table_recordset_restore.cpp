// TableRecordset: rows as they were: read before they change, put back after they went.
#include <algorithm>
#include <exception>
#include <string>

#include "platform/sqlite/columns.h"
#include "platform/sqlite/errors.h"
#include "platform/sqlite/rows/row_blocks.h"
#include "platform/sqlite/rows/table_recordset.h"
#include "platform/sqlite/savepoint.h"

namespace talpena::sqlite {
namespace {

/// Rows on their way back: key, then every field but the numbered one, checked as by Set.
class RestoredRows final : public SourceRows {
 public:
  RestoredRows(const TableState& table, std::span<const RowPlace> places, RowSource& values,
               std::int64_t highest)
      : table_(table),
        places_(places),
        values_(values),
        highest_(highest),
        given_(table.Definition().fields.size()),
        scratch_(given_.size()),
        stored_(given_.size() + 1) {}

  bool Suivante(std::span<const Cell>& cells) override {
    if (next_ == places_.size()) return false;
    const Bookmark row = places_[next_++].row;
    if (!CleDe(row) || row > highest_) throw SignetInvalide();
    std::fill(given_.begin(), given_.end(), Cell::Null());
    if (!values_.Suivante(given_)) throw ArgumentInvalide();
    std::size_t column = 0;
    stored_[column++] = Cell::Of(row);
    for (std::size_t i = 0; i < given_.size(); ++i) {
      const int field = static_cast<int>(i);
      if (field == table_.ChampCle()) continue;
      stored_[column++] = Convertit(table_, field, given_[i], scratch_[i]);
    }
    cells = std::span(stored_).first(column);
    return true;
  }

 private:
  const TableState& table_;
  std::span<const RowPlace> places_;
  RowSource& values_;
  std::int64_t highest_;
  std::size_t next_ = 0;
  std::vector<Cell> given_;
  std::vector<std::string> scratch_;
  std::vector<Cell> stored_;
};

std::string SqlRetablissement(const TableState& table) {
  std::string names = table.CleSql();
  std::string cells = "c0";
  int column = 0;
  for (std::size_t i = 0; i < table.Definition().fields.size(); ++i) {
    const int field = static_cast<int>(i);
    if (field == table.ChampCle()) continue;
    const std::string cell = "c" + std::to_string(++column);
    const bool binary = StockageDe(table.Def(field).type) == Storage::Blob;
    names += ", " + table.ChampSql(field);
    cells += ", " + (binary ? "CAST(" + cell + " AS BLOB)" : cell);
  }
  return "INSERT INTO " + table.NomSql() + " (" + names + ") SELECT " + cells + " FROM " +
         SourceTable + "(?1)";
}

/// Hands on what a statement finds: the key, then all fields.
void Rend(Statement& rows, std::vector<Cell>& cells, const RowVisitor& visit) {
  while (rows.Avance()) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
      cells[i] = rows.Cellule(static_cast<int>(i) + 1);
    }
    visit(rows.Entier(0), cells);
  }
  rows.Rembobine();
}

}  // namespace

void TableRecordset::LitLignes(std::span<const Bookmark> rows, const RowVisitor& visit) {
  const KeyRuns chosen = EnSuites(ClesDe(*rows_, rows));
  const std::string sql = "SELECT " + table_->CleSql() + ", " + table_->TousLesChamps() + " FROM " +
                          table_->NomSql() + " WHERE ";
  std::vector<Cell> cells(Fields().size());
  Statement run = connection_->Prepare(sql + ConditionSurCles(table_->CleSql(), Rows::KeyRange));
  for (const auto& [first, last] : chosen.runs) {
    run.Lie(1, std::int64_t{first});
    run.Lie(2, std::int64_t{last});
    Rend(run, cells, visit);
  }
  if (chosen.scattered.empty()) return;
  Statement list = connection_->Prepare(sql + ConditionSurCles(table_->CleSql(), Rows::KeyList));
  KeySource source(chosen.scattered);
  list.LiePointeur(1, static_cast<SourceRows*>(&source), SourcePointer);
  Rend(list, cells, visit);
}

void TableRecordset::RetablitLignes(std::span<const RowPlace> places, RowSource& values) {
  ExigeEcriture();
  FinEdition();
  if (places.empty()) return;
  connection_->ArreteLecteurs();
  PointDeReprise point(*connection_);
  RestoredRows rows(*table_, places, values, connection_->DerniereCleDonnee(*table_));
  Statement insert = connection_->Prepare(SqlRetablissement(*table_));
  insert.LiePointeur(0, static_cast<SourceRows*>(&rows), SourcePointer);
  insert.Execute();
  if (rows.failure) std::rethrow_exception(rows.failure);
  point.Valide();
  ReprendLignes(places);
  OublieLigne();
}

// Lists that lost the rows have kept their slots; this one may have been made since.
void TableRecordset::ReprendLignes(std::span<const RowPlace> places) {
  std::vector<RowKey> keys;
  std::vector<RowList::Arrival> arrivals;
  keys.reserve(places.size());
  for (const RowPlace& place : places) {
    const auto key = static_cast<RowKey>(place.row);
    keys.push_back(key);
    if (place.position >= 0 && !rows_->Place(key)) arrivals.push_back({place.position, key});
  }
  table_->NoteRetablissement(keys);
  rows_->Intercale(std::move(arrivals));
}

}  // namespace talpena::sqlite
