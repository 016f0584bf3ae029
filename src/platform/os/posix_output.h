// Writes a file beside its place and puts it there in one step.
#pragma once
#include <memory>
#include <optional>
#include <string>

#include "platform/files.h"
#include "platform/os/file_attributes.h"

namespace talpena {

/// Where an output goes.
struct OutputPlace {
  std::string shown;   ///< the path that messages name
  std::string target;  ///< the same with its links followed: what is replaced
  std::string name;    ///< whose left-over the text is while it has not got there
};

/// @param attributes  mode and owner to take; empty for those of any new file
std::unique_ptr<OutputFile> CreeSortiePosix(const OutputPlace& place,
                                            const std::optional<FileAttributes>& attributes);

/// Copies a file, with its mode and owner, in place of what stands there: whole and synced before
/// it bears its name.
///
/// @param name  as in OutputPlace
void CopieFichier(const std::string& from, const std::string& to, const std::string& name);

}  // namespace talpena
