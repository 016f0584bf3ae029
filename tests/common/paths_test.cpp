#include "common/paths.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "fakes/temp_folder.h"

namespace talpena {
namespace {

namespace fs = std::filesystem;

struct PathCase {
  const char* path;
  const char* folder;
  const char* name;
};

TEST(Paths, AreCutBehindTheLastSeparatorOfEitherKind) {
  constexpr PathCase cases[] = {
      {"", "", ""},
      {"a.deg", "", "a.deg"},
      {"/home/user/a.deg", "/home/user/", "a.deg"},
      {"C:\\data\\deg.dbf", "C:\\data\\", "deg.dbf"},
      {"C:\\data/a.deg", "C:\\data/", "a.deg"},
      {"/home\\a.deg", "/home\\", "a.deg"},
      {"/", "/", ""},
      {"\\", "\\", ""},
      {"folder/", "folder/", ""},
      {"\u00E9t\u00E9\\\u00E0.deg", "\u00E9t\u00E9\\", "\u00E0.deg"},
  };
  for (const PathCase& c : cases) {
    EXPECT_EQ(DossierDe(c.path), c.folder) << c.path;
    EXPECT_EQ(NomDe(c.path), c.name) << c.path;
    EXPECT_EQ(DossierDe(c.path) + NomDe(c.path), c.path);
  }
}

TEST(Paths, EndInOneSeparatorWhenAsked) {
  const std::string separator(1, SeparateurChemin());
  EXPECT_EQ(AvecSeparateur(""), "");
  EXPECT_EQ(AvecSeparateur("/tmp"), "/tmp" + separator);
  EXPECT_EQ(AvecSeparateur("/tmp/"), "/tmp/");
  EXPECT_EQ(AvecSeparateur("C:\\temp\\"), "C:\\temp\\");
  EXPECT_EQ(AvecSeparateur("/"), "/");
}

#ifndef _WIN32

class TrouveCheminTest : public testing::Test {
 protected:
  void SetUp() override {
    fs::create_directories(folder_ / "Carto" / "Monde");
    Touch(folder_ / "Carto" / "World.dsw");
    Touch(folder_ / "Carto" / "Monde" / "\u00C9t\u00E9.tlp");
    Touch(folder_ / "Twice.txt");
    Touch(folder_ / "TWICE.TXT");
    Touch(folder_ / "Iris.deg");
    Touch(folder_ / "back\\slash.txt");
  }

  static void Touch(const fs::path& path) { std::ofstream(path) << "x"; }

  /// The path found for a text behind the test's folder, without that folder.
  std::string Found(const std::string& behind) const {
    const std::string base = folder_.string();
    const auto found = TrouveChemin(base + behind);
    if (!found) return "none";
    EXPECT_TRUE(fs::exists(*found)) << *found;
    return found->starts_with(base) ? found->substr(base.size()) : *found;
  }

  test::TempFolder temp_;
  const fs::path folder_ = temp_.path();
};

TEST_F(TrouveCheminTest, TakesBothSeparatorsAndAnyCase) {
  EXPECT_EQ(Found("/Carto/World.dsw"), "/Carto/World.dsw");
  EXPECT_EQ(Found("\\Carto\\World.dsw"), "/Carto/World.dsw");
  EXPECT_EQ(Found("\\CARTO/world.DSW"), "/Carto/World.dsw");
  EXPECT_EQ(Found("/carto/monde"), "/Carto/Monde");
  EXPECT_EQ(Found("\\carto\\MONDE\\\u00E9T\u00C9.TLP"), "/Carto/Monde/\u00C9t\u00E9.tlp");
}

// A Turkish user's i has another capital; a file's name has not.
TEST_F(TrouveCheminTest, KnowsOneCapitalOfI) {
  EXPECT_EQ(Found("/IRIS.DEG"), "/Iris.deg");
  EXPECT_EQ(Found("/iris.deg"), "/Iris.deg");
  EXPECT_EQ(Found("/\u0130ris.deg"), "none");
}

TEST_F(TrouveCheminTest, PutsAnExactMatchFirst) {
  EXPECT_EQ(Found("/Twice.txt"), "/Twice.txt");
  EXPECT_EQ(Found("/TWICE.TXT"), "/TWICE.TXT");
  EXPECT_EQ(Found("/back\\slash.txt"), "/back\\slash.txt");
}

TEST_F(TrouveCheminTest, GivesOneAnswerWhereSeveralMatch) {
  EXPECT_EQ(Found("/twice.txt"), "/TWICE.TXT");
  EXPECT_EQ(Found("/tWICE.txt"), "/TWICE.TXT");
}

TEST_F(TrouveCheminTest, IsEmptyWhereNothingStands) {
  EXPECT_EQ(Found("/missing.deg"), "none");
  EXPECT_EQ(Found("/Carto/missing/World.dsw"), "none");
  EXPECT_EQ(Found("/Carto/World.dsw/more"), "none");
  EXPECT_EQ(TrouveChemin(""), std::nullopt);
  EXPECT_EQ(TrouveChemin(std::string_view("/tmp\0/a", 7)), std::nullopt);
  EXPECT_EQ(TrouveChemin("\"" + (folder_ / "Iris.deg").string() + "\""), std::nullopt);
}

TEST_F(TrouveCheminTest, FollowsDotsAndTrailingSeparators) {
  EXPECT_EQ(Found("/carto/../IRIS.deg"), "/Carto/../Iris.deg");
  EXPECT_EQ(Found("/./carto/./world.dsw"), "/./Carto/./World.dsw");
  EXPECT_EQ(Found("\\carto\\"), "/Carto/");
}

TEST_F(TrouveCheminTest, LooksFromTheCurrentFolder) {
  const fs::path before = fs::current_path();
  fs::current_path(folder_);
  EXPECT_EQ(TrouveChemin("IRIS.DEG"), "Iris.deg");
  EXPECT_EQ(TrouveChemin("carto\\WORLD.DSW"), "Carto/World.dsw");
  fs::current_path(before);
}

TEST_F(TrouveCheminTest, PassesOverAFolderThatCannotBeRead) {
  const fs::path closed = folder_ / "Closed";
  fs::create_directory(closed);
  Touch(closed / "Inside.deg");
  fs::permissions(closed, fs::perms::none);
  const std::string found = Found("/Closed/INSIDE.deg");
  fs::permissions(closed, fs::perms::owner_all);
  EXPECT_TRUE(found == "none" || found == "/Closed/Inside.deg");  // the latter for root
}

TEST_F(TrouveCheminTest, RendNatifFallsBackOnNativeSeparators) {
  const std::string base = folder_.string();
  EXPECT_EQ(RendNatif(base + "\\CARTO\\world.dsw"), base + "/Carto/World.dsw");
  EXPECT_EQ(RendNatif(base + "\\new\\file.deg"), base + "/new/file.deg");
  EXPECT_EQ(RendNatif("C:\\data\\a.deg"), "C:/data/a.deg");
  EXPECT_EQ(RendNatif(""), "");
}

#endif

}  // namespace
}  // namespace talpena
