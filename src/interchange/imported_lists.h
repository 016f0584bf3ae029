// Which files have come in since the program began, so that one that is chosen again can be told.
#pragma once
#include <optional>
#include <vector>

#include "interchange/state.h"
#include "store/document.h"

namespace talpena {

/// The open document has taken these rows of a file. Nothing without a row, or where the file
/// could not be told from others.
/// @param list   the file as it stood before it was read
/// @param added  bookmarks of the rows, in their order
void NoteListe(InterchangeState& interchange, const Document& document,
               const std::optional<FileStamp>& list, const std::vector<Bookmark>& added);

/// The open document holds rows of the file as it stands.
bool EstDejaImportee(const InterchangeState& interchange, Document& document,
                     const std::optional<FileStamp>& list);

}  // namespace talpena
