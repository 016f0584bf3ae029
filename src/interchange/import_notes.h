// Quiet lines of the import dialogs: what a person would not expect of an import.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "coords/state.h"

namespace talpena {

/// "These rows get the datum European 1950 (EUR-M)." for the code that an import writes into its
/// rows, without regard to blanks behind it; a sentence of its own for a code that the catalogue
/// lacks.
std::string NoteDuDatum(const CoordState& state, std::string_view code);

/// That the byte 1A in a line ended the list, LigneCoupee.
std::string NoteDeCoupe(std::int16_t langue, std::int64_t line);

}  // namespace talpena
