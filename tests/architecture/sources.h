// The sources of the program as texts, for tests of what stands in them.
#pragma once
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace talpena::test {

inline const std::filesystem::path source = std::filesystem::path(TALPENA_SOURCE_DIR) / "src";

/// Every header and source file, from src/.
inline std::vector<std::string> Fichiers() {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(source)) {
    const std::string extension = entry.path().extension().string();
    if (extension != ".h" && extension != ".cpp") continue;
    files.push_back(std::filesystem::relative(entry.path(), source).generic_string());
  }
  return files;
}

/// The lines of one of them; none when it is not there.
inline std::vector<std::string> Lignes(const std::string& file) {
  std::vector<std::string> lines;
  std::ifstream in(source / file);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

}  // namespace talpena::test
