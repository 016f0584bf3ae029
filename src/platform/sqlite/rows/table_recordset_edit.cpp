// TableRecordset: adding, changing, deleting rows; searching.
#include <algorithm>
#include <limits>

#include "platform/sqlite/columns.h"
#include "platform/sqlite/dialect/dialect.h"
#include "platform/sqlite/errors.h"
#include "platform/sqlite/rows/table_recordset.h"

namespace talpena::sqlite {

void TableRecordset::ViendraEdition(Editing editing) {
  FinEdition();
  editing_ = editing;
}

void TableRecordset::FinEdition() {
  if (editing_ == Editing::None) return;
  editing_ = Editing::None;
  std::fill(set_.begin(), set_.end(), false);
}

void TableRecordset::AddNew() {
  ExigeEcriture();
  ViendraEdition(Editing::Add);
}

void TableRecordset::Edit() {
  ExigeEcriture();
  editedKey_ = CleCourante();
  ViendraEdition(Editing::Edit);
}

void TableRecordset::Set(int field, Cell value) {
  ExigeChamp(field);
  ExigeEcriture();
  if (editing_ == Editing::None) throw SansEdition();
  if (table_->Def(field).autoIncrement) throw ChampFige();
  std::string scratch;
  const auto index = static_cast<std::size_t>(field);
  values_[index] = Convertit(*table_, field, value, scratch).Garde();
  set_[index] = true;
}

void TableRecordset::Update() {
  ExigeEcriture();
  if (editing_ == Editing::None) throw SansEdition();
  if (editing_ == Editing::Add) {
    Insere();
  } else {
    Modifie();
  }
  FinEdition();
}

void TableRecordset::CancelUpdate() {
  if (editing_ == Editing::None) throw SansEdition();
  FinEdition();
}

// The statement of the row before serves again when it sets the same fields.
void TableRecordset::ExecuteModification(const std::string& sql, RowKey key) {
  if (sql != changeSql_) {
    change_ = connection_->Prepare(sql);
    changeSql_ = sql;
  }
  int parameter = 0;
  for (std::size_t i = 0; i < set_.size(); ++i) {
    if (!set_[i]) continue;
    const bool binary = Fields()[i].type == FieldType::Binary;
    change_.Lie(parameter++, Cell::Vue(values_[i]), binary);
  }
  if (editing_ == Editing::Edit) change_.Lie(parameter, std::int64_t{key});
  change_.Execute();
}

void TableRecordset::Insere() {
  std::string names;
  std::string marks;
  for (std::size_t i = 0; i < set_.size(); ++i) {
    const FieldDef& field = Fields()[i];
    if (!set_[i]) {
      if (field.required && !field.autoIncrement) throw NullRefuse(table_->Nom(), field.name);
      continue;
    }
    names += (names.empty() ? "" : ",") + EntreGuillemets(field.name);
    marks += marks.empty() ? "?" : ",?";
  }
  ExecuteModification("INSERT INTO " + table_->NomSql() +
                          (names.empty() ? std::string(" DEFAULT VALUES")
                                         : " (" + names + ") VALUES (" + marks + ")"),
                      0);
  const std::int64_t key = connection_->DerniereCle();
  if (key > std::numeric_limits<RowKey>::max()) {
    connection_->Execute("DELETE FROM " + table_->NomSql() + " WHERE " + table_->CleSql() + " = " +
                         std::to_string(key));
    throw Debordement();
  }
  table_->NoteChangement();
  table_->NoteCle(key);
  lastAdded_ = static_cast<RowKey>(key);
  rows_->Ajoute(*lastAdded_);
}

void TableRecordset::Modifie() {
  if (!rows_->Vivant(slot_)) throw LigneSupprimee();
  std::string assignments;
  for (std::size_t i = 0; i < set_.size(); ++i) {
    if (set_[i])
      assignments += (assignments.empty() ? "" : ",") + EntreGuillemets(Fields()[i].name) + "=?";
  }
  if (assignments.empty()) return;
  ExecuteModification(
      "UPDATE " + table_->NomSql() + " SET " + assignments + " WHERE " + table_->CleSql() + "=?",
      editedKey_);
  table_->NoteChangement();
  if (connection_->LignesChangees() == 0) throw LigneSupprimee();
}

Bookmark TableRecordset::LastModified() const {
  if (!lastAdded_) throw PasDeLigne();
  return *lastAdded_;
}

void TableRecordset::Delete() {
  ExigeEcriture();
  FinEdition();
  const RowKey key = CleCourante();
  const std::string sql = "DELETE FROM " + table_->NomSql() + " WHERE " + table_->CleSql() + "=?";
  if (sql != changeSql_) {
    change_ = connection_->Prepare(sql);
    changeSql_ = sql;
  }
  change_.Lie(0, std::int64_t{key});
  change_.Execute();
  table_->NoteSuppression(key);
  OublieLigne();
}

bool TableRecordset::FindFirst(std::string_view condition) {
  const auto slot = Cherche(condition, 0);
  if (slot) VaA(slot, place_);
  return slot.has_value();
}

bool TableRecordset::FindNext(std::string_view condition) {
  const std::size_t from = place_ == Place::Before  ? 0
                           : place_ == Place::After ? rows_->Slots()
                                                    : slot_ + 1;
  const auto slot = Cherche(condition, from);
  if (slot) VaA(slot, place_);
  return slot.has_value();
}

std::optional<std::size_t> TableRecordset::Cherche(std::string_view condition, std::size_t from) {
  const std::string sql = TraduitCondition(condition, *table_);
  const auto first = rows_->Suivant(from);
  return rows_->Croissant() ? first ? ChercheEnSuite(sql, *first) : first
                            : ChercheDansListe(sql, from);
}

// The list follows the table: the first row found from here on is the answer.
std::optional<std::size_t> TableRecordset::ChercheEnSuite(const std::string& sql,
                                                          std::size_t from) {
  Statement rows = connection_->Prepare("SELECT " + table_->CleSql() + " FROM " + table_->NomSql() +
                                            " WHERE " + table_->CleSql() + " >= ?1 AND (" + sql +
                                            ") ORDER BY " + table_->CleSql(),
                                        Access::Read);
  rows.Lie(0, std::int64_t{rows_->Cle(from)});
  while (rows.Avance()) {
    const auto slot = rows_->Place(static_cast<RowKey>(rows.Entier(0)));
    if (slot && rows_->Vivant(*slot)) return slot;
  }
  return std::nullopt;
}

// Any row of the table may be the next one of the list: all that match are kept, for the
// searches that go on from here.
std::optional<std::size_t> TableRecordset::ChercheDansListe(const std::string& sql,
                                                            std::size_t from) {
  if (!found_ || found_->condition != sql || found_->version != table_->Version()) {
    Found found{sql, table_->Version(), {}};
    Statement rows = connection_->Prepare(
        "SELECT " + table_->CleSql() + " FROM " + table_->NomSql() + " WHERE " + sql, Access::Read);
    while (rows.Avance()) {
      const auto slot = rows_->Place(static_cast<RowKey>(rows.Entier(0)));
      if (slot && rows_->Vivant(*slot)) found.slots.push_back(static_cast<std::uint32_t>(*slot));
    }
    std::sort(found.slots.begin(), found.slots.end());
    found_ = std::move(found);
  }
  const auto& slots = found_->slots;
  const auto next = std::lower_bound(slots.begin(), slots.end(), from);
  if (next == slots.end()) return std::nullopt;
  return *next;
}

}  // namespace talpena::sqlite
