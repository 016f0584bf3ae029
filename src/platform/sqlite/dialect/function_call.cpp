#include "platform/sqlite/dialect/function_call.h"

#include <cmath>

namespace talpena::sqlite {

bool FunctionCall::UnNull() const {
  for (int i = 0; i < count_; ++i) {
    if (EstNull(i)) return true;
  }
  return false;
}

std::string_view FunctionCall::Texte(int i) const {
  const auto* data = reinterpret_cast<const char*>(sqlite3_value_text(values_[i]));
  const int size = sqlite3_value_bytes(values_[i]);
  return data != nullptr ? std::string_view(data, static_cast<std::size_t>(size))
                         : std::string_view("");
}

Cell FunctionCall::Cellule(int i) const {
  switch (sqlite3_value_type(values_[i])) {
    case SQLITE_INTEGER:
      return Cell::Of(Entier(i));
    case SQLITE_FLOAT:
      return Cell::Of(Reel(i));
    case SQLITE_NULL:
      return Cell::Null();
    default:
      return Cell::Of(Texte(i));
  }
}

void FunctionCall::Rend(double value) {
  if (std::isnan(value)) return Echoue({ErrorNumber::InvalidCall, "Invalid procedure call"});
  if (std::isinf(value)) return Echoue(Debordement());
  sqlite3_result_double(context_, value);
}

void FunctionCall::Rend(std::string_view text) {
  sqlite3_result_text64(context_, text.empty() ? "" : text.data(), text.size(), SQLITE_TRANSIENT,
                        SQLITE_UTF8);
}

void FunctionCall::Rend(const Cell& cell) {
  switch (cell.kind) {
    case Cell::Kind::Null:
      return RendNull();
    case Cell::Kind::Integer:
      return Rend(cell.integer);
    case Cell::Kind::Real:
      return sqlite3_result_double(context_, cell.real);
    case Cell::Kind::Text:
      return Rend(cell.text);
  }
}

void FunctionCall::Echoue(const TalpenaError& error) {
  if (Base().Strict()) throw error;
  RendNull();
}

}  // namespace talpena::sqlite
