// Searching the rows for a text.
#pragma once
#include <string>
#include <string_view>

#include "store/command_context.h"

namespace talpena {

/// The condition of a search for `x`. A number is looked for in every column, any other text in
/// the columns of text; a decimal comma counts as a point beside columns of numbers. Nothing is
/// escaped: a quote in `x` makes a condition that the engine refuses.
std::string CritereDeRecherche(std::string_view x);

/// mnuChercher: 0 asks for a text and goes to the first row that holds it, in the order of the
/// grid; 1 goes to the next one, with the text found last. Says so when there is none. Failures
/// are shown, not thrown; a text that the engine refuses leaves the one before in use.
void mnuChercher_Click(CommandContext c, int index);

}  // namespace talpena
