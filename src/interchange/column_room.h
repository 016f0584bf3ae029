// What the columns of the table, or of a line of the file, have no room for.
#pragma once
#include "interchange/import_reader.h"

namespace talpena {

/// Ends an import, and the rehearsal of one, at a record that enters and whose ORIGINAL or DATE is
/// longer than its column: FieldTooSmall with line and text. Nothing for one that is dropped.
void RefuseTropLong(const ImportRecord& record);

/// Whether a line of a .deg file can hold the numbers of a row: one digit for the period, five
/// without a sign for the others. The table takes more.
bool TientEnLigne(const ImportedRow& row);

}  // namespace talpena
