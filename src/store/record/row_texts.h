// Fields of the current row as texts.
#pragma once
#include <string>

#include "store/record/record_screen.h"
#include "store/state.h"

namespace talpena {

/// Text of a field of Data1's row, as the grid shows it; "" when it cannot be read.
std::string TexteDuChamp(StoreState& state, int field);

/// Puts period, latitude, longitude, N1 and N2 of the row into the form.
void MontreNombres(StoreState& state, RecordScreen& ecran);

}  // namespace talpena
