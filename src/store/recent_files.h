// Captions of the files opened last, as their menu entries bear them.
#pragma once
#include <string>
#include <string_view>

namespace talpena {

/// Caption of an entry of LastFiles: "&", its number from 1, " ", the path.
std::string LegendeDernierFichier(int index, std::string_view path);

/// The path of a caption: from its fourth character on, trimmed.
std::string CheminDeLegende(std::string_view caption);

}  // namespace talpena
