// What speaks against writing over a file, and what the user says to that.
#pragma once
#include <string>

#include "store/command_context.h"

namespace talpena {

/// A save of this file would ask: only part of it could be read, another program changed it since,
/// or this user may not write into it.
bool FautDemander(CommandContext c, const std::string& path);

/// Asks all that. False when the user does not want the file replaced. Where its contents would be
/// lost by that, a copy of it stays beside it under a name with date and time, which he is told; a
/// copy that cannot be made is thrown.
bool PeutEcraser(CommandContext c, const std::string& path);

}  // namespace talpena
