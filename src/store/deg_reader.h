// Loads .deg files into the open distribution.
#pragma once
#include <string>

#include "platform/deg_lines.h"
#include "store/command_context.h"

namespace talpena {

/// How LitDeg treats the rows that are in the table.
enum class MergeMode { Replace = 0, Merge = 1 };

/// What became of a load.
enum class LoadOutcome {
  Loaded,
  Refused,    ///< the file is not there, or does not go with the open one: the rows are as before
  NotOpened,  ///< it could not be opened, or merged: the rows are as before
  Failed,     ///< the file or a row of it could not be read: the table holds the rows before it
};

/// Loads a .deg file of either form into the table and takes over its datum, free-field layout,
/// periods, title and comment. Failures are shown, not thrown. The file is opened before the rows
/// of the old one go. The caller sets NomFichier and calls ActiveMenus.
/// The user may give up reading the rows: those before stay, as behind a failure.
LoadOutcome LitDeg(CommandContext c, const std::string& fileName, MergeMode merge,
                   DegLines::LineEnd end = DegLines::LineEnd::Cr);

}  // namespace talpena
