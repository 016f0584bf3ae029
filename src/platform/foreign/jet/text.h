// Texts as an Access file (Jet 4) keeps them.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace talpena::jet {

enum class TextForm { Wide /* two bytes a unit */, Short /* one, where that is shorter */ };

/// Adds a UTF-8 text to a row, in UTF-16 or in its short form.
/// @return the number of UTF-16 units that it has: what columns count
std::size_t AjouteTexte(std::string& row, std::string_view utf8, TextForm form);

}  // namespace talpena::jet
