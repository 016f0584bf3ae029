// Every target on a disk of its own that fills.
#include "common/grouped_number.h"
#include "fakes/tiny_disk.h"
#include "formats.h"
#include "interchange/database_fixture.h"

namespace talpena::test {
namespace {

struct DiskCase {
  const char* name;
  Target target;
  const char* chosen;
};

// clang-format off
constexpr DiskCase diskCases[] = {
    {"Access",     Access,         "deg.mdb"},
    {"FoxPro",     FoxPro,         "deg.dbf"},
    {"dBase",      DBase,          "deg.dbf"},
    {"Paradox",    Paradox,        "deg.db"},
    {"Excel",      Excel,          "deg.xls"},
    {"GeoPackage", GeoPackageFile, "deg.gpkg"},
    {"workbook",   Workbook,       "deg.xlsx"},
};
// clang-format on

class FullTargetDisk : public DatabaseExportTest {
 protected:
  void SetUp() override {
    if (!disk.Refus().empty()) GTEST_SKIP() << "cannot mount a disk here: " << disk.Refus();
    Prend(TousLesFormats());
    state.ExportPeriod = state.ExportOriginalCoord = state.ExportFreeField = 1;
    for (int i = 0; i < rowCount; ++i) {
      Rangee row = Ligne();
      // What a packer cannot make smaller.
      row.comment.emplace();
      for (int k = 0; k < 140; ++k) *row.comment += static_cast<char>('!' + Hasard() % 90);
      Ajoute(row);
    }
  }

  unsigned Hasard() {
    seed_ = seed_ * 1664525U + 1013904223U;
    return seed_ >> 16U;
  }

  void Prepare(fsblkcnt_t blocks) {
    for (const std::string& name : disk.Noms()) std::filesystem::remove(disk / name);
    dialogues.boxes.clear();
    disk.LaisseLibres(blocks);
  }
  /// The box, which names a file of the table by the name that the user knows, and no other.
  void VerifieBoite(const std::string& box, const std::string& end) {
    const std::string start =
        "Error 61\nThe disk is full; make room on it and try again.\n" + (disk / "deg.");
    ASSERT_TRUE(box.starts_with(start)) << box;
    ASSERT_TRUE(box.ends_with("\n" + end)) << box;
    const std::string ending = box.substr(start.size(), box.size() - start.size() - end.size() - 1);
    EXPECT_EQ(ending.find_first_not_of("abcdefghijklmnopqrstuvwxyz"), std::string::npos) << box;
  }

  static constexpr int rowCount = 3000;
  TinyDisk disk{"size=1m,nr_inodes=40"};

 private:
  unsigned seed_ = 1;
};

TEST_F(FullTargetDisk, KeepsTheFormerFileAndNamesIt) {
  for (const DiskCase& c : diskCases) {
    SCOPED_TRACE(c.name);
    for (const fsblkcnt_t blocks : {3U, 20U, 60U}) {
      SCOPED_TRACE(blocks);
      Prepare(blocks);
      EcritFichier(disk / c.chosen, "former");
      dialogues.answers = {Answer::Yes};
      ExporteVers(c.target, disk / c.chosen);
      ASSERT_EQ(Boites().size(), 2U);
      VerifieBoite(Boites()[1], "The former file stands unchanged.");
      EXPECT_EQ(LitFichier(disk / c.chosen), "former");
      EXPECT_EQ(disk.Noms(), (Texts{c.chosen, "filler"}));
    }
  }
}

TEST_F(FullTargetDisk, TellsHowManyRowsANewFileHolds) {
  for (const DiskCase& c : diskCases) {
    SCOPED_TRACE(c.name);
    std::size_t some = 0;
    for (const fsblkcnt_t blocks : {2U, 20U, 60U, 100U}) {
      SCOPED_TRACE(blocks);
      Prepare(blocks);
      ExporteVers(c.target, disk / c.chosen);
      ASSERT_EQ(Boites().size(), 1U);
      if (disk.Noms() == Texts{"filler"}) {
        VerifieBoite(Boites()[0], "No file was written.");
        continue;
      }
      for (const std::string& name : disk.Noms()) {
        EXPECT_TRUE(name == "filler" || name.find_first_of("-~") == std::string::npos) << name;
      }
      const std::size_t rows =
          LitTable(*makers, disk / c.chosen, CibleBase(c.target).connect).rows.size();
      EXPECT_GT(rows, some);
      some = rows;
      VerifieBoite(Boites()[0], "The file holds the first " +
                                    NombreGroupe(1000, static_cast<std::int64_t>(rows)) +
                                    " of 3,000 rows.");
    }
    if (c.target != Excel && c.target != Workbook) {
      EXPECT_GT(some, 0U);
    }
  }
}

}  // namespace
}  // namespace talpena::test
