// Files that statistics and charts are saved in.
#pragma once
#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "platform/platform.h"

namespace talpena {

/// What a save dialog offers at first.
struct OfferedFile {
  std::string folder;  ///< "" for that of the process
  std::string title;   ///< what the file is about; what no name of a file may have becomes blanks
  std::string suffix;  ///< with its dot: a title may have dots of its own
};

inline std::string NomDeFichier(const OfferedFile& offered) {
  std::string name = offered.title;
  std::replace_if(
      name.begin(), name.end(),
      [](char c) {
        return std::string_view("/\\:*?\"<>|\r\n\t").find(c) != std::string_view::npos;
      },
      ' ');
  return name + offered.suffix;
}

/// Asks for a file and has it written as `bytes` gives it for the path; it takes the place of a
/// former one in one step. Cancelled (32755) when the user leaves the dialog.
/// @param filter  the kinds of files, as the dialog takes them
template <typename Bytes>
void SauveSous(Platform& io, const std::string& filter, const OfferedFile& offered, Bytes&& bytes) {
  const std::string path = io.dialogues.EnregistreFichier({.filter = filter,
                                                           .folder = offered.folder,
                                                           .name = NomDeFichier(offered),
                                                           .confirmReplace = true});
  const std::string content = std::forward<Bytes>(bytes)(path);
  const auto file = io.files.Cree(path);
  file->Ecrit(content);
  file->Remplace();
}

}  // namespace talpena
