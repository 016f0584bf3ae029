// What has to hold, whatever the input: ends the process otherwise.
#pragma once
#include <cstdlib>
#include <string_view>

#include "common/text.h"

namespace talpena::fuzz {

inline void Verifie(bool holds) {
  if (!holds) std::abort();
}

/// UTF-8 with characters of code page 1252 only, and no more of them than `most`.
inline void VerifieTexte(std::string_view text, std::size_t most = std::string_view::npos) {
  if (EstAscii(text)) return Verifie(text.size() <= most);
  Verifie(Utf8VersCp1252(text).has_value());
  Verifie(most == std::string_view::npos || CompteCaracteres(text) <= most);
}

}  // namespace talpena::fuzz
