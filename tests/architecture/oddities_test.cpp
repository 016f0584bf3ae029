// Where the code keeps something odd on purpose it names the test that holds it: the test is there.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "architecture/sources.h"

namespace talpena {
namespace {

/// "Suite.Case" of every test, from the sources of all test programs.
std::set<std::string> Tests() {
  static const std::regex declaration(R"(TEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\))");
  std::set<std::string> names;
  const std::filesystem::path folder = std::filesystem::path(TALPENA_SOURCE_DIR) / "tests";
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.path().extension() != ".cpp") continue;
    std::ifstream in(entry.path());
    std::string text{std::istreambuf_iterator<char>(in), {}};
    for (std::sregex_iterator i(text.begin(), text.end(), declaration), end; i != end; ++i) {
      names.insert((*i)[1].str() + "." + (*i)[2].str());
    }
  }
  return names;
}

/// The names that stand behind "Held by" in a comment, on its line or the two below.
std::vector<std::string> Promis(const std::vector<std::string>& lines) {
  static const std::regex name(R"(\b([A-Z]\w+\.[A-Z]\w+)\b)");
  std::vector<std::string> promised;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (lines[i].find("Held ") == std::string::npos) continue;
    std::string text = lines[i].substr(lines[i].find("Held "));
    for (std::size_t next = i + 1; next < lines.size() && next <= i + 2; ++next) {
      if (lines[next].find("//") == std::string::npos) break;
      text += lines[next];
    }
    for (std::sregex_iterator found(text.begin(), text.end(), name), end; found != end; ++found) {
      promised.push_back((*found)[1]);
    }
  }
  return promised;
}

TEST(Oddities, NameTestsThatAreThere) {
  const std::set<std::string> tests = Tests();
  ASSERT_GT(tests.size(), 1000U);
  std::size_t promised = 0;
  for (const std::string& file : test::Fichiers()) {
    for (const std::string& name : Promis(test::Lignes(file))) {
      ++promised;
      EXPECT_TRUE(tests.contains(name)) << file << " names " << name;
    }
  }
  EXPECT_GT(promised, 20U);
}

TEST(Oddities, NamesAreReadAcrossLines) {
  EXPECT_EQ(Promis({"// Held by Ab.Cd and", "// Ef.Gh.", "code();"}),
            (std::vector<std::string>{"Ab.Cd", "Ef.Gh"}));
  EXPECT_TRUE(Promis({"// nothing of the kind: Ab.Cd"}).empty());
}

}  // namespace
}  // namespace talpena
