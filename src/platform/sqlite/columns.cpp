#include "platform/sqlite/columns.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <limits>

#include "common/numbers.h"
#include "common/text.h"
#include "platform/sqlite/errors.h"

namespace talpena::sqlite {
namespace {

struct NumberRange {
  std::int64_t low;
  std::int64_t high;
};

NumberRange BornesDe(FieldType type) {
  switch (type) {
    case FieldType::Byte:
      return {0, 255};
    case FieldType::Integer:
      return {std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max()};
    default:
      return {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()};
  }
}

double NombreDe(const Cell& cell) {
  double value = 0;
  if (cell.kind == Cell::Kind::Text) {
    if (!EstNumerique(cell.text)) throw ConversionImpossible();
    value = cell.text.find(',') == std::string_view::npos ? Val(cell.text)
                                                          : Val(Remplace(cell.text, ",", "."));
  } else {
    value = cell.Nombre();
  }
  if (std::isnan(value)) throw ConversionImpossible();
  if (std::isinf(value)) throw Debordement();
  return value;
}

Cell Entier(FieldType type, const Cell& cell) {
  const std::int64_t value =
      cell.kind == Cell::Kind::Integer ? cell.integer : std::int64_t{Arrondi32(NombreDe(cell))};
  const auto [low, high] = BornesDe(type);
  if (value < low || value > high) throw Debordement();
  return Cell::Of(value);
}

Cell Monnaie(double value) {
  constexpr double limit = 922337203685477.5807;
  if (std::abs(value) > limit) throw Debordement();
  return Cell::Of(std::nearbyint(value * 10000) / 10000);
}

Cell Jour(const Cell& cell) {
  double days = 0;
  if (cell.kind == Cell::Kind::Text && LitDate(cell.text, days)) return Cell::Of(days);
  return Cell::Of(NombreDe(cell));
}

Cell Texte(const TableState& table, const FieldDef& field, const Cell& cell, std::string& scratch,
           Check check) {
  std::string_view text = cell.text;
  if (cell.kind != Cell::Kind::Text) {
    scratch = cell.Texte();
    text = scratch;
  }
  if (check == Check::Foreign) return Cell::Of(text);
  if (text.empty() && !field.allowZeroLength) throw VideRefuse(table.Nom(), field.name);
  // A text has no more characters than bytes, so most need no counting.
  const auto size = static_cast<std::size_t>(field.size);
  if (field.type == FieldType::Text && text.size() > size && CompteCaracteres(text) > size) {
    throw TropLong();
  }
  return Cell::Of(text);
}

bool Chiffres(std::string_view text, std::size_t from, std::size_t count, int& value) {
  if (from + count > text.size()) return false;
  const char* start = text.data() + from;
  const auto [end, error] = std::from_chars(start, start + count, value);
  return error == std::errc{} && end == start + count && value >= 0;
}

}  // namespace

Cell Convertit(const TableState& table, int field, const Cell& cell, std::string& scratch,
               Check check) {
  const FieldDef& def = table.Def(field);
  if (cell.EstNull()) {
    if (def.required && !def.autoIncrement && check == Check::Strict) {
      throw NullRefuse(table.Nom(), def.name);
    }
    return cell;
  }
  switch (def.type) {
    case FieldType::Boolean:
      return Cell::Of(std::int64_t{NombreDe(cell) != 0 ? -1 : 0});
    case FieldType::Byte:
    case FieldType::Integer:
    case FieldType::Long:
      return Entier(def.type, cell);
    case FieldType::Currency:
      return Monnaie(NombreDe(cell));
    case FieldType::Single:
      return Cell::Of(static_cast<double>(EnSimple(NombreDe(cell))));
    case FieldType::Double:
      return Cell::Of(NombreDe(cell));
    case FieldType::Date:
      return Jour(cell);
    case FieldType::Text:
    case FieldType::Memo:
      return Texte(table, def, cell, scratch, check);
    case FieldType::Binary:
      if (cell.kind != Cell::Kind::Text) throw ConversionImpossible();
      return cell;
  }
  throw ConversionImpossible();
}

bool JoursDe(int year, int month, int day, double& days) {
  using namespace std::chrono;
  const year_month_day date{std::chrono::year(year),
                            std::chrono::month(static_cast<unsigned>(month)),
                            std::chrono::day(static_cast<unsigned>(day))};
  if (!date.ok()) return false;
  constexpr sys_days epoch{std::chrono::year(1899) / 12 / 30};
  days = static_cast<double>((sys_days(date) - epoch).count());
  return true;
}

CalendarDay JourDe(double days) {
  using namespace std::chrono;
  constexpr sys_days epoch{std::chrono::year(1899) / 12 / 30};
  const double clamped =
      std::fmin(std::fmax(std::floor(days), -657434), 2958465);  // years 100-9999
  const year_month_day date{epoch + std::chrono::days(static_cast<int>(clamped))};
  return {int(date.year()), static_cast<int>(unsigned(date.month())),
          static_cast<int>(unsigned(date.day()))};
}

bool LitDate(std::string_view text, double& days) {
  int year = 0;
  int month = 0;
  int day = 0;
  const std::string_view date = Rogne(text);
  if (date.size() < 10 || (date[4] != '-' && date[4] != '/') || date[7] != date[4]) return false;
  if (!Chiffres(date, 0, 4, year) || !Chiffres(date, 5, 2, month) || !Chiffres(date, 8, 2, day) ||
      !JoursDe(year, month, day, days)) {
    return false;
  }
  if (date.size() == 10) return true;
  int hours = 0;
  int minutes = 0;
  int seconds = 0;
  const bool time = (date.size() == 19 || date.size() == 16) && date[10] == ' ' &&
                    date[13] == ':' && Chiffres(date, 11, 2, hours) &&
                    Chiffres(date, 14, 2, minutes) &&
                    (date.size() == 16 || (date[16] == ':' && Chiffres(date, 17, 2, seconds)));
  if (!time || hours > 23 || minutes > 59 || seconds > 59) return false;
  const double fraction = (hours * 3600 + minutes * 60 + seconds) / 86400.0;
  days += days < 0 ? -fraction : fraction;
  return true;
}

}  // namespace talpena::sqlite
