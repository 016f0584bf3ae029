// Walking through UTF-8, and writing it.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace talpena::sqlite {

/// The code point at `at`, which moves behind it; a malformed byte is U+FFFD.
char32_t LitPoint(std::string_view text, std::size_t& at);
void AjoutePoint(char32_t c, std::string& text);

/// From the start-th character (from 0) on, at most `count` of them.
std::string_view Caracteres(std::string_view text, std::size_t start, std::size_t count);

}  // namespace talpena::sqlite
