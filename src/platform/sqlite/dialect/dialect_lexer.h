// The words of the engine's SQL dialect.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace talpena::sqlite {

struct Token {
  enum class Kind : std::uint8_t {
    Word,  ///< keyword or name
    Name,  ///< a name in brackets
    Text,  ///< '...' or "..."
    Number,
    Date,    ///< #...#
    Symbol,  ///< one of the operators and marks
    End,
    Error,  ///< what cannot be a word; reading ends here
  };

  Kind kind = Kind::End;
  std::string text;   ///< of a name or text without its quotes; of a word in upper case
  double number = 0;  ///< of a number; of a date in days
  std::size_t start = 0;
  std::size_t end = 0;  ///< places in the statement
};

/// The tokens of a statement, the last one End or Error.
std::vector<Token> Decompose(std::string_view statement);

}  // namespace talpena::sqlite
