// Whose a file is.
#pragma once
#include <string>

namespace talpena {

/// As FileSystem::EstLibre says. What a link leads to is not looked at, and nothing waits.
bool EstLibrePosix(const std::string& path);

}  // namespace talpena
