// What other programs print.
#pragma once
#include <array>
#include <cstdio>
#include <optional>
#include <string>

#include "common/text.h"

namespace talpena::test {

/// What a command prints; empty when it fails.
inline std::optional<std::string> Sortie(const std::string& command) {
  FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return {};
  std::string out;
  std::array<char, 4096> block{};
  for (std::size_t n = 0; (n = fread(block.data(), 1, block.size(), pipe)) > 0;) {
    out.append(block.data(), n);
  }
  return pclose(pipe) == 0 ? std::optional(out) : std::nullopt;
}

inline std::string EntreQuotes(const std::string& text) {
  return "'" + Remplace(text, "'", "'\\''") + "'";
}

}  // namespace talpena::test
