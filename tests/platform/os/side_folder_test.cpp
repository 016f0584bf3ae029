// Folders beside a place, in which files wait until they take their places together.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "common/talpena_error.h"
#include "fakes/temp_folder.h"
#include "platform/os/file_system.h"
#include "platform/os/left_overs.h"

namespace talpena {
namespace {

using test::EcritFichier;
using test::LitFichier;
using Names = std::vector<std::string>;

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
std::string Abandonne(const test::TempFolder& folder, const char* name) {
  std::string path = folder / NomDeDossier("a.dbf");
  std::filesystem::create_directory(path);
  EcritFichier(path + "/" + name, "left");
  return path;
}

TEST_F(SideFolderTest, WhatAKilledProgramLeftGoesWithTheNextOne) {
  Abandonne(folder, "a.dbf");
  EXPECT_TRUE(files->Restes(folder / "a.dbf").empty());
  Cree().reset();
  EXPECT_TRUE(folder.Noms().empty());
}

TEST_F(SideFolderTest, FormerFilesThatAKilledProgramLeftStay) {
  const std::string left = Abandonne(folder, "former-0");
  Cree().reset();
  EXPECT_EQ(LitFichier(left + "/former-0"), "left");
}

TEST_F(SideFolderTest, OneThatIsAtWorkIsLeftAlone) {
  const auto side = Cree();
  EcritFichier(side->Chemin() + "a.dbf", "table");
  Cree().reset();
  EXPECT_EQ(LitFichier(side->Chemin() + "a.dbf"), "table");
}

TEST_F(SideFolderTest, SansLiensFollowsALinkThatLeadsNowhereToo) {
  std::filesystem::create_symlink(folder / "b.mdb", folder / "a.mdb");
  EXPECT_EQ(files->SansLiens(folder / "a.mdb"), folder / "b.mdb");
  EXPECT_EQ(files->SansLiens(folder / "c.mdb"), folder / "c.mdb");
}

}  // namespace
}  // namespace talpena
