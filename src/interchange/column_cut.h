// Parts of a line by their columns.
#pragma once
#include <string_view>

namespace talpena {

/// The part of a text from a character, counted from 1, so many characters long at most. A begin
/// before the first character is the first one, a negative length is none.
std::string_view CoupeColonne(std::string_view text, int begin, int length);

}  // namespace talpena
