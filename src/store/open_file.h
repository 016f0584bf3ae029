// A .deg file in place of the open one.
#pragma once
#include <string>

#include "store/command_context.h"

namespace talpena {

/// Where the path of a file that is to be opened comes from.
enum class PathFrom {
  User,        ///< a dialog, the command line
  RecentFiles  ///< the list, which may drop the entry when the file is gone
};

/// Opens a file, which becomes NomFichier; ActiveMenus follows whatever becomes of it. Where it
/// cannot be opened the rows on show stay, and with them the name of their file and the title of
/// the window. A file that is gone is offered as its .BAK or a left-over holds it: the rows are
/// then unsaved rows of that file.
void OuvreDeg(CommandContext c, const std::string& path, PathFrom from = PathFrom::User);

}  // namespace talpena
