#include "platform/foreign/folder_of_tables.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "common/talpena_error.h"
#include "fakes/temp_folder.h"

namespace talpena {
namespace {

namespace fs = std::filesystem;

class FolderOfTablesTest : public ::testing::Test {
 protected:
  void Pose(const char* name) const { test::EcritFichier(folder_ / name, "x"); }
  std::string Chemin(const char* name) const { return folder_ / name; }
  static std::vector<std::string> Noms(const FolderOfTables& folder) {
    std::vector<std::string> names;
    for (const TableFile& file : folder.Tables()) names.push_back(file.table);
    return names;
  }

  test::TempFolder folder_;
};

TEST_F(FolderOfTablesTest, ListsItsFilesByNameWhateverTheCaseOfTheEnding) {
  for (const char* name : {"bees.dbf", "ANTS.DBF", "wasps.Dbf", "bees.dbt", "notes.txt", ".dbf"}) {
    Pose(name);
  }
  fs::create_directory(Chemin("folder.dbf"));
  const FolderOfTables folder(folder_.path().string(), ".dbf");
  EXPECT_EQ(Noms(folder), (std::vector<std::string>{"ANTS", "bees", "wasps"}));
  EXPECT_EQ(folder.Tables()[1].path, Chemin("bees.dbf"));
}

TEST_F(FolderOfTablesTest, GivesANameOnce) {
  Pose("BEES.DBF");
  Pose("bees.dbf");
  EXPECT_EQ(Noms(FolderOfTables(folder_.path().string(), ".dbf")),
            (std::vector<std::string>{"BEES"}));
}

TEST_F(FolderOfTablesTest, IsTheOneTableWhenItsFileIsNamed) {
  Pose("bees.dbf");
  Pose("my.file.dbf");
  const FolderOfTables folder(Chemin("my.file.dbf"), ".dbf");
  EXPECT_EQ(Noms(folder), (std::vector<std::string>{"my.file"}));
  EXPECT_EQ(folder.FichierDe("BEES"), Chemin("bees.dbf"));
}

TEST_F(FolderOfTablesTest, FindsWhatIsInTheWayOfANewTable) {
  Pose("Bees.DBF");
  fs::create_directory(Chemin("folder.dbf"));
  const FolderOfTables folder(folder_.path().string(), ".dbf");
  EXPECT_EQ(folder.FichierDe("bees"), Chemin("Bees.DBF"));
  EXPECT_EQ(folder.FichierDe("folder"), Chemin("folder.dbf"));
  EXPECT_FALSE(folder.FichierDe("bee"));
  EXPECT_EQ(folder.Place("bee", ".dbf"), Chemin("bee.dbf"));
}

TEST_F(FolderOfTablesTest, IsMissing) {
  const FolderOfTables folder(Chemin("nowhere/bees.dbf"), ".dbf");
  try {
    static_cast<void>(folder.FichierDe("bees"));
    ADD_FAILURE();
  } catch (const TalpenaError& error) {
    EXPECT_EQ(error.number(), ErrorNumber::DatabaseNotFound);
  }
}

TEST_F(FolderOfTablesTest, FindsATablesOwnMemoFile) {
  EXPECT_FALSE(FichierVoisin(Chemin("bees.dbf"), ".dbt"));
  Pose("ants.dbt");
  Pose("BEES.Dbt");
  EXPECT_EQ(FichierVoisin(Chemin("bees.dbf"), ".dbt"), Chemin("BEES.Dbt"));
  Pose("bees.DBT");
  EXPECT_EQ(FichierVoisin(Chemin("bees.dbf"), ".dbt"), Chemin("bees.DBT"));
  Pose("bees.dbt");
  EXPECT_EQ(FichierVoisin(Chemin("bees.dbf"), ".dbt"), Chemin("bees.dbt"));
  EXPECT_EQ(FichierVoisin(Chemin("BEES"), ".dbt"), Chemin("BEES.Dbt"));
}

}  // namespace
}  // namespace talpena
