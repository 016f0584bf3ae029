// A folder that only the user can enter.
#pragma once
#include <string>

namespace talpena {

/// Folder "Talpena" of the user's cache, made when it is absent, mode 0700, without a separator
/// behind. PathFileAccess (75) when it cannot be made, or when what stands there is not a folder
/// of this user's own.
std::string DossierPrive();

}  // namespace talpena
