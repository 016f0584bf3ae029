// Whether the disc that the gazetteer lies on is there.
#pragma once
#include <string>

#include "platform/platform.h"
#include "platform/settings_state.h"

namespace talpena {

/// True when what holds the file can be read: its drive, or where a system has no drive letters its
/// folder. The current folder of the process stays.
bool LecteurPret(FileSystem& files, const std::string& path);

/// Asks for the disc, in French for the language 0 and else in English.
void DemandeLecteur(const SharedState& state, Platform& io, const std::string& path);

}  // namespace talpena
