// Standard deviation and variance, which SQLite lacks.
#include <sqlite3.h>

#include <cmath>
#include <cstdint>
#include <new>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/dialect/functions.h"

namespace talpena::sqlite {
namespace {

/// Welford's running sums (Technometrics 4, 1962, p. 419): exact where sums of squares are not.
/// Wider than the values, so that the last digit of the result is right too.
struct Spread {
  std::int64_t count;
  long double mean;
  long double squares;  ///< of the distances to the mean
};

void Ajoute(sqlite3_context* context, int, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
  auto* spread = static_cast<Spread*>(sqlite3_aggregate_context(context, sizeof(Spread)));
  if (spread == nullptr) return sqlite3_result_error_nomem(context);
  const long double value = sqlite3_value_double(values[0]);
  const long double distance = value - spread->mean;
  ++spread->count;
  spread->mean += distance / static_cast<long double>(spread->count);
  spread->squares += distance * (value - spread->mean);
}

/// Null for fewer than `fewest` values; the divisor is the count less `less`.
template <int fewest, int less, bool root>
void Rend(sqlite3_context* context) {
  const auto* spread = static_cast<Spread*>(sqlite3_aggregate_context(context, 0));
  if (spread == nullptr || spread->count < fewest) return sqlite3_result_null(context);
  const long double variance = spread->squares / static_cast<long double>(spread->count - less);
  sqlite3_result_double(context, static_cast<double>(root ? std::sqrt(variance) : variance));
}

using Final = void (*)(sqlite3_context*);

void Declare(Connection& connection, const char* name, Final final) {
  const int rc = sqlite3_create_function_v2(connection.Poignee(), name, 1,
                                            SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY,
                                            nullptr, nullptr, Ajoute, final, nullptr);
  if (rc != SQLITE_OK) connection.Echoue(rc);
}

}  // namespace

void EnregistreAgregats(Connection& connection) {
  Declare(connection, "tlp_stdev", Rend<2, 1, true>);
  Declare(connection, "tlp_stdevp", Rend<1, 0, true>);
  Declare(connection, "tlp_var", Rend<2, 1, false>);
  Declare(connection, "tlp_varp", Rend<1, 0, false>);
}

}  // namespace talpena::sqlite
