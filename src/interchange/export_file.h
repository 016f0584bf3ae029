// Which file an export writes, and what becomes of one that stands there.
#pragma once
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "store/command_context.h"

namespace talpena {

/// The files that would go when the path is written; throws where none may.
using FormerFiles = std::function<std::vector<std::string>(const std::string& path)>;

/// Asks for the file to write, and whether those that stand in its place may go (question 500, with
/// all their names); "" when there is none. Whoever does not want a file replaced is asked for
/// another one. The open distribution is never replaced. AcheveExports goes before the question.
std::string DemandeFichierExport(CommandContext c, std::string_view filter,
                                 const FormerFiles& former);

/// Ends what a killed export left half done beside the path, and tells which files stand again.
void AcheveExports(CommandContext c, const std::string& path);

/// What is to be said of the place of a file that could not be written; 0 for nothing.
/// @param former  what stood there before
int ConseilDuReste(CommandContext c, const std::string& path,
                   const std::optional<FileStamp>& former);

}  // namespace talpena
