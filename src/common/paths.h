// Paths as files and settings hold them: "\" or "/" between folders, any letter case.
#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace talpena {

/// The platform's own separator, "/" or "\".
char SeparateurChemin();

/// The part of a path up to and including its last separator of either kind; "" when none.
std::string DossierDe(std::string_view path);

/// What stands behind the last separator.
std::string NomDe(std::string_view path);

/// A folder with the platform's separator at its end; "" stays "".
std::string AvecSeparateur(std::string_view folder);

/// The existing file or folder that a path means: as it stands when that exists, else with its
/// separators made native and each part looked up without regard to case (an exact match goes
/// first). Empty when there is none. Path and result are UTF-8.
std::optional<std::string> TrouveChemin(std::string_view path);

/// TrouveChemin, or the path with native separators when nothing exists there.
std::string RendNatif(std::string_view path);

}  // namespace talpena
