// A folder beside a place, in which files wait until they take their places together.
#pragma once
#include <memory>
#include <string>

#include "platform/files.h"

namespace talpena {

/// As FileSystem::CreeDossierACote says. Locked while it lives, so that other programs leave it
/// alone.
std::unique_ptr<SideFolder> CreeDossierPosix(const std::string& path);

/// Removes such a folder that a killed program left, unless it holds former files.
void SupprimeDossierAbandonne(const std::string& path);

}  // namespace talpena
