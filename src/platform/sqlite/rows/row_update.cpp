#include "platform/sqlite/rows/row_update.h"

#include <algorithm>

#include "platform/sqlite/columns.h"
#include "platform/sqlite/dialect/function_call.h"
#include "platform/sqlite/errors.h"

namespace talpena::sqlite {
namespace {

/// Arguments of tlp_change that all calls have.
constexpr int LeadingArguments = 3;

/// The last arguments of a call.
void LitDonnees(FunctionCall& call, std::span<Cell> given) {
  const int first = call.Nombre() - static_cast<int>(given.size());
  std::size_t characters = 0;
  for (std::size_t i = 0; i < given.size(); ++i) {
    given[i] = call.Cellule(first + static_cast<int>(i));
    characters += given[i].text.size();
  }
  call.Base().Travaille(characters);
}

// (pass, place of the written field, key, value now where the pass does not know it, fields read
// where the row is asked first)
void NouvelleValeur(FunctionCall& call) {
  auto* update = static_cast<RowUpdate*>(sqlite3_value_pointer(call.Valeur(0), UpdatePointer));
  if (update == nullptr) return call.RendNull();
  const auto place = static_cast<std::size_t>(call.Entier(1));
  const std::int64_t row = call.Entier(2);
  if (!update->Connait(row)) {
    if (place != update->Premier()) throw ArgumentInvalide();
    LitDonnees(call, update->Donnees());
    update->Demande(row);
  }
  const Cell* value = update->Valeur(place);
  if (value == nullptr) {
    sqlite3_result_value(call.Contexte(), call.Valeur(LeadingArguments));
  } else {
    call.Rend(*value);
  }
}

/// SQLite works the new values of a row out in the order of the table's columns.
/// Held by RowPassTest.WritesItsFieldsInAnyOrder.
std::size_t PremierDemande(const RowPass& pass) {
  return static_cast<std::size_t>(std::min_element(pass.written.begin(), pass.written.end()) -
                                  pass.written.begin());
}

/// Where a number that is written stands among the fields read. A text does not last as long as
/// its row.
std::optional<std::size_t> PlaceLue(const TableState& table, const RowPass& pass, int field) {
  const Storage storage = StockageDe(table.Def(field).type);
  const auto at = std::find(pass.read.begin(), pass.read.end(), field);
  const bool number = storage == Storage::Integer || storage == Storage::Real;
  if (!number || at == pass.read.end()) return std::nullopt;
  return static_cast<std::size_t>(at - pass.read.begin());
}

}  // namespace

RowUpdate::RowUpdate(const TableState& table, const RowPass& pass, RowChange& change)
    : table_(table),
      pass_(pass),
      change_(change),
      first_(PremierDemande(pass)),
      given_(pass.read.size()),
      changed_(pass.written.size()),
      stored_(pass.written.size()),
      scratch_(pass.written.size()) {
  for (const int field : pass.written) own_.push_back(PlaceLue(table, pass, field));
}

void RowUpdate::Demande(std::int64_t row) {
  row_ = row;
  known_ = true;
  modified_ = false;
  if (failure) return;
  ++seen_;
  try {
    Calcule();
  } catch (...) {
    modified_ = false;
    failure = std::current_exception();
  }
}

const Cell* RowUpdate::Valeur(std::size_t place) const {
  if (modified_) return &stored_[place];
  return own_[place] ? &given_[*own_[place]] : nullptr;
}

void RowUpdate::Calcule() {
  std::fill(changed_.begin(), changed_.end(), Cell::Null());
  if (!change_.Modifie(row_, given_, changed_)) return;
  for (std::size_t i = 0; i < changed_.size(); ++i) {
    stored_[i] = Convertit(table_, pass_.written[i], changed_[i], scratch_[i]);
  }
  modified_ = true;
  ++count_;
}

std::string SqlModification(const TableState& table, const RowPass& pass, Rows rows) {
  std::string given;
  for (const int field : pass.read) given += ", " + table.ChampSql(field);
  const std::size_t first = PremierDemande(pass);
  std::string assignments;
  for (std::size_t i = 0; i < pass.written.size(); ++i) {
    const std::string field = table.ChampSql(pass.written[i]);
    const bool binary = StockageDe(table.Def(pass.written[i]).type) == Storage::Blob;
    const std::string now = PlaceLue(table, pass, pass.written[i]) ? "" : ", " + field;
    const std::string value = "tlp_change(?1, " + std::to_string(i) + ", " + table.CleSql() + now +
                              (i == first ? given : "") + ")";
    assignments +=
        (i == 0 ? "" : ", ") + field + " = " + (binary ? "CAST(" + value + " AS BLOB)" : value);
  }
  // OR FAIL keeps the rows before one that an index refuses.
  return "UPDATE OR FAIL " + table.NomSql() + " SET " + assignments + " WHERE " +
         ConditionSurCles(table.CleSql(), rows);
}

void EnregistreModification(Connection& connection) {
  Enregistre<NouvelleValeur, Travail::Soi>(connection, "tlp_change", -1);
}

}  // namespace talpena::sqlite
