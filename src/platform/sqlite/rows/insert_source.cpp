#include "platform/sqlite/rows/insert_source.h"

#include <algorithm>
#include <limits>

#include "platform/sqlite/errors.h"
#include "platform/sqlite/rows/row_list.h"

namespace talpena::sqlite {

bool InsertSource::Suivante(std::span<const Cell>& cells) {
  std::fill(given_.begin(), given_.end(), Cell::Null());
  if (!source_.Suivante(given_)) return false;
  if (count_ >= room_) throw Debordement();
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    stored_[i] = Convertit(table_, fields_[i], given_[i], scratch_[i], check_);
  }
  ++count_;
  cells = stored_;
  return true;
}

// One INSERT ... SELECT: cheaper than a statement a row. OR FAIL keeps the rows before a key that
// an index refuses.
std::int64_t InsereTout(Connection& connection, TableState& table, const std::vector<int>& fields,
                        RowSource& source, Check check) {
  std::string names;
  std::string cells;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const std::string cell = "c" + std::to_string(i);
    const bool binary = StockageDe(table.Def(fields[i]).type) == Storage::Blob;
    names += (i == 0 ? "" : ", ") + table.ChampSql(fields[i]);
    cells += (i == 0 ? "" : ", ") + (binary ? "CAST(" + cell + " AS BLOB)" : cell);
  }
  const std::int64_t given = connection.DerniereCleDonnee(table);
  InsertSource rows(table, fields, source, check, std::numeric_limits<RowKey>::max() - given);
  Statement insert = connection.Prepare("INSERT OR FAIL INTO " + table.NomSql() + " (" + names +
                                        ") SELECT " + cells + " FROM " + SourceTable + "(?1)");
  insert.LiePointeur(0, static_cast<SourceRows*>(&rows), SourcePointer);
  const auto note = [&] {
    table.NoteChangement();
    if (rows.Nombre() > 0) table.NoteCle(connection.DerniereCle());
  };
  try {
    insert.Execute();
  } catch (...) {
    note();
    throw;
  }
  note();
  if (rows.failure) std::rethrow_exception(rows.failure);
  return rows.Nombre();
}

}  // namespace talpena::sqlite
