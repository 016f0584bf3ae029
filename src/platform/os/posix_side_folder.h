// A folder beside a place, in which files wait until they take their places together.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "platform/files.h"

namespace talpena {

/// As FileSystem::CreeDossierACote says. Locked while it lives, so that other programs leave it
/// alone.
std::unique_ptr<SideFolder> CreeDossierPosix(const std::string& path);

/// Removes such a folder that a killed program left before any file was moved.
void SupprimeDossierAbandonne(const std::string& path);

/// As FileSystem::AcheveEchanges says of one folder.
void AcheveEchangesPosix(const std::string& folder, std::vector<PlacedFile>& placed);

}  // namespace talpena
