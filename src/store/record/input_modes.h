// Which coordinate system the form is in, and which datum goes with it.
#pragma once

#include "store/record/record_screen.h"
#include "store/state.h"

namespace talpena {

/// The system of InputMode; MGRS when the setting holds none.
CoordSystem SystemeCourant(const StoreState& state);

/// True when a system implies its datum.
bool ForceDatum(CoordSystem system);

/// True for the systems whose datum must be fit for UTM.
bool EstUtm(CoordSystem system);

/// Makes a datum that of the row: its index and its code, trimmed; index 0 leaves the code alone.
void PrendDatum(const StoreState& state, RecordScreen& ecran, std::int16_t datum);

}  // namespace talpena
