#include "store/cell_text.h"

#include "common/numbers.h"

namespace talpena {

std::string TexteDeCellule(const FieldDef& field, const Cell& cell) {
  if (field.type == FieldType::Single && cell.kind == Cell::Kind::Real) {
    return Str(static_cast<float>(cell.real));
  }
  return cell.Texte();
}

std::string TextePosition(DataControl& data) {
  if (!data.EstLie()) return {};
  Recordset& rows = data.recordset();
  return Str(rows.AbsolutePosition() + 1) + "/" + Str(rows.RecordCount());
}

}  // namespace talpena
