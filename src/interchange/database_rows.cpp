#include "interchange/database_rows.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "common/error_words.h"
#include "common/msg_id.h"
#include "common/msg_id_errors.h"
#include "common/msg_id_export.h"
#include "common/numbers.h"
#include "common/text.h"
#include "store/row_failures.h"

namespace talpena {
namespace {

/// Rows between two looks at whether the user gave up: some tenths of a millisecond.
constexpr std::int64_t rowsPerBeat = 256;

constexpr std::array rowFailures{
    ErrorNumber::Overflow,       ErrorNumber::TypeMismatch,   ErrorNumber::InvalidNull,
    ErrorNumber::NotInCodePage,  ErrorNumber::RecordTooLarge, ErrorNumber::FieldTooSmall,
    ErrorNumber::NullNotAllowed, ErrorNumber::ZeroLength,     ErrorNumber::DataConversion};

bool EstTropLong(const FieldDef& field, std::string_view text) {
  return field.type == FieldType::Text &&
         CompteCaracteres(text) > static_cast<std::size_t>(field.size);
}

/// Words that name the row already.
bool EstSituee(const TalpenaError& failure) { return failure.words().text == MsgId::LigneFautive; }

}  // namespace

void DatabaseRows::Recommence(Progress avance) {
  avance_ = std::move(avance);
  given_ = 0;
  values_.assign(Colonnes().size(), {});
  rows_.MoveFirst();
  rows_.AnnonceParcours({});
}

bool DatabaseRows::Suivante(std::span<Cell> values) {
  if (given_ > 0) rows_.MoveNext();
  if (rows_.EOF_()) {
    avance_(total_);
    return false;
  }
  rows_.LitLigne(cells_);
  row_.Ligne(cells_, ++given_, values_);
  std::copy(values_.begin(), values_.end(), values.begin());
  if (given_ % rowsPerBeat == 0) avance_(given_);
  return true;
}

const ExportColumn* DatabaseRows::ColonneFautive(int number) {
  const std::vector<ExportColumn>& columns = Colonnes();
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const std::string_view text = values_[i].text;
    const bool tooLong =
        number == ErrorNumber::FieldTooSmall && EstTropLong(columns[i].field, text);
    const bool foreign = number == ErrorNumber::NotInCodePage && !Utf8VersCp1252(text);
    if (tooLong || foreign) return &columns[i];
  }
  return nullptr;
}

TalpenaError DatabaseRows::Situe(std::int16_t langue, const TalpenaError& failure) {
  if (!EstFauteDeRangee(failure) || EstSituee(failure)) return failure;
  if (const ExportColumn* column = ColonneFautive(failure.number())) {
    return EchecDeRangee(langue, failure, given_, column->field.name);
  }
  return {
      failure.number(),
      "Row " + Str(given_) + ": " + failure.description(),
      {.text = MsgId::RangeeFautive, .about = {Str(given_), DescriptionErreur(langue, failure)}}};
}

bool EstFauteDeRangee(const TalpenaError& failure) {
  return EstSituee(failure) ||
         std::find(rowFailures.begin(), rowFailures.end(), failure.number()) != rowFailures.end();
}

bool EstLimiteDuFormat(const TalpenaError& failure) {
  return failure.number() == ErrorNumber::SpreadsheetFull ||
         failure.words().text == MsgId::FichierAccessPlein;
}

}  // namespace talpena
