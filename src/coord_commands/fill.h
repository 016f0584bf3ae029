// The fill commands: text made from a row's point, or typed, goes behind what COMMENT holds. They
// work on the rows chosen in the grid, or on all. Rows without coordinates stay, and so do those
// that the new text would be empty for. Rows whose point has no such text, because the arithmetic
// ends without a result, stay too; they are chosen in the grid and told at the end, in one box. Any
// other failure takes the whole command back and is shown, not thrown.
#pragma once
#include "store/command_context.h"

namespace talpena {

/// Grid references, joined with a blank: 0 MGRS on the file's datum, its failure texts included
/// (asks first, messages 502 and 503), 1 British, 2 Irish. No datum is changed for the last two.
void MnuRemplirCoo_Click(CommandContext c, int index);

/// Other notations, joined with a comma: 0 degrees, minutes and seconds, 1 Paris grades, 2 Lambert
/// belge, 3 IFBL, 4 Lambert Nord Maroc, 5 Lambert Sud Maroc. 2 to 5 go to the datum of their
/// system first.
void MnuRemplirXY_Click(CommandContext c, int index);

/// A text that is asked for (message 602), joined with the separator of the free fields.
void MnuRemplirTexte_Click(CommandContext c);

}  // namespace talpena
