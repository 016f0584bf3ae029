// Values of indexed columns as bytes that sort as the values do.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace talpena::jet {

/// Adds a whole number: 32 bits, the most significant byte first, negative ones below the others.
void AjouteCle(std::string& key, std::int32_t value);

/// Adds a text in the order "General" (language 0x0409): one weight a letter, without regard to
/// case; then the accents. The weights of letters, digits and "_" are those found in the
/// catalogues of existing files, the others of code page 1252 follow the order of the Windows
/// sorting weights; characters outside it have none and sort as if they were not there.
void AjouteCle(std::string& key, std::string_view utf8);

}  // namespace talpena::jet
