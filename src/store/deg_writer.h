// Writes TALPENA as a .deg file of form 2.
#pragma once
#include <string>
#include <string_view>

#include "platform/main_window_view.h"
#include "platform/platform.h"
#include "store/state.h"

namespace talpena {

/// Row for row, or rows of one period and point as one line.
enum class WriteMode { Rows, Grouped };

/// Writes the rows of the data control. An empty table writes nothing and leaves the file
/// alone. On success FichierModifie is false. Failures are shown, not thrown.
void EcritDeg(StoreState& state, Platform& io, MainWindowView& vue, const std::string& fileName,
              WriteMode mode);

}  // namespace talpena
