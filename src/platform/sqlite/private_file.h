// Files that only the user can read.
#pragma once
#include <string>

namespace talpena::sqlite {

/// Makes an empty file that nobody but the user can read or write, where nothing stands as yet, not
/// even a link: FileExists (58) else. PathFileAccess (75), DiskFull (61) when it cannot be made.
void CreeFichierPrive(const std::string& path);

/// The path with all links of its folder followed, so that one at its end is the only one left.
std::string DossierSansLiens(const std::string& path);

}  // namespace talpena::sqlite
