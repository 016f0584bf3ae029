// Folders and links of paths as the kernel reads them: "/" alone parts them.
#pragma once
#include <string>
#include <vector>

namespace talpena {

/// The folder that holds what a path names, "." for a bare name.
std::string DossierParent(const std::string& path);

/// What a path is called in that folder.
std::string NomDansDossier(const std::string& path);

/// The path behind all links at the end of a path; the file itself need not be there.
std::string SuitLiens(const std::string& path);

/// A folder itself, no link to one.
bool EstDossier(const std::string& path);

/// Refuses what no file can be called: "" and names with a NUL byte.
void VerifieChemin(const std::string& path);

/// Makes what happened in a file's folder last through a power cut, where the folder allows it.
/// A failure is let pass: what was done is done, and the files themselves were synced before.
void SynchroniseDossier(const std::string& path);

/// The names in a folder, "." and ".." among them; none where it cannot be read.
std::vector<std::string> NomsDe(const std::string& folder);

/// Renames, never over another file; an errno value, 0 when it is done.
int RenommeSansEcraser(const std::string& from, const std::string& to);

}  // namespace talpena
