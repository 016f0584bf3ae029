#include "platform/sqlite/rows/row_update.h"

#include <algorithm>
#include <array>

#include "platform/sqlite/columns.h"
#include "platform/sqlite/dialect/function_call.h"

namespace talpena::sqlite {
namespace {

/// Arguments of tlp_change before the fields that the pass reads.
constexpr int LeadingArguments = 4;

// (pass, place of the written field, key, value now, fields read ...)
void NouvelleValeur(FunctionCall& call) {
  auto* update = static_cast<RowUpdate*>(sqlite3_value_pointer(call.Valeur(0), UpdatePointer));
  if (update == nullptr) return call.RendNull();
  const std::int64_t row = call.Entier(2);
  if (!update->Connait(row)) {
    std::array<Cell, 12> given;  // as many as a distribution has fields
    const auto count = static_cast<std::size_t>(call.Nombre() - LeadingArguments);
    std::vector<Cell> more;
    std::span<Cell> cells(given.data(), std::min(count, given.size()));
    if (count > given.size()) {
      more.resize(count);
      cells = more;
    }
    for (std::size_t i = 0; i < count; ++i) {
      cells[i] = call.Cellule(LeadingArguments + static_cast<int>(i));
    }
    update->Demande(row, cells);
  }
  const Cell* value = update->Valeur(static_cast<std::size_t>(call.Entier(1)));
  if (value == nullptr) {
    sqlite3_result_value(call.Contexte(), call.Valeur(3));
  } else {
    call.Rend(*value);
  }
}

}  // namespace

void RowUpdate::Demande(std::int64_t row, std::span<const Cell> given) {
  row_ = row;
  known_ = true;
  modified_ = false;
  if (failure) return;
  ++seen_;
  try {
    Calcule(given);
  } catch (...) {
    modified_ = false;
    failure = std::current_exception();
  }
}

void RowUpdate::Calcule(std::span<const Cell> given) {
  std::fill(changed_.begin(), changed_.end(), Cell::Null());
  if (!change_.Modifie(row_, given, changed_)) return;
  for (std::size_t i = 0; i < changed_.size(); ++i) {
    stored_[i] = Convertit(table_, pass_.written[i], changed_[i], scratch_[i]);
  }
  modified_ = true;
  ++count_;
}

std::string SqlModification(const TableState& table, const RowPass& pass, Rows rows) {
  std::string given;
  for (const int field : pass.read) given += ", " + table.ChampSql(field);
  std::string assignments;
  for (std::size_t i = 0; i < pass.written.size(); ++i) {
    const std::string field = table.ChampSql(pass.written[i]);
    const bool binary = StockageDe(table.Def(pass.written[i]).type) == Storage::Blob;
    const std::string value =
        "tlp_change(?1, " + std::to_string(i) + ", " + table.CleSql() + ", " + field + given + ")";
    assignments +=
        (i == 0 ? "" : ", ") + field + " = " + (binary ? "CAST(" + value + " AS BLOB)" : value);
  }
  // OR FAIL keeps the rows before one that an index refuses.
  return "UPDATE OR FAIL " + table.NomSql() + " SET " + assignments + " WHERE " +
         ConditionSurCles(table.CleSql(), rows);
}

void EnregistreModification(Connection& connection) {
  Enregistre<NouvelleValeur>(connection, "tlp_change", -1);
}

}  // namespace talpena::sqlite
