// Writes DATUM.MDB from the source tables.
#pragma once
#include <string>

#include "datum_source.h"
#include "platform/table_engine.h"

namespace talpena {

/// Makes an Access file with the tables Datum and ELLI, rows in the order of the sources, by an
/// engine that writes such files. The path must be free. Raises what the table engine raises, a
/// code above five characters included.
void EcritBaseDatums(TableEngine& engine, const CatalogueSource& source, const std::string& path);

}  // namespace talpena
