// How many rows the table takes, and who is asked before it gets many.
#pragma once
#include <cstdint>

#include "store/command_context.h"

namespace talpena {

/// Most rows that a grid can show: their heights together are a number of 32 bits.
inline constexpr std::int64_t PlusDeLignes = 50'000'000;
/// Above so many empty rows at once the user is asked.
inline constexpr std::int64_t BeaucoupDeLignes = 100'000;

/// Empty rows that can be added to a table of that many, as far as memory, disk and window go.
std::int64_t PlacePourLignes(Environment& environment, const std::string& workingDir,
                             std::int64_t rows);

/// False when the rows do not fit, which the user is told, or are many and he does not want them.
bool AccepteLignesVides(CommandContext c, std::int64_t count, std::int64_t rows);

}  // namespace talpena
