// Captions and messages, one block per interface language.
#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace talpena {

struct StringEntry {
  std::int16_t id;  ///< base id
  std::string_view text;
};

/// The text of a base id in the block of `langue` (1000 x language index: 0 French, 1000
/// English, 3000 German, 4000 Italian, 5000 Dutch). UTF-8, "&" before a mnemonic letter. An id
/// that the block lacks raises TalpenaError 326; there is no fallback.
std::string Texte(std::int16_t langue, int base);

/// A block as a whole, in the order of the ids; empty for a language without one.
std::span<const StringEntry> BlocDeTextes(std::int16_t langue);

/// The text without its mnemonic marks ("&&" becomes "&").
std::string SansMnemonique(std::string_view caption);

}  // namespace talpena
