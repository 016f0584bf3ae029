// Access files (Jet 4), written page by page.
#pragma once
#include <functional>
#include <memory>
#include <string>

#include "platform/foreign_format.h"

namespace talpena {

/// How a finished file is opened for reading.
using JetOpener = std::function<std::unique_ptr<ForeignDatabase>(const std::string& path)>;

/// A new database for tables to be made in. It is whole on the disk after each step: empty, with
/// an empty table, with its rows. Nothing but the page that fills is kept in memory, and rows that
/// find the disk full, or the file at the limit, leave those before them in a whole file.
///
/// Raises FileExists (58); InvalidArgument (3001) for other settings than the general order and
/// code page 1252. CreeTable raises InvalidName (3125) for a name that the format refuses,
/// TableExists (3010), NotSupported (3251) for an index, InvalidArgument (3001) without columns,
/// for two of one name or a text of no length. InsereLignes raises FieldTooSmall (3163),
/// RecordTooLarge (3047), DiskFull (61), InvalidArgument (3001) at the limit.
///
/// @param most  bytes that the file may have; never 2 GB or more
std::unique_ptr<ForeignDatabase> CreeBaseJet(const std::string& path, const NewDatabase& settings,
                                             std::size_t most, JetOpener opener);

/// True for a name that a table or a column of the format may have: 1 to 64 characters, no control
/// character, none of . ! ` [ ], no blank in front.
bool EstNomJet(std::string_view name);

}  // namespace talpena
