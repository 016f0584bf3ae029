#include "store/windows/grid_cells.h"

#include <limits>

#include "common/error_words.h"
#include "common/line_breaks.h"
#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/text.h"
#include "store/cell_text.h"
#include "store/edition.h"

namespace talpena {
namespace {

struct IntegerRange {
  std::int64_t low;
  std::int64_t high;
};

template <typename Stored>
constexpr IntegerRange RangeOf() {
  return {std::numeric_limits<Stored>::min(), std::numeric_limits<Stored>::max()};
}

/// What was typed or pasted as the column holds it: a memo has lines, all others are one.
std::string TexteEntre(const FieldDef& field, std::string_view typed) {
  return field.type == FieldType::Memo ? AvecSautsLf(typed) : SurUneLigne(typed);
}

bool EstEntiere(FieldType type) {
  return type == FieldType::Byte || type == FieldType::Integer || type == FieldType::Long;
}

IntegerRange Limites(FieldType type) {
  if (type == FieldType::Byte) return RangeOf<std::uint8_t>();
  return type == FieldType::Integer ? RangeOf<std::int16_t>() : RangeOf<std::int32_t>();
}

}  // namespace

bool EstColonneNumerique(const FieldDef& field) {
  switch (field.type) {
    case FieldType::Byte:
    case FieldType::Integer:
    case FieldType::Long:
    case FieldType::Currency:
    case FieldType::Single:
    case FieldType::Double:
      return true;
    default:
      return false;
  }
}

void EcritCellule(Document& document, Recordset& rows, std::int64_t position, int field,
                  std::string_view typed) {
  rows.SetAbsolutePosition(position);
  const FieldDef& def = rows.Fields().at(static_cast<std::size_t>(field));
  if (TexteDeCellule(def, rows.Get(field)) == typed) return;

  const bool number = EstColonneNumerique(def);
  const std::string entered = TexteEntre(def, typed);
  const std::string text = number ? Remplace(Rogne(entered), ",", ".") : entered;
  const bool null = text.empty() && (number || !def.allowZeroLength);

  Edition edition(document, "Edit cell");
  edition.ModifieLigne(rows, [&](Recordset& row) {
    row.Set(field, null ? Cell::Null() : Cell::Of(std::string_view(text)));
  });
  edition.Valide();
}

std::string RaisonDuRefus(std::int16_t langue, const FieldDef& field, const TalpenaError& refus) {
  switch (refus.number()) {
    case ErrorNumber::Overflow:
    case ErrorNumber::DataConversion:
    case ErrorNumber::TypeMismatch:
      if (EstEntiere(field.type)) {
        const IntegerRange range = Limites(field.type);
        const std::string text = Texte(langue, MsgId::EntierAttendu);
        return Remplace(Remplace(text, "%1", Str(range.low)), "%2", Str(range.high));
      }
      return Texte(langue, MsgId::NombreAttendu);
    case ErrorNumber::FieldTooSmall:
      return Remplace(Texte(langue, MsgId::TexteTropLong), "%1", Str(std::int64_t{field.size}));
    case ErrorNumber::ZeroLength:
      return Texte(langue, MsgId::TexteVide);
    default:
      return DescriptionErreur(langue, refus);
  }
}

}  // namespace talpena
