#include "platform/files.h"

#include "common/talpena_error.h"

namespace talpena {

std::unique_ptr<SideFolder> FileSystem::CreeDossierACote(const std::string& path) {
  throw TalpenaError(ErrorNumber::PathFileAccess, "Path/File access error: " + path,
                     {.about = {path}});
}

}  // namespace talpena
