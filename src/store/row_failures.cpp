#include "store/row_failures.h"

#include "common/error_words.h"
#include "common/msg_id.h"
#include "common/msg_id_errors.h"
#include "common/numbers.h"

namespace talpena {

TalpenaError RangeeSansValeur(std::int64_t row, std::string_view column) {
  const std::string name(column);
  return {ErrorNumber::InvalidNull,
          "Invalid use of Null: row " + Str(row) + " has no " + name,
          {.text = MsgId::LigneSansValeur, .about = {Str(row), name}}};
}

TalpenaError RangeeHorsPage(std::int64_t row, std::string_view column,
                            const std::string& characters) {
  const std::string place = Str(row) + ", " + std::string(column);
  return {ErrorNumber::NotInCodePage,
          "Row " + place + ": not in code page 1252: " + characters,
          {.text = MsgId::CaractereAbsent, .about = {place, characters}}};
}

TalpenaError EchecDeRangee(std::int16_t langue, const TalpenaError& failure, std::int64_t row,
                           std::string_view column) {
  const std::string name(column);
  return {
      failure.number(),
      "Row " + Str(row) + ", " + name + ": " + failure.description(),
      {.text = MsgId::LigneFautive, .about = {Str(row), name, DescriptionErreur(langue, failure)}}};
}

}  // namespace talpena
