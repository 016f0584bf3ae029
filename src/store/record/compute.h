// The point that the boxes name.
#pragma once
#include "store/command_context.h"
#include "store/record/record_screen.h"

namespace talpena {

/// Sets the changed flag, and ButOk with it.
void NoteChangement(RecordScreen& ecran);

/// Computes latitude and longitude from the boxes, once all are filled, as a later recomputation
/// of ORIGINAL does; sets avisReference. Boxes are clean already, the control notations are left
/// to AfficheControle.
/// @return false when the reference was refused with a box: `focus` is where it can be put right
bool CalculePoint(CommandContext c, RecordScreen& ecran);

}  // namespace talpena
