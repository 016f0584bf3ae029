// Numbers of things as the user reads them.
#pragma once
#include <cstdint>
#include <string>

namespace talpena {

/// A whole number with its digits in groups of three, as the interface language separates them:
/// "3,245" in English, "3.245" in German, Italian and Dutch, a narrow no-break space in French.
std::string NombreGroupe(std::int16_t langue, std::int64_t value);

}  // namespace talpena
