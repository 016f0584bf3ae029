// What the operating system's refusals mean to the user.
#pragma once
#include <string>

namespace talpena {

/// Throws the TalpenaError of an errno value. The description is English and names the path:
/// "Disk full: /home/ann/bees.deg". A missing file is 53 when its folder is there, else 76.
[[noreturn]] void LanceErreurFichier(int error, const std::string& path);

/// The same of a file `path` that cannot be made as `target`: it is never "not found", its folder
/// is (76) or takes no new files (75).
[[noreturn]] void LanceErreurCreation(int error, const std::string& path,
                                      const std::string& target);

/// Throws PathFileAccess (75): the path, then what is wrong with it; `text` is the base id of the
/// words for it, 0 for those of the number.
[[noreturn]] void LanceErreurAcces(const std::string& path, const std::string& why, int text = 0);

}  // namespace talpena
