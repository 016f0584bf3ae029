// The old file under another name, while the new one takes its place.
#pragma once
#include <string>
#include <vector>

#include "platform/files.h"

namespace talpena {

/// A path beside another one, for a text that will be called `name`; see NomTemporaire.
std::string VoisinTemporaire(const std::string& path, const std::string& name);

/// Gives a file a second name, in place of what stood there; on another file system a copy bears
/// it. False where a file cannot have two names. A file that is not there has none to be given.
bool DonneSecondNom(const std::string& path, const std::string& second, const std::string& name);

/// Throws what an errno value means for a backup: a folder in its place is in the way.
[[noreturn]] void LanceErreurGarde(int error, const std::string& backup);

/// Throws what would keep the file `path` from being put under `backup`.
void VerifieGardePosix(const std::string& path, const std::string& backup);

/// Whether two paths lead to one entry of one folder.
bool MemeEntree(const std::string& a, const std::string& b);

/// The left-overs beside a file that a program was writing for it, whole texts first.
std::vector<LeftOver> RestesPosix(const std::string& path);

/// Removes the left-overs in a folder whose file stands there and that nobody is writing.
void SupprimeRestesPosix(const std::string& folder);

}  // namespace talpena
