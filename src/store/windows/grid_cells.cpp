#include "store/windows/grid_cells.h"

#include <limits>

#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/text.h"

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

bool EstEntiere(FieldType type) {
  return type == FieldType::Byte || type == FieldType::Integer || type == FieldType::Long;
}

IntegerRange Limites(FieldType type) {
  if (type == FieldType::Byte) return RangeOf<std::uint8_t>();
  return type == FieldType::Integer ? RangeOf<std::int16_t>() : RangeOf<std::int32_t>();
}

/// Puts the row back as it was unless the change went through.
class OpenEdit {
 public:
  explicit OpenEdit(Recordset& rows) : rows_(&rows) { rows.Edit(); }
  OpenEdit(const OpenEdit&) = delete;
  OpenEdit& operator=(const OpenEdit&) = delete;
  ~OpenEdit() {
    if (rows_ == nullptr) return;
    try {
      rows_->CancelUpdate();
    } catch (const TalpenaError&) {  // the failure under way is the one to report
    }
  }
  void Valide() {
    rows_->Update();
    rows_ = nullptr;
  }

 private:
  Recordset* rows_;
};

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

std::string TexteDeCellule(const FieldDef& field, const Cell& cell) {
  if (field.type == FieldType::Single && cell.kind == Cell::Kind::Real) {
    return Str(static_cast<float>(cell.real));
  }
  return cell.Texte();
}

bool EcritCellule(Recordset& rows, std::int64_t position, int field, std::string_view typed) {
  rows.SetAbsolutePosition(position);
  const FieldDef& def = rows.Fields().at(static_cast<std::size_t>(field));
  if (TexteDeCellule(def, rows.Get(field)) == typed) return false;

  const bool number = EstColonneNumerique(def);
  const std::string text = number ? Remplace(Rogne(typed), ",", ".") : std::string(typed);
  const bool null = text.empty() && (number || !def.allowZeroLength);

  OpenEdit edit(rows);
  rows.Set(field, null ? Cell::Null() : Cell::Of(std::string_view(text)));
  edit.Valide();
  return true;
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
      return refus.description();
  }
}

std::string TextePosition(DataControl& data) {
  if (!data.EstLie()) return {};
  Recordset& rows = data.recordset();
  return Str(rows.AbsolutePosition() + 1) + "/" + Str(rows.RecordCount());
}

}  // namespace talpena
