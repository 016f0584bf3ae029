// Writes a file beside its place and puts it there in one step.
#pragma once
#include <memory>
#include <optional>
#include <string>

#include "platform/files.h"
#include "platform/os/file_attributes.h"

namespace talpena {

/// Temporaries are called ".talpena-", sixteen hexadecimal digits, ".tmp". One that a killed
/// program left behind may be deleted at any time.
///
/// @param shown       the path that messages name
/// @param target      the same with its links followed: what is replaced
/// @param attributes  mode and owner to take; empty for those of any new file
std::unique_ptr<OutputFile> CreeSortiePosix(const std::string& shown, const std::string& target,
                                            const std::optional<FileAttributes>& attributes);

}  // namespace talpena
