#include "platform/sqlite/dialect/functions.h"

#include <memory>

#include "common/numbers.h"
#include "platform/sqlite/columns.h"
#include "platform/sqlite/dialect/function_call.h"
#include "platform/sqlite/dialect/like_pattern.h"

namespace talpena::sqlite {
namespace {

// A pattern is the same for all rows as a rule: SQLite keeps the compiled one for us.
void Like(FunctionCall& call) {
  if (call.UnNull()) return call.RendNull();
  auto* pattern = static_cast<LikePattern*>(sqlite3_get_auxdata(call.Contexte(), 0));
  std::unique_ptr<LikePattern> fresh;
  if (pattern == nullptr) {
    fresh = std::make_unique<LikePattern>(call.Texte(0), call.Base().Ordre());
    pattern = fresh.get();
  }
  const auto travaille = [&call](std::size_t steps) { call.Base().Travaille(steps); };
  call.Rend(std::int64_t{pattern->Correspond(call.Texte(1), travaille) ? 1 : 0});
  if (fresh) {
    sqlite3_set_auxdata(call.Contexte(), 0, fresh.release(),
                        [](void* kept) { delete static_cast<LikePattern*>(kept); });
  }
}

void Texte(FunctionCall& call) {
  const Cell cell = call.Cellule(0);
  if (cell.EstNull()) return call.RendNull();
  call.Rend(std::string_view(cell.Texte()));
}

void TexteSimple(FunctionCall& call) {
  if (call.EstNull(0)) return call.RendNull();
  if (call.EstTexte(0)) return call.Rend(call.Texte(0));
  call.Rend(std::string_view(Str(static_cast<float>(call.Reel(0)))));
}

std::string DeuxChiffres(int value) { return (value < 10 ? "0" : "") + std::to_string(value); }

// The form in which distributions hold their dates.
void TexteDate(FunctionCall& call) {
  if (call.EstNull(0)) return call.RendNull();
  const CalendarDay day = JourDe(call.Reel(0));
  std::string year = std::to_string(day.year);
  year.insert(0, year.size() < 4 ? 4 - year.size() : 0, '0');
  call.Rend(std::string_view(year + "/" + DeuxChiffres(day.month) + "/" + DeuxChiffres(day.day)));
}

// What a cell holds on its way into a column: (value, table's number, field).
void Range(FunctionCall& call) {
  const auto& table = *call.Base().Tables()[static_cast<std::size_t>(call.Entier(1))];
  const auto field = static_cast<int>(call.Entier(2));
  std::string scratch;
  call.Rend(Convertit(table, field, call.Cellule(0), scratch));
}

}  // namespace

void EnregistreFonctions(Connection& connection) {
  Enregistre<Like, Travail::Soi>(connection, "tlp_like", 2);
  Enregistre<Texte>(connection, "tlp_text", 1);
  Enregistre<TexteSimple>(connection, "tlp_textsingle", 1);
  Enregistre<TexteDate>(connection, "tlp_textdate", 1);
  Enregistre<Range>(connection, "tlp_store", 3);
  EnregistreFonctionsTexte(connection);
  EnregistreFonctionsNombre(connection);
  EnregistreFormat(connection);
  EnregistreAgregats(connection);
}

}  // namespace talpena::sqlite
