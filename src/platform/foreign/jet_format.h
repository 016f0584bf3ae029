// Access files as one of the formats that the table engine knows.
#pragma once
#include <memory>

#include "platform/foreign/jet_limits.h"
#include "platform/foreign_format.h"

namespace talpena {

/// Access 97 to 2003. The file is opened once, for reading, and read in a process of its own:
/// a damaged file ends in UnrecognizedFormat (3343), from Ouvre or from the rows, whatever the
/// library makes of it, and never in fewer rows than the table counts. Nothing is printed.
///
/// Definitions of tables say what Rows gives: no field is required and every text may be empty,
/// since a file's own rules bind those who write it. Cells: Boolean -1 and 0; Currency and
/// decimals as real numbers; Date in days since 1899-12-30; texts and memos as UTF-8; replication
/// ids as text in braces; OLE and binary columns as bytes. Rows of a table that the file lacks
/// raise TableNotFound (3078). Linked tables are left out; of system tables and saved queries there
/// are the names, attributes and kinds. Nothing is written.
std::unique_ptr<ForeignFormat> CreeFormatJet(const LimitesJet& limits = {});

}  // namespace talpena
