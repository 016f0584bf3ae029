// Reads .deg files into TALPENA.
#pragma once
#include <string>

#include "platform/main_window_view.h"
#include "platform/platform.h"
#include "store/period_line.h"
#include "store/state.h"

namespace talpena {

/// How LitDeg treats the rows that are in the table.
enum class MergeMode { Replace = 0, Merge = 1 };

/// Loads a .deg file of either form into the table and takes over its datum, free-field layout,
/// periods, title and comment. Failures are shown, not thrown. The caller sets NomFichier and
/// calls ActiveMenus.
void LitDeg(StoreState& state, Platform& io, MainWindowView& vue, const std::string& fileName,
            MergeMode merge);

}  // namespace talpena
