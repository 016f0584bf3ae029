// A copy of the current row.
#pragma once
#include "store/state.h"

namespace talpena {

/// Adds a row with every field of Data1's current row but COUNTER, through a clone: the current
/// row stays. Nobody is told; see DataControl::SignaleLignes.
/// @return the new row's bookmark. Off a row, or before a file is open: NoCurrentRecord (3021).
Bookmark DupliqueLigne(StoreState& state);

}  // namespace talpena
