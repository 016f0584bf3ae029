// Writes TALPENA as a .deg file of form 2.
#pragma once
#include <string>

#include "store/command_context.h"
#include "store/save_file.h"

namespace talpena {

/// Row for row, or rows of one period and point as one line.
enum class WriteMode { Rows, Grouped };

/// Writes the rows of the data control. An empty table writes nothing and leaves the file
/// alone. On success FichierModifie is false. Failures are shown, not thrown: after each the
/// user is asked whether to go on behind it.
///
/// The file is written beside its place. When the user does not go on, the whole lines that were
/// written till then take the place of the file; a whole former state there is kept as .BAK, and
/// FichierModifie stays true. Where no file can be made beside it nothing changes.
void EcritDeg(CommandContext c, const std::string& fileName, WriteMode mode,
              const SavePlan& plan = {});

}  // namespace talpena
