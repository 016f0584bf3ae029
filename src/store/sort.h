// The grid's order.
#pragma once
#include "store/state.h"

namespace talpena {

/// Takes the order of a list index (0 file order, 1 to 9 grid column) into SqlCourant and binds
/// the data control to it. Keeps the current row when it is still there.
void ChangeTri(StoreState& state, int index, bool descending);

}  // namespace talpena
