// Files that statistics and charts are saved in.
#pragma once
#include <string>
#include <utility>

#include "platform/platform.h"

namespace talpena {

/// Asks for a file and has it written as `bytes` gives it for the path; it takes the place of a
/// former one in one step. Cancelled (32755) when the user leaves the dialog.
/// @param filter  the kinds of files, as the dialog takes them
/// @param name    offered at first, without an extension
template <typename Bytes>
void SauveSous(Platform& io, const std::string& filter, const std::string& name, Bytes&& bytes) {
  const std::string path =
      io.dialogues.EnregistreFichier({.filter = filter, .name = name, .confirmReplace = true});
  const auto file = io.files.Cree(path);
  file->Ecrit(std::forward<Bytes>(bytes)(path));
  file->Remplace();
}

}  // namespace talpena
