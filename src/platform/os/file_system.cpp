#include "platform/os/file_system.h"

namespace talpena {

std::unique_ptr<FileSystem> CreeSystemeDeFichiers() {
#ifdef _WIN32
  return CreeSystemeDeFichiersPortable();
#else
  return CreeSystemeDeFichiersPosix();
#endif
}

}  // namespace talpena
