#include "interchange/column_room.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "common/msg_id_errors.h"
#include "common/talpena_error.h"
#include "common/text.h"
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

}  // namespace

void RefuseTropLong(const ImportRecord& record) {
  if (record.dropped != 0) return;
  Refuse(record.row.original, Column::LargeurOriginal, "ORIGINAL", MsgId::ImportOriginalTropLong,
         record.line);
  Refuse(record.row.date, Column::LargeurDate, "DATE", MsgId::ImportDateTropLongue, record.line);
}

bool TientEnLigne(const ImportedRow& row) {
  const auto fits = [](std::int32_t number, std::int32_t most) {
    return number >= 0 && number <= most;
  };
  return fits(row.period, 9) && fits(row.n1.value_or(0), 99999) && fits(row.n2.value_or(0), 99999);
}

}  // namespace talpena
