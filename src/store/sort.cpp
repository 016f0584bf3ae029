#include "store/sort.h"

#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "common/talpena_error.h"

namespace talpena {
namespace {

// clang-format off
/// By the index of the sort list. Two blanks stand before most columns: saved and compared texts
/// carry them. Held by ChangeTriTest.TakesTheExactTexts.
constexpr std::array<std::string_view, 10> orders = {
    "SELECT * FROM TALPENA ORDER BY Counter",
    "SELECT * FROM TALPENA ORDER BY [PERIOD]",
    "SELECT * FROM TALPENA ORDER BY [LATITUDE]",
    "SELECT * FROM TALPENA ORDER BY  [LONGITUDE]",
    "SELECT * FROM TALPENA ORDER BY  [N1]",
    "SELECT * FROM TALPENA ORDER BY  [N2]",
    "SELECT * FROM TALPENA ORDER BY  [DATUM]",
    "SELECT * FROM TALPENA ORDER BY  [ORIGINAL]",
    "SELECT * FROM TALPENA ORDER BY  [DATE]",
    "SELECT * FROM TALPENA ORDER BY  [SEX]",
};
// clang-format on

/// Empty before the first row, behind the last, and on a row that another cursor deleted.
std::optional<Bookmark> LigneCourante(const Recordset& rows) {
  try {
    return rows.GetBookmark();
  } catch (const TalpenaError& e) {
    if (e.number() != ErrorNumber::NoCurrentRecord) throw;
    return std::nullopt;
  }
}

void RetourneALigne(DataControl& data, Bookmark row) {
  try {
    data.recordset().SetBookmark(row);
    data.SignalePosition();
  } catch (const TalpenaError& e) {
    if (e.number() != ErrorNumber::InvalidBookmark) throw;
  }
}

}  // namespace

void ChangeTri(StoreState& state, int index, bool descending) {
  if (index < 0 || index >= static_cast<int>(orders.size())) {
    throw TalpenaError(ErrorNumber::SubscriptOutOfRange, "Subscript out of range");
  }
  std::string sql(orders[static_cast<std::size_t>(index)]);
  sql += descending ? " DESC" : " ASC";
  if (!state.Data1.EstLie()) {
    state.SqlCourant = sql;
    return;
  }
  const std::optional<Bookmark> row = LigneCourante(state.Data1.recordset());
  const std::string before = std::exchange(state.Data1.RecordSource, sql);
  try {
    state.Data1.Refresh();
  } catch (...) {
    state.Data1.RecordSource = before;
    throw;
  }
  state.SqlCourant = sql;
  if (row) RetourneALigne(state.Data1, *row);
}

}  // namespace talpena
