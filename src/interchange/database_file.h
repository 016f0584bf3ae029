// A table of another program's, written beside its place and put there.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "common/talpena_error.h"
#include "interchange/database_rows.h"
#include "interchange/database_targets.h"
#include "store/command_context.h"

namespace talpena {

/// Makes the table and gives it the rows, which begin at the first, in a folder beside the place;
/// then the files take their places, and those of `former` go. Everything is closed behind it.
/// Another file in the place is TableExists (3010) or, where the database is a file, FileExists
/// (58), one that another program uses FileInUse (3045), and nothing is touched.
///
/// A failure before there is a table or a row, a user who gives up (Cancelled), and a disk that
/// fails where there are files of `former` are thrown on and leave everything as it was. Any other
/// ends the table behind the rows until then, and is given back.
/// @param former  as FichiersRemplaces has them
std::optional<TalpenaError> EcritBase(CommandContext c, const DatabaseTarget& target,
                                      const DatabasePlace& place,
                                      const std::vector<std::string>& former, DatabaseRows& rows);

}  // namespace talpena
