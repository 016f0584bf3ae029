// A folder of a test's own, removed with all that is in it.
#pragma once
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace talpena::test {

class TempFolder {
 public:
  explicit TempFolder(
      const std::filesystem::path& parent = std::filesystem::temp_directory_path()) {
    std::string name = (parent / "talpena-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) ADD_FAILURE() << "cannot make " << name;
    path_ = name;
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::filesystem::path& path() const { return path_; }
  std::string operator/(const std::string& name) const { return (path_ / name).string(); }

  /// Names of all entries, sorted.
  std::vector<std::string> Noms() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

 private:
  std::filesystem::path path_;
};

inline void EcritFichier(const std::string& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary);
  out << bytes;
  if (!out.flush()) ADD_FAILURE() << "cannot write " << path;
}

/// The bytes of a file; a text that no file holds when there is none.
inline std::string LitFichier(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return "(no file " + path + ")";
  return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace talpena::test
