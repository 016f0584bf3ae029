// Writes TALPENA as a .deg file of form 2.
#pragma once
#include <string>

#include "store/command_context.h"

namespace talpena {

/// Row for row, or rows of one period and point as one line.
enum class WriteMode { Rows, Grouped };

/// Writes the rows of the data control. An empty table writes nothing and leaves the file
/// alone. On success FichierModifie is false. Failures are shown, not thrown: after each the
/// user is asked whether to go on behind it.
///
/// The file is written beside its place. When the user does not go on, what was written till then
/// takes the place of the file; a whole former state there is kept as .BAK first, and
/// FichierModifie stays true.
///
/// @param modele  a file whose mode and owner a new file takes, when that exists
void EcritDeg(CommandContext c, const std::string& fileName, WriteMode mode,
              const std::string& modele = {});

}  // namespace talpena
