// The user's files on the operating system.
#pragma once
#include <memory>

#include "platform/files.h"

namespace talpena {

std::unique_ptr<FileSystem> CreeSystemeDeFichiers();

}  // namespace talpena
