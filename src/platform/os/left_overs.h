// Names of the files that are written beside their place. They say which machine writes them and
// for which file, so that nobody takes away what is not his own.
#pragma once
#include <string>
#include <string_view>

namespace talpena {

/// A name for a file that will be called `name`: ".talpena-", eight hexadecimal digits for this
/// machine, eight for `name`, eight at random, ".tmp".
std::string NomTemporaire(std::string_view name);

/// The same with ".new" at its end: the text is whole, and only its name is wrong.
std::string NomEntier(std::string_view temporary);
bool EstNomEntier(std::string_view name);

/// Whether a program on this machine gave this name.
bool EstNomTemporaire(std::string_view name);

/// The same for a folder of files that wait for their places, with ".dir" at its end.
std::string NomDeDossier(std::string_view name);
bool EstNomDeDossier(std::string_view name);

/// Whether it did so for a file called `wanted`.
bool EstTemporaireDe(std::string_view name, std::string_view wanted);

}  // namespace talpena
