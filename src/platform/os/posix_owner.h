// Whose a file is, and who uses it.
#pragma once
#include <string>

namespace talpena {

/// As FileSystem::EstLibre says. What a link leads to is not looked at, and nothing waits.
bool EstLibrePosix(const std::string& path);

/// As FileSystem::EstVerrouille says. Locks of this process's own on that file, of the kind that
/// closing any descriptor gives up, are gone behind it.
bool EstVerrouillePosix(const std::string& path);

}  // namespace talpena
