// Names as they are looked for when nobody knows how they are spelled.
#pragma once
#include <string>
#include <string_view>

namespace talpena {

/// A name in small letters, without accents, blanks, hyphens and apostrophes: "Saint-Ghislain" and
/// "SAINTGHISLAIN" are the same, "L'Étang" is "letang". Letters of other scripts stay.
std::string FormeSimple(std::string_view name);

}  // namespace talpena
