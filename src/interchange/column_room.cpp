#include "interchange/column_room.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "common/msg_id_errors.h"
#include "common/msg_id_import.h"
#include "common/numbers.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coords/tokens.h"
#include "store/table.h"

namespace talpena {
namespace {

constexpr std::size_t charactersQuoted = 60;  ///< characters of a text that a message quotes

void Refuse(const std::optional<std::string>& text, std::size_t width, const char* column,
            int words, std::int64_t line) {
  if (!text || text->size() <= width || CompteCaracteres(*text) <= width) return;
  const std::string begin(PremiersCaracteres(*text, charactersQuoted));
  const bool blanks = CompteCaracteres(Rogne(*text)) <= width;
  throw TalpenaError(ErrorNumber::FieldTooSmall, std::string(column) + ": " + begin,
                     {.text = blanks ? MsgId::ImportBlancsComptent : words, .about = {begin}})
      .SurLigne(line);
}

/// The latitude of degrees has room for two figures. Whole numbers look more like decimal commas.
int TexteOriginalTropLong(const std::string& original) {
  std::string_view latitude, longitude;
  DecoupeDeux(original, latitude, longitude);
  const double phi = Val(latitude), lambda = Val(longitude);
  const bool degrees = original.starts_with("deg ") || original.starts_with("dms ");
  const bool whole = phi == std::trunc(phi) && lambda == std::trunc(lambda);
  const bool exchanged =
      degrees && !whole && std::abs(phi) > 90 && std::abs(phi) <= 180 && std::abs(lambda) <= 90;
  return exchanged ? MsgId::ImportEchangees : MsgId::ImportOriginalTropLong;
}

}  // namespace

void RefuseTropLong(const ImportRecord& record) {
  if (record.dropped != 0) return;
  Refuse(record.row.original, Column::LargeurOriginal, "ORIGINAL",
         TexteOriginalTropLong(record.row.original.value_or("")), record.line);
  Refuse(record.row.date, Column::LargeurDate, "DATE", MsgId::ImportDateTropLongue, record.line);
}

bool TientEnLigne(const ImportedRow& row) {
  const auto fits = [](std::int32_t number, std::int32_t most) {
    return number >= 0 && number <= most;
  };
  return fits(row.period, 9) && fits(row.n1.value_or(0), 99999) && fits(row.n2.value_or(0), 99999);
}

}  // namespace talpena
