// The catalogue through the real table engine: the file that ships, and Access files.
#include "datum_database.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "coords/test_catalogue.h"
#include "fakes/fake_platform.h"
#include "platform/foreign/jet_format.h"
#include "platform/os/file_system.h"
#include "platform/sqlite/sqlite_engine.h"

namespace talpena {
namespace {

namespace fs = std::filesystem;

/// A file that begins with "FOREIGN" as another maker's database with the catalogue in it.
class FakeForeign : public ForeignFormat, public ForeignDatabase {
 public:
  explicit FakeForeign(CatalogueSource source = test::Sources()) : source_(std::move(source)) {}

  bool Reconnait(const std::string& path, std::string_view) override {
    std::ifstream file(path);
    std::string head(7, '\0');
    return file.read(head.data(), 7) && head == "FOREIGN";
  }
  std::unique_ptr<ForeignDatabase> Ouvre(const std::string&) override {
    return std::make_unique<FakeForeign>(source_);
  }
  // Columns in another order, of other widths, and one that nobody asked for.
  std::vector<TableDef> Tables() override {
    return {{.name = "DATUM",
             .fields = {Champ("NAME", FieldType::Text, 255), Champ("CODE", FieldType::Text, 10),
                        Champ("USE", FieldType::Byte), Champ("ELLI_ID", FieldType::Long),
                        Champ("DA", FieldType::Double), Champ("DF", FieldType::Double),
                        Champ("DX", FieldType::Single), Champ("DY", FieldType::Single),
                        Champ("DZ", FieldType::Single), Champ("APPLIC", FieldType::Memo),
                        Champ("Remark", FieldType::Text, 20)},
             .indexes = {}},
            {.name = "Elli",
             .fields = {Champ("ELLI_ID", FieldType::Long), Champ("ELLI", FieldType::Text, 2),
                        Champ("ELLI_NAME", FieldType::Text, 255), Champ("A", FieldType::Double),
                        Champ("F_INV", FieldType::Double)},
             .indexes = {}}};
  }
  std::unique_ptr<RowSource> Rows(std::string_view table) override {
    return std::make_unique<Lignes>(source_, table == "DATUM");
  }

 private:
  static FieldDef Champ(std::string name, FieldType type, int size = 0) {
    return {.name = std::move(name), .type = type, .size = size, .allowZeroLength = true};
  }

  class Lignes : public RowSource {
   public:
    Lignes(CatalogueSource source, bool datums) : source_(std::move(source)), datums_(datums) {}
    bool Suivante(std::span<Cell> cells) override {
      if (at_ >= (datums_ ? source_.datums.size() : source_.ellipsoids.size())) return false;
      const auto texte = [](const std::string& text) { return Cell::Of(std::string_view(text)); };
      const auto entier = [](int value) { return Cell::Of(std::int64_t{value}); };
      std::vector<Cell> row;
      if (datums_) {
        const DatumSource& d = source_.datums[at_];
        row = {texte(d.name),       texte(d.code),        entier(source_.Use(d)),
               entier(d.ellipsoid), Cell::Of(1.0 * d.da), Cell::Of(d.df),
               Cell::Of(d.dx),      Cell::Of(d.dy),       Cell::Of(d.dz),
               texte(d.applic),     Cell::Null()};
      } else {
        const EllipsoidSource& e = source_.ellipsoids[at_];
        row = {entier(e.id), texte(e.code), texte(e.name), Cell::Of(e.a), Cell::Of(e.fInv)};
      }
      std::copy(row.begin(), row.end(), cells.begin());
      ++at_;
      return true;
    }

   private:
    CatalogueSource source_;
    bool datums_;
    std::size_t at_ = 0;
  };

  CatalogueSource source_;
};

class DatumDatabase : public testing::Test {
 protected:
  DatumDatabase() {
    fs::create_directories(dossier_);
    std::vector<std::unique_ptr<ForeignFormat>> formats;
    formats.push_back(CreeFormatJet());
    formats.push_back(std::make_unique<FakeForeign>());
    engine_ = CreeMoteurSqlite(std::move(formats));
    state_.AppDir = dossier_.string();
  }
  ~DatumDatabase() override { fs::remove_all(dossier_); }

  void Charge() {
    Platform io{*engine_, *files_, settings_, dialogues_, clock_, environment_, sound_};
    ChargeDatums(state_, io);
  }
  void Nomme(const fs::path& path) { settings_.values["TLP/DATUM/DB"] = path.string(); }

  /// `exact` is the precision that the file keeps of a shift, metres.
  void CompareAuxSources(double exact) const {
    const CatalogueSource source = test::Sources();
    std::map<std::string, const DatumSource*> byCode;
    for (const DatumSource& d : source.datums) byCode[d.code] = &d;
    ASSERT_EQ(state_.Catalogue.Datums.size(), 250U);
    for (const DatumRecord& d : state_.Catalogue.Datums) {
      SCOPED_TRACE(d.code);
      EXPECT_EQ(d.code.size(), 5U);
      const auto found = byCode.find(std::string(Rogne(d.code)));
      ASSERT_NE(found, byCode.end());
      const DatumSource& s = *found->second;
      EXPECT_EQ(d.name, s.name);
      EXPECT_EQ(d.application, s.applic);
      EXPECT_EQ(d.da, s.da);
      EXPECT_EQ(d.df, s.df);
      EXPECT_NEAR(d.dx, s.dx, exact);
      EXPECT_NEAR(d.dy, s.dy, exact);
      EXPECT_NEAR(d.dz, s.dz, exact);
      EXPECT_EQ(d.ellipsoid, s.ellipsoid);
      EXPECT_EQ(d.use, source.Use(s));
      byCode.erase(found);
    }
    ASSERT_EQ(state_.Catalogue.Ellipsoides.size(), 25U);
    for (std::size_t i = 0; i < 25; ++i) {
      const EllipsoidRecord& e = state_.Catalogue.Ellipsoides[i];
      EXPECT_EQ(e.id, static_cast<int>(i) + 1);
      EXPECT_EQ(e.code, source.ellipsoids[i].code);
      EXPECT_EQ(e.name, source.ellipsoids[i].name);
      EXPECT_EQ(e.a, source.ellipsoids[i].a);
      EXPECT_EQ(e.inverseFlattening, source.ellipsoids[i].fInv);
    }
  }

  void VerifieIndices() const {
    const DatumCatalogue& c = state_.Catalogue;
    EXPECT_EQ(Rogne(c.Datum(c.DatumWgs84).code), "WGS84");
    EXPECT_EQ(Rogne(c.Datum(c.DatumEur).code), "EUR-M");
    const char* const codes[] = {"EUR-M", "NTF", "OGB-M", "IRL", "BEL72", "MER"};
    for (std::size_t slot = 1; slot <= 6; ++slot) {
      EXPECT_EQ(Rogne(c.Datum(c.DatumsSpeciaux[slot]).code), codes[slot - 1]);
    }
    EXPECT_EQ(c.DatumsSpeciaux[0], 0);
  }

  const fs::path dossier_ =
      fs::path(testing::TempDir()) / ("datum_database_" + std::to_string(getpid()));
  std::unique_ptr<TableEngine> engine_;
  std::unique_ptr<FileSystem> files_ = CreeSystemeDeFichiers();
  test::FakeSettings settings_;
  test::FakeDialogues dialogues_;
  test::FakeClock clock_;
  test::FakeEnvironment environment_;
  test::FakeSound sound_;
  CoordState state_;
};

TEST_F(DatumDatabase, IsReadBackAsItWasWritten) {
  EcritBaseDatums(*engine_, test::Sources(), (dossier_ / "DATUM.MDB").string());
  Charge();
  EXPECT_TRUE(dialogues_.boxes.empty());
  CompareAuxSources(0);
  VerifieIndices();
}

TEST_F(DatumDatabase, IsFoundWithoutRegardToCase) {
  EcritBaseDatums(*engine_, test::Sources(), (dossier_ / "datum.mdb").string());
  Charge();
  EXPECT_TRUE(dialogues_.boxes.empty());
  EXPECT_EQ(state_.Catalogue.Datums.size(), 250U);
}

TEST_F(DatumDatabase, ShipsBesideTheProgramAsAnAccessFile) {
  const fs::path shipped = fs::path(TALPENA_BINARY_DIR) / "bin" / "DATUM.MDB";
  EXPECT_TRUE(CreeFormatJet()->Reconnait(shipped.string(), Connect::Access));
  Nomme(shipped);
  Charge();
  EXPECT_TRUE(dialogues_.boxes.empty());
  CompareAuxSources(0);
  VerifieIndices();
}

TEST_F(DatumDatabase, GivesTheRowsByNameThenAreaThenCode) {
  EcritBaseDatums(*engine_, test::Sources(), (dossier_ / "DATUM.MDB").string());
  Charge();
  const auto expected = test::CatalogueDesSources();
  ASSERT_EQ(state_.Catalogue.Datums.size(), expected.Datums.size());
  for (std::size_t i = 1; i < expected.Datums.size(); ++i) {
    const DatumRecord& a = state_.Catalogue.Datums[i - 1];
    const DatumRecord& b = state_.Catalogue.Datums[i];
    if (a.name != b.name) {
      EXPECT_LT(Majuscules(a.name), Majuscules(b.name));
    } else if (a.application == b.application) {
      EXPECT_LT(a.code, b.code);
    }
  }
}

TEST_F(DatumDatabase, HasTheColumnsOfTheFormat) {
  const std::string path = (dossier_ / "DATUM.MDB").string();
  EcritBaseDatums(*engine_, test::Sources(), path);
  const auto database = engine_->OpenDatabase(path, true);
  const TableDef datum = database->Table("Datum");
  const std::vector<std::pair<std::string, FieldType>> expected = {
      {"da", FieldType::Integer}, {"df", FieldType::Double}, {"dx", FieldType::Double},
      {"dy", FieldType::Double},  {"dz", FieldType::Double}, {"ELLI_ID", FieldType::Integer},
      {"Code", FieldType::Text},  {"Name", FieldType::Text}, {"Applic", FieldType::Text},
      {"Use", FieldType::Integer}};
  ASSERT_EQ(datum.fields.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(datum.fields[i].name, expected[i].first);
    EXPECT_EQ(datum.fields[i].type, expected[i].second);
  }
  EXPECT_EQ(datum.fields[6].size, 5);
  const TableDef elli = database->Table("ELLI");
  std::vector<std::string> names;
  for (const FieldDef& field : elli.fields) names.push_back(field.name);
  EXPECT_EQ(names, (std::vector<std::string>{"ELLI_ID", "ELLI", "ELLI_NAME", "A", "f_Inv"}));
}

TEST_F(DatumDatabase, RefusesACodeOfSixCharacters) {
  CatalogueSource source = test::Sources();
  source.datums[0].code = "INH-A1";
  try {
    EcritBaseDatums(*engine_, source, (dossier_ / "x.mdb").string());
    ADD_FAILURE();
  } catch (const TalpenaError& e) {
    EXPECT_EQ(e.number(), ErrorNumber::FieldTooSmall);
  }
}

/// A table of another database, in one of the engine's own.
void Copie(Database& from, const std::string& name, Database& to) {
  const TableDef table = from.Table(name);
  to.CreateTable(table);
  const auto rows = from.OpenRecordset(name);
  const auto copy = to.OpenRecordset(name);
  for (; !rows->EOF_(); rows->MoveNext()) {
    copy->AddNew();
    for (int i = 0; i < static_cast<int>(table.fields.size()); ++i) copy->Set(i, rows->Get(i));
    copy->Update();
  }
}

// The file that the program shipped before was one of the engine's own.
TEST_F(DatumDatabase, IsReadFromAFileOfTheEngineToo) {
  EcritBaseDatums(*engine_, test::Sources(), (dossier_ / "access.mdb").string());
  {
    const auto database = engine_->CreateDatabase((dossier_ / "DATUM.MDB").string(), NewDatabase{});
    const auto access = engine_->OpenDatabase((dossier_ / "access.mdb").string(), true);
    for (const char* table : {"Datum", "ELLI"}) Copie(*access, table, *database);
    EXPECT_EQ(database->Execute("UPDATE Datum SET [Use] = 0 WHERE Code = 'ACC'"), 1);
  }
  Charge();
  EXPECT_TRUE(dialogues_.boxes.empty());
  EXPECT_EQ(state_.Catalogue.Datums.size(), 249U) << "less the one that is out of use";
  EXPECT_EQ(ChercheDatum(state_.Catalogue, "ACC"), 0);
}

TEST_F(DatumDatabase, IsReadFromAnotherMakersFile) {
  std::ofstream(dossier_ / "genuine.mdb") << "FOREIGN";
  Nomme(dossier_ / "genuine.mdb");
  Charge();
  EXPECT_TRUE(dialogues_.boxes.empty());
  CompareAuxSources(1e-4);  // a single keeps seven digits
  VerifieIndices();
}

TEST_F(DatumDatabase, ShowsAFileThatIsNoDatabase) {
  std::ofstream(dossier_ / "DATUM.MDB") << "text";
  Charge();
  ASSERT_EQ(dialogues_.boxes.size(), 1U);
  EXPECT_TRUE(dialogues_.boxes[0].text.starts_with("Error 3343\n")) << dialogues_.boxes[0].text;
}

TEST_F(DatumDatabase, ShowsAnAccessFileWithoutTheTable) {
  const fs::path path = fs::path(TALPENA_SHARED_DATA) / "db" / "mdb" / "testV1997.mdb";
  if (!fs::exists(path)) GTEST_SKIP() << "no " << path;
  Nomme(path);
  Charge();
  ASSERT_EQ(dialogues_.boxes.size(), 1U);
  EXPECT_TRUE(dialogues_.boxes[0].text.starts_with("Error 3078\n")) << dialogues_.boxes[0].text;
}

TEST_F(DatumDatabase, SharesItsEngineWithAccessFiles) {
  const fs::path path = fs::path(TALPENA_SHARED_DATA) / "db" / "mdb" / "testV1997.mdb";
  if (!fs::exists(path)) GTEST_SKIP() << "no " << path;
  const auto database = engine_->OpenDatabase(path.string(), true);
  EXPECT_EQ(database->TableNames().size(), 4U);
  const auto rows = database->OpenRecordset("SELECT * FROM Table1 WHERE C > 0 ORDER BY A, B");
  rows->MoveLast();
  EXPECT_EQ(rows->RecordCount(), 1);
  EXPECT_EQ(rows->Get("A").Texte(), "abcdefg");
  EXPECT_EQ(rows->Get("D").Nombre(), 222);
  EXPECT_EQ(rows->Get("F").Nombre(), 444.555);
  EXPECT_EQ(rows->Get("G").Nombre(), 27293);
  EXPECT_EQ(rows->Get("H").Nombre(), 3.5);
  EXPECT_NE(rows->Get("I").Nombre(), 0);
}

}  // namespace
}  // namespace talpena
