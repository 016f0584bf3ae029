// Code page 1252 into UTF-8 for many short texts, in memory that is used again.
#pragma once
#include <string>
#include <string_view>

namespace talpena {

/// Puts the bytes, decoded as by Cp1252VersUtf8, in the place of what `text` held.
void DecodeCp1252(std::string_view bytes, std::string& text);

}  // namespace talpena
