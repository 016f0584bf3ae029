// The boxes that a reference is typed into: which a system has, and what they hold together.
#pragma once
#include <span>
#include <string>
#include <string_view>

#include "store/record/record_screen.h"

namespace talpena {

/// Numbers of the boxes that a system has, 0 to 2, in the order of its tokens.
std::span<const int> BoitesDe(CoordSystem system);

/// True when the system's boxes hold numbers, so that a comma is a point.
bool EstNumeriqueSysteme(CoordSystem system);

/// A text as it was typed or pasted in the form in which it is kept: without blanks, in upper
/// case, with a point in a number.
std::string TexteDeBoite(CoordSystem system, std::string_view typed);

/// All boxes put right by TexteDeBoite.
void NettoieBoites(RecordScreen& ecran);

/// Fills the boxes with the tokens of an ORIGINAL, which is trimmed and in upper case. Another
/// number of tokens than the system's leaves them empty.
void RemplitBoites(RecordScreen& ecran, std::string_view original);

/// True when each box of the system holds a text.
bool BoitesRemplies(const RecordScreen& ecran);

/// "mgr 31 U FR1664": what the boxes stand for in ORIGINAL.
std::string OriginalDesBoites(const RecordScreen& ecran);

/// Names the boxes and the datum, to see whether they changed.
std::string CleReference(const RecordScreen& ecran);

}  // namespace talpena
