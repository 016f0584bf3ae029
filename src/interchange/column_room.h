// Texts of a record that the columns of the table have no room for.
#pragma once
#include "interchange/import_reader.h"

namespace talpena {

/// Ends an import, and the rehearsal of one, at a record that enters and whose ORIGINAL or DATE is
/// longer than its column: FieldTooSmall with line and text. Nothing for one that is dropped.
void RefuseTropLong(const ImportRecord& record);

}  // namespace talpena
