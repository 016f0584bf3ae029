// What a text typed into a cell of the grid means to the table; what a cell shows is in
// store/cell_text.h.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "common/talpena_error.h"
#include "platform/table_engine.h"
#include "store/document.h"

namespace talpena {

/// True for columns that are aligned as numbers.
bool EstColonneNumerique(const FieldDef& field);

/// Writes a typed text into a field of the row at `position`. Numbers take a comma as their point.
/// Line breaks become LF in a memo, blanks elsewhere. An empty text is Null where the column has no
/// empty text. The text that the cell shows already changes nothing.
/// @return whether the row was changed; a value that the column cannot hold is the engine's
///         TalpenaError, with the row as it was
void EcritCellule(Document& document, Recordset& rows, std::int64_t position, int field,
                  std::string_view typed);

/// Why the table refused a value, in the user's language.
std::string RaisonDuRefus(std::int16_t langue, const FieldDef& field, const TalpenaError& refus);

}  // namespace talpena
