// Places of exports that another program uses, or that a killed export left.
#include <optional>
#include <utility>

#include "fakes/locked_elsewhere.h"
#include "interchange/database_fixture.h"
#include "platform/os/left_overs.h"

namespace talpena::test {
namespace {

class DatabaseInUse : public DatabaseExportTest {
 protected:
  DatabaseInUse() {
    std::vector<std::unique_ptr<ForeignFormat>> formats;
    formats.push_back(std::make_unique<FakeMaker>(package));
    formats.push_back(std::make_unique<FakeMaker>(tables));
    Prend(std::move(formats));
    state.ExportPeriod = 1;
    Ajoute(Ligne());
  }
  void Vide() {
    dialogues.boxes.clear();
    for (const std::string& name : folder.Noms()) std::filesystem::remove_all(folder / name);
  }

  MakerRules package{.connect = "GeoPackage;"};
  MakerRules tables{.connect = dBaseConnect, .endings = {".dbf", ".dbt"}};
  const std::string inUse =
      "Error 3045\nAnother program is using the file; close it there and try "
      "again.\n";
};

/// As the box says it.
std::string JournalDit(const std::string& journal) {
  return "Error 3045\n“" + journal +
         "” lies beside this place, so another program has not finished with the file; open it "
         "there and close it, or choose another name.";
}

constexpr const char* journals[] = {"-wal", "-shm", "-journal"};

TEST_F(DatabaseInUse, AJournalBesideAGeoPackageIsRefusedBeforeAnythingIsAsked) {
  for (const bool there : {true, false}) {
    for (const char* ending : journals) {
      SCOPED_TRACE(ending);
      Vide();
      if (there) EcritFichier(folder / "deg.gpkg", "former");
      const std::string journal = folder / (std::string("deg.gpkg") + ending);
      EcritFichier(journal, "rows of another program");
      const Texts before = folder.Noms();
      ExporteVers(GeoPackageFile, folder / "deg.gpkg");
      EXPECT_EQ(Boites(), Texts{JournalDit(journal)});
      EXPECT_EQ(folder.Noms(), before);
      if (there) {
        EXPECT_EQ(LitFichier(folder / "deg.gpkg"), "former");
      }
    }
  }
}

// SQLite looks for them beside the file that the link leads to.
TEST_F(DatabaseInUse, SoIsOneBesideTheFileBehindALink) {
  EcritFichier(folder / "real.gpkg", "former");
  EcritFichier(folder / "real.gpkg-wal", "rows of another program");
  std::filesystem::create_symlink(folder / "real.gpkg", folder / "deg.gpkg");
  ExporteVers(GeoPackageFile, folder / "deg.gpkg");
  EXPECT_EQ(Boites(), Texts{JournalDit(folder / "real.gpkg-wal")});
  EXPECT_EQ(LitFichier(folder / "real.gpkg"), "former");
}

TEST_F(DatabaseInUse, AJournalThatComesDuringTheExportKeepsTheFormerFile) {
  EcritFichier(folder / "deg.gpkg", "former");
  package.avantLigne = [this](std::int64_t) { EcritFichier(folder / "deg.gpkg-wal", "rows"); };
  dialogues.answers = {Answer::Yes};
  ExporteVers(GeoPackageFile, folder / "deg.gpkg");
  ASSERT_EQ(Boites().size(), 2U);
  EXPECT_EQ(Boites()[1],
            JournalDit(folder / "deg.gpkg-wal") + "\nThe former file stands unchanged.");
  EXPECT_EQ(LitFichier(folder / "deg.gpkg"), "former");
  EXPECT_EQ(folder.Noms(), (Texts{"deg.gpkg", "deg.gpkg-wal"}));
}

TEST_F(DatabaseInUse, OtherTargetsKnowNoJournals) {
  EcritFichier(folder / "deg.dbf-wal", "whatever it is");
  ExporteVers(DBase, folder / "deg.dbf");
  EXPECT_EQ(Avis(), "1 rows written and read back");
}

TEST_F(DatabaseInUse, AFileThatAnotherProgramHoldsLockedIsRefusedBeforeAnythingIsAsked) {
  constexpr std::pair<Target, const char*> held[] = {{GeoPackageFile, "deg.gpkg"},
                                                     {DBase, "deg.dbt"}};
  for (const auto& [target, name] : held) {
    Vide();
    EcritFichier(folder / name, "former");
    const LockedElsewhere lock(folder / name);
    ExporteVers(target, folder / "deg.gpkg");
    EXPECT_EQ(Boites(), Texts{inUse + (folder / name)});
    EXPECT_EQ(LitFichier(folder / name), "former");
    EXPECT_EQ(folder.Noms(), Texts{name});
  }
}

TEST_F(DatabaseInUse, ALockThatComesDuringTheExportKeepsTheFormerFile) {
  EcritFichier(folder / "deg.gpkg", "former");
  std::optional<LockedElsewhere> lock;
  package.avantLigne = [&](std::int64_t) { lock.emplace(folder / "deg.gpkg"); };
  dialogues.answers = {Answer::Yes};
  ExporteVers(GeoPackageFile, folder / "deg.gpkg");
  ASSERT_EQ(Boites().size(), 2U);
  EXPECT_EQ(Boites()[1], inUse + (folder / "deg.gpkg") + "\nThe former file stands unchanged.");
  EXPECT_EQ(LitFichier(folder / "deg.gpkg"), "former");
}

// --- left by a killed export -------------------------------------------------------------------

TEST_F(DatabaseInUse, FormerFilesOfAKilledExportStandAgainBeforeTheQuestion) {
  const std::string left = folder / NomDeDossier("deg.dbf");
  std::filesystem::create_directories(left + "/former");
  EcritFichier(left + "/former/deg.dbf", "former");
  EcritFichier(left + "/deg.dbf", "new");
  dialogues.answers = {Answer::Cancel};
  ExporteVers(DBase, folder / "deg.dbf");
  ASSERT_EQ(Boites().size(), 2U);
  EXPECT_EQ(Boites()[0],
            "An export into this folder was interrupted; the former files are back in their "
            "places.");
  EXPECT_EQ(dialogues.boxes[0].detail, folder / "deg.dbf");
  EXPECT_EQ(Boites()[1], "File already exists! Replace?");
  EXPECT_EQ(LitFichier(folder / "deg.dbf"), "former");
  EXPECT_EQ(folder.Noms(), Texts{"deg.dbf"});
}

TEST_F(DatabaseInUse, NewFilesOfAKilledExportAreToldToo) {
  const std::string left = folder / NomDeDossier("deg.dbf");
  std::filesystem::create_directories(left + "/replaced");
  EcritFichier(left + "/deg.dbf", "new");
  EcritFichier(left + "/deg.dbt", "its memos");
  ExporteVers(DBase, folder / "other.dbf");
  EXPECT_EQ(Boites(), Texts{"An export into this folder was interrupted while its files took "
                            "their places; they stand there now."});
  EXPECT_EQ(dialogues.boxes[0].detail, (folder / "deg.dbf") + "\n" + (folder / "deg.dbt"));
  EXPECT_EQ(Avis(), "1 rows written and read back");
  EXPECT_EQ(folder.Noms(), (Texts{"deg.dbf", "deg.dbt", "other.dbf", "other.dbt"}));
}

// --- which files go ----------------------------------------------------------------------------

TEST_F(DatabaseInUse, TheQuestionNamesEveryFileThatGoes) {
  for (const char* name : {"deg.dbf", "deg.dbt", "deg.fpt"}) EcritFichier(folder / name, "former");
  dialogues.answers = {Answer::No};
  dialogues.paths = {folder / "deg.dbf", ""};
  Lance(FoxPro);
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].detail,
            (folder / "deg.dbf") + "\n" + (folder / "deg.fpt") + "\n" + (folder / "deg.dbt"));
}

}  // namespace
}  // namespace talpena::test
