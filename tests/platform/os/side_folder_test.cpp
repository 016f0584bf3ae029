// Folders beside a place, in which files wait until they take their places together.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "common/talpena_error.h"
#include "fakes/killed_child.h"
#include "fakes/locked_elsewhere.h"
#include "fakes/temp_folder.h"
#include "platform/os/file_system.h"
#include "platform/os/left_overs.h"

namespace talpena {
namespace {

using test::EcritFichier;
using test::LitFichier;
using Names = std::vector<std::string>;
using Placed = std::vector<PlacedFile>;

class SideFolderTest : public testing::Test {
 protected:
  std::unique_ptr<SideFolder> Cree() { return files->CreeDossierACote(folder / "a.dbf"); }
  /// Its number; 0 for none.
  static int Faute(SideFolder& side, const Names& former) {
    try {
      side.MetEnPlace(former);
    } catch (const TalpenaError& failure) {
      return failure.number();
    }
    return 0;
  }

  test::TempFolder folder;
  std::unique_ptr<FileSystem> files = CreeSystemeDeFichiers();
};

TEST_F(SideFolderTest, PutsItsFilesInPlaceTogether) {
  const auto side = Cree();
  EcritFichier(side->Chemin() + "a.dbf", "table");
  EcritFichier(side->Chemin() + "a.dbt", "memos");
  EXPECT_EQ(folder.Noms().size(), 1U);
  side->MetEnPlace({});
  EXPECT_EQ(LitFichier(folder / "a.dbf"), "table");
  EXPECT_EQ(LitFichier(folder / "a.dbt"), "memos");
}

TEST_F(SideFolderTest, GoesWithWhatWasNotPutInPlace) {
  {
    const auto side = Cree();
    EcritFichier(side->Chemin() + "a.dbf", "table");
  }
  EXPECT_TRUE(folder.Noms().empty());
}

TEST_F(SideFolderTest, FormerFilesGoAndTheirModeStays) {
  for (const char* name : {"a.dbf", "A.DBT", "b.dbf"}) EcritFichier(folder / name, "former");
  std::filesystem::permissions(folder / "a.dbf", std::filesystem::perms{0640});
  {
    const auto side = Cree();
    EcritFichier(side->Chemin() + "a.dbf", "table");
    side->MetEnPlace({"a.dbf", "A.DBT", "gone.dbf"});
  }
  EXPECT_EQ(folder.Noms(), (Names{"a.dbf", "b.dbf"}));
  EXPECT_EQ(LitFichier(folder / "a.dbf"), "table");
  EXPECT_EQ(std::filesystem::status(folder / "a.dbf").permissions(), std::filesystem::perms{0640});
}

TEST_F(SideFolderTest, AFileInTheWayLeavesEverythingAsItWas) {
  EcritFichier(folder / "a.dbf", "former");
  EcritFichier(folder / "b.dbt", "in the way");
  {
    const auto side = Cree();
    EcritFichier(side->Chemin() + "a.dbf", "table");
    EcritFichier(side->Chemin() + "b.dbt", "memos");
    EXPECT_EQ(Faute(*side, {"a.dbf"}), ErrorNumber::FileExists);
  }
  EXPECT_EQ(folder.Noms(), (Names{"a.dbf", "b.dbt"}));
  EXPECT_EQ(LitFichier(folder / "a.dbf"), "former");
  EXPECT_EQ(LitFichier(folder / "b.dbt"), "in the way");
}

TEST_F(SideFolderTest, AFolderThatIsNotThereIsRefused) {
  try {
    files->CreeDossierACote(folder / "none/a.dbf");
    ADD_FAILURE();
  } catch (const TalpenaError& failure) {
    EXPECT_EQ(failure.number(), ErrorNumber::PathNotFound);
  }
}

/// As a killed program leaves it.
std::string Abandonne(const test::TempFolder& folder, const std::string& name) {
  std::string path = folder / NomDeDossier("a.dbf");
  std::filesystem::create_directories(std::filesystem::path(path + "/" + name).parent_path());
  EcritFichier(path + "/" + name, "left");
  return path;
}

TEST_F(SideFolderTest, WhatAKilledProgramLeftGoesWithTheNextOne) {
  Abandonne(folder, "a.dbf");
  EXPECT_TRUE(files->Restes(folder / "a.dbf").empty());
  Cree().reset();
  EXPECT_TRUE(folder.Noms().empty());
}

TEST_F(SideFolderTest, FormerFilesThatAKilledProgramLeftGoBackToTheirPlaces) {
  const std::string left = Abandonne(folder, "former/a.dbf");
  EcritFichier(left + "/a.dbf", "new");
  Cree().reset();
  EXPECT_EQ(LitFichier(left + "/former/a.dbf"), "left") << "somebody has to tell it";
  EXPECT_EQ(files->AcheveEchanges(folder / "b.dbf"), (Placed{{folder / "a.dbf", false}}));
  EXPECT_EQ(LitFichier(folder / "a.dbf"), "left");
  EXPECT_EQ(folder.Noms(), Names{"a.dbf"});
}

TEST_F(SideFolderTest, NewFilesThatAKilledProgramLeftBehindTheFormerOnesTakeTheirPlaces) {
  const std::string left = Abandonne(folder, "replaced/a.dbf");
  EcritFichier(left + "/a.dbf", "new");
  Cree().reset();
  EXPECT_EQ(files->AcheveEchanges(folder / "b.dbf"), (Placed{{folder / "a.dbf", true}}));
  EXPECT_EQ(LitFichier(folder / "a.dbf"), "new");
  EXPECT_EQ(folder.Noms(), Names{"a.dbf"});
}

TEST_F(SideFolderTest, NoneOfThemGoesOverAnotherFile) {
  const std::string left = Abandonne(folder, "former/a.dbf");
  EcritFichier(left + "/former/a.dbt", "left");
  EcritFichier(folder / "a.dbf", "another");
  EXPECT_EQ(files->AcheveEchanges(folder / "a.dbf"), Placed{});
  EXPECT_EQ(LitFichier(folder / "a.dbf"), "another");
  EXPECT_EQ(LitFichier(left + "/former/a.dbt"), "left");
}

TEST_F(SideFolderTest, ThoseOfAProgramAtWorkAreLeftAlone) {
  const auto side = Cree();
  std::filesystem::create_directory(side->Chemin() + "former");
  EcritFichier(side->Chemin() + "former/a.dbf", "former");
  EXPECT_EQ(files->AcheveEchanges(folder / "a.dbf"), Placed{});
  EXPECT_EQ(folder.Noms().size(), 1U);
}

TEST_F(SideFolderTest, OneThatIsAtWorkIsLeftAlone) {
  const auto side = Cree();
  EcritFichier(side->Chemin() + "a.dbf", "table");
  Cree().reset();
  EXPECT_EQ(LitFichier(side->Chemin() + "a.dbf"), "table");
}

// --- killed at each of its system calls ------------------------------------------------------

struct KillCase {
  const char* name;
  Names former;
  Names fresh;
};

// clang-format off
const KillCase killCases[] = {
    {"one for one",        {"a.mdb"},                   {"a.mdb"}},
    {"one and none",       {},                          {"a.mdb"}},
    {"two for two",        {"a.dbf", "a.dbt"},          {"a.dbf", "a.dbt"}},
    {"two for three",      {"A.DBF", "a.cpg", "a.fpt"}, {"a.dbf", "a.dbt"}},
    {"two and none",       {},                          {"a.dbf", "a.dbt"}},
};
// clang-format on

class KilledExchange : public SideFolderTest {
 protected:
  test::End Tue(const KillCase& c, int n) {
    for (const std::string& name : folder.Noms()) std::filesystem::remove_all(folder / name);
    for (const std::string& name : c.former) EcritFichier(folder / name, "former");
    return test::TueAuPassage(n, [&] {
      const auto side = files->CreeDossierACote(folder / c.fresh.front());
      for (const std::string& name : c.fresh) EcritFichier(side->Chemin() + name, "new");
      test::ArreteToi();
      side->MetEnPlace(c.former);
      _exit(0);
    });
  }
  /// All files of one kind, whole.
  bool Tous(const Names& names, const char* bytes) {
    return folder.Noms() == names && std::all_of(names.begin(), names.end(), [&](const auto& name) {
             return LitFichier(folder / name) == bytes;
           });
  }
};

TEST_F(KilledExchange, LeavesTheFormerFilesOrTheNewOnesBehindTheNextExport) {
  for (const KillCase& c : killCases) {
    SCOPED_TRACE(c.name);
    test::End end = test::End::Killed;
    int n = 0;
    for (; end != test::End::Completed && !HasFailure(); ++n) {
      end = Tue(c, n + 1);
      if (end == test::End::NotTraceable) GTEST_SKIP() << "processes cannot be traced here";
      ASSERT_NE(end, test::End::Lost) << "stop " << n + 1;
      if (c.former.size() == 1) {
        const std::string there = LitFichier(folder / c.former[0]);
        EXPECT_TRUE(there == "former" || there == "new") << "stop " << n + 1 << ": " << there;
      }
      Cree().reset();
      files->AcheveEchanges(folder / "other.dbf");
      EXPECT_TRUE(Tous(c.former, "former") || Tous(c.fresh, "new")) << "stop " << n + 1;
    }
    EXPECT_GT(n, 4);
  }
}

TEST_F(SideFolderTest, WhoIsKilledWhileHeEndsOneLeavesItToTheNext) {
  for (const bool nouveau : {false, true}) {
    test::End end = test::End::Killed;
    for (int n = 1; end != test::End::Completed && !HasFailure(); ++n) {
      for (const std::string& name : folder.Noms()) std::filesystem::remove_all(folder / name);
      const std::string left = Abandonne(folder, nouveau ? "replaced/a.db" : "former/a.db");
      EcritFichier(left + (nouveau ? "/replaced/a.mb" : "/former/a.mb"), "left");
      for (const char* name : {"/a.db", "/a.mb"}) EcritFichier(left + name, "new");
      end = test::TueAuPassage(n, [&] {
        test::ArreteToi();
        files->AcheveEchanges(folder / "a.db");
        _exit(0);
      });
      if (end == test::End::NotTraceable) GTEST_SKIP() << "processes cannot be traced here";
      Cree().reset();
      files->AcheveEchanges(folder / "a.db");
      EXPECT_EQ(folder.Noms(), (Names{"a.db", "a.mb"})) << "stop " << n;
      for (const char* name : {"a.db", "a.mb"}) {
        EXPECT_EQ(LitFichier(folder / name), nouveau ? "new" : "left") << "stop " << n;
      }
    }
  }
}

// --- locks -------------------------------------------------------------------------------------

TEST_F(SideFolderTest, AFileThatAnotherProgramHoldsLockedIsKnown) {
  const std::string path = folder / "a.gpkg";
  EXPECT_FALSE(files->EstVerrouille(path));
  EcritFichier(path, "rows");
  std::filesystem::create_symlink(path, folder / "link.gpkg");
  EXPECT_FALSE(files->EstVerrouille(path));
  {
    const test::LockedElsewhere lock(path);
    EXPECT_TRUE(files->EstVerrouille(path));
    EXPECT_TRUE(files->EstVerrouille(folder / "link.gpkg"));
  }
  EXPECT_FALSE(files->EstVerrouille(path));
  EXPECT_FALSE(files->EstVerrouille(folder / ""));
}

TEST_F(SideFolderTest, SansLiensFollowsALinkThatLeadsNowhereToo) {
  std::filesystem::create_symlink(folder / "b.mdb", folder / "a.mdb");
  EXPECT_EQ(files->SansLiens(folder / "a.mdb"), folder / "b.mdb");
  EXPECT_EQ(files->SansLiens(folder / "c.mdb"), folder / "c.mdb");
}

}  // namespace
}  // namespace talpena
