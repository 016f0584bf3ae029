// One call of a function of ours: its arguments and its result, in C++.
#pragma once
#include <sqlite3.h>

#include <cstdint>
#include <string_view>

#include "platform/sqlite/connection.h"
#include "platform/value.h"

namespace talpena::sqlite {

class FunctionCall {
 public:
  FunctionCall(sqlite3_context* context, int count, sqlite3_value** values)
      : context_(context), count_(count), values_(values) {}

  Connection& Base() const { return *static_cast<Connection*>(sqlite3_user_data(context_)); }
  int Nombre() const { return count_; }
  bool EstNull(int i) const { return sqlite3_value_type(values_[i]) == SQLITE_NULL; }
  bool EstTexte(int i) const { return sqlite3_value_type(values_[i]) == SQLITE_TEXT; }
  bool UnNull() const;  ///< any argument is Null
  double Reel(int i) const { return sqlite3_value_double(values_[i]); }
  std::int64_t Entier(int i) const { return sqlite3_value_int64(values_[i]); }
  std::string_view Texte(int i) const;
  Cell Cellule(int i) const;
  sqlite3_value* Valeur(int i) const { return values_[i]; }
  sqlite3_context* Contexte() const { return context_; }

  /// Characters of all texts, more or less: what most functions have to go through.
  std::size_t Longueur() const {
    std::size_t bytes = 0;
    for (int i = 0; i < count_; ++i) {
      if (EstTexte(i)) bytes += static_cast<std::size_t>(sqlite3_value_bytes(values_[i]));
    }
    return bytes;
  }

  void RendNull() { sqlite3_result_null(context_); }
  void Rend(std::int64_t value) { sqlite3_result_int64(context_, value); }
  void Rend(double value);  ///< not a number and infinite: as Echoue
  void Rend(std::string_view text);
  void Rend(const Cell& cell);
  /// A value that does not exist: in a condition Null, so that the row does not match; in a
  /// statement that changes rows a failure with this number.
  void Echoue(const TalpenaError& error);

 private:
  sqlite3_context* context_;
  int count_;
  sqlite3_value** values_;
};

using Function = void (*)(FunctionCall&);

/// How the work of a function is told of (Connection::Travaille).
enum class Travail : std::uint8_t {
  SelonTextes,  ///< as many steps as its texts are long
  Soi,          ///< the function tells of its steps itself, where they become many
};

/// Makes a function known to SQLite under `name`. No exception leaves its body. `place`: whether
/// it is for statements alone, or may stand in an index too.
template <Function body, Travail travail = Travail::SelonTextes, int place = SQLITE_DIRECTONLY>
void Enregistre(Connection& connection, const char* name, int argumentCount) {
  const auto wrapper = [](sqlite3_context* context, int count, sqlite3_value** values) {
    FunctionCall call(context, count, values);
    try {
      if constexpr (travail == Travail::SelonTextes) call.Base().Travaille(call.Longueur());
      body(call);
    } catch (const TalpenaError& error) {
      call.Base().LaisseErreur(error);
      sqlite3_result_error(context, error.what(), -1);
    } catch (...) {
      sqlite3_result_error_nomem(context);
    }
  };
  const int rc = sqlite3_create_function_v2(connection.Poignee(), name, argumentCount,
                                            SQLITE_UTF8 | SQLITE_DETERMINISTIC | place, &connection,
                                            wrapper, nullptr, nullptr, nullptr);
  if (rc != SQLITE_OK) connection.Echoue(rc);
}

}  // namespace talpena::sqlite
