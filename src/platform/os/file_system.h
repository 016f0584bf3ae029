// The user's files on the operating system.
#pragma once
#include <memory>

#include "platform/files.h"

namespace talpena {

/// The file system that the program uses: POSIX calls where there are any, else the portable one.
std::unique_ptr<FileSystem> CreeSystemeDeFichiers();

/// On std::filesystem and C++ streams alone. Files are written beside and renamed into place, but
/// nothing is synced and no owner is kept.
std::unique_ptr<FileSystem> CreeSystemeDeFichiersPortable();

#ifndef _WIN32
/// On POSIX calls.
std::unique_ptr<FileSystem> CreeSystemeDeFichiersPosix();
#endif

}  // namespace talpena
