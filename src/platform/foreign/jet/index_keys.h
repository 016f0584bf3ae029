// Values of indexed columns as bytes that sort as the values do.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace talpena::jet {

/// Adds a whole number: 32 bits, the most significant byte first, negative ones below the others.
void AjouteCle(std::string& key, std::int32_t value);

/// Adds a text in the order "General" (language 0x0409): the weights of its characters without
/// regard to case, then the accents, then hyphens, dashes and apostrophes, which have no weight.
/// Blanks at the end do not count. The weights are those of code page 1252 as they are published
/// (docs/file-formats.md), held against the keys of existing files; any other character sorts as
/// "?".
void AjouteCle(std::string& key, std::string_view utf8);

}  // namespace talpena::jet
