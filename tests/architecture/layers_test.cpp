// Includes only ever point down, and only the edges know a library.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <regex>
#include <string>
#include <vector>

#include "architecture/sources.h"

namespace talpena {
namespace {

using test::Fichiers;
using test::Lignes;

/// Layers from the lowest up; a folder may include itself and what stands before it.
const std::vector<std::string> layers = {"common",         "platform", "coords",      "store",
                                         "coord_commands", "maps",     "interchange", "gazetteer",
                                         "analysis",       "shell"};

/// Folders that lie beside one another: none of them may include another.
const std::vector<std::string> siblings = {"maps", "interchange", "gazetteer", "analysis"};

/// But for this: a place is shown on a small map.
bool PeutUtiliser(const std::string& from, const std::string& target) {
  return from == "gazetteer" && target == "maps";
}

struct Include {
  std::string file;  ///< from src/
  std::string target;
  bool system = false;
};

std::vector<Include> Includes() {
  std::vector<Include> all;
  const std::regex pattern(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])");
  for (const std::string& file : Fichiers()) {
    for (const std::string& line : Lignes(file)) {
      std::smatch match;
      if (!std::regex_search(line, match, pattern)) continue;
      all.push_back({file, match[2], match[1] == "<"});
    }
  }
  return all;
}

/// The layer that a file lies in.
std::string Top(const std::string& path) { return path.substr(0, path.find('/')); }

bool InWindows(const std::string& file) { return file.find("/windows/") != std::string::npos; }

int LayerOf(const std::string& name) {
  for (std::size_t i = 0; i < layers.size(); ++i) {
    if (layers[i] == name) return static_cast<int>(i);
  }
  return -1;
}

bool Siblings(const std::string& a, const std::string& b) {
  const auto has = [](const std::string& name) {
    return std::find(siblings.begin(), siblings.end(), name) != siblings.end();
  };
  return a != b && has(a) && has(b) && !PeutUtiliser(a, b);
}

TEST(Layers, SourcesAreFound) { EXPECT_GT(Includes().size(), 100U); }

TEST(Layers, IncludesPointDown) {
  for (const Include& i : Includes()) {
    if (i.system) continue;
    const int from = LayerOf(Top(i.file));
    const int to = LayerOf(Top(i.target));
    ASSERT_GE(from, 0) << i.file << " lies in no known layer";
    if (to < 0) continue;  // a header of its own folder, or a generated one
    EXPECT_GE(from, to) << i.file << " includes " << i.target;
    EXPECT_FALSE(Siblings(Top(i.file), Top(i.target))) << i.file << " includes " << i.target;
  }
}

TEST(Layers, TheGazetteerMayUseTheMapsAndNoSiblingAnyOther) {
  EXPECT_FALSE(Siblings("gazetteer", "maps"));
  EXPECT_TRUE(Siblings("maps", "gazetteer"));
  EXPECT_TRUE(Siblings("gazetteer", "interchange"));
  EXPECT_TRUE(Siblings("analysis", "maps"));
}

TEST(Layers, LogicSeesNoWindows) {
  for (const Include& i : Includes()) {
    if (InWindows(i.file)) continue;
    EXPECT_FALSE(InWindows(i.target)) << i.file << " includes " << i.target;
  }
}

TEST(Layers, TheDialectKnowsNoRecordsets) {
  for (const Include& i : Includes()) {
    if (!i.file.starts_with("platform/sqlite/dialect/")) continue;
    EXPECT_FALSE(i.target.starts_with("platform/sqlite/rows/"))
        << i.file << " includes " << i.target;
  }
}

TEST(Layers, OnlyWindowsAndTheQtPlatformSeeQt) {
  const std::regex qt("^Q[A-Z][A-Za-z]+$");
  for (const Include& i : Includes()) {
    if (InWindows(i.file) || i.file.rfind("platform/qt/", 0) == 0) continue;
    EXPECT_FALSE(std::regex_match(i.target, qt)) << i.file << " includes " << i.target;
  }
}

struct LibraryRule {
  const char* header;
  const char* folder;  ///< the only folder that may include it
};

/// The first that a header meets counts.
constexpr std::array libraryRules = {
    LibraryRule{"sqlite3.h", "platform/sqlite/"},
    LibraryRule{"unicode/ucnv", "platform/foreign/"},  // code pages of makers' files
    LibraryRule{"unicode/", "platform/sqlite/"},
    LibraryRule{"mdbtools.h", "platform/foreign/"},
};

TEST(Layers, EachLibraryIsKnownInOneFolder) {
  for (const Include& i : Includes()) {
    for (const LibraryRule& rule : libraryRules) {
      if (i.target.rfind(rule.header, 0) != 0) continue;
      EXPECT_EQ(i.file.rfind(rule.folder, 0), 0U) << i.file << " includes " << i.target;
      break;
    }
  }
}

TEST(Layers, NoFileGrowsPastWhatOneCanHoldInTheHead) {
  for (const std::string& file : Fichiers()) EXPECT_LE(Lignes(file).size(), 500U) << file;
}

}  // namespace
}  // namespace talpena
