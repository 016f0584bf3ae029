// Captions of the files opened last, as their menu entries bear them.
#pragma once
#include <string>
#include <string_view>

#include "platform/settings_state.h"

namespace talpena {

/// Takes a path out of LastFiles, compared as MajLastFiles does; the entries behind it move up.
void RetireDernierFichier(SettingsState& settings, const std::string& path);

/// Caption of an entry of LastFiles: "&", its number from 1, " ", the path.
std::string LegendeDernierFichier(int index, std::string_view path);

/// The path of a caption: from its fourth character on, trimmed.
std::string CheminDeLegende(std::string_view caption);

}  // namespace talpena
