#include "store/sort.h"

#include <array>

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
  state.Data1.ChangeSource(sql);
  state.SqlCourant = sql;
}

std::optional<OrdreDeTri> OrdreDe(std::string_view source) {
  if (source.find(" ORDER BY ") == std::string_view::npos) return OrdreDeTri{};
  for (std::size_t i = 0; i < orders.size(); ++i) {
    if (!source.starts_with(orders[i])) continue;
    const std::string_view behind = source.substr(orders[i].size());
    if (behind.empty() || behind == " ASC") return OrdreDeTri{static_cast<int>(i), false};
    if (behind == " DESC") return OrdreDeTri{static_cast<int>(i), true};
  }
  return std::nullopt;
}

}  // namespace talpena
