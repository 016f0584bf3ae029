// The gazetteer as it lies beside the program, read by the table engine and by mdbtools.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "common/numbers.h"
#include "places/gazetteer_database.h"
#include "places/gzip_file.h"
#include "places/place_source.h"
#include "platform/foreign/jet_files.h"
#include "platform/foreign/mdb_tools.h"
#include "platform/sqlite/sqlite_engine.h"

namespace talpena {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t published = 135219;
const std::string shipped = std::string(TALPENA_BINARY_DIR) + "/bin/tlpgazet.mdb";

std::vector<Place> LieuxLivres() {
  return LitLieux(LitGzip(TALPENA_SOURCE_DIR "/data/gazetteer/places.gz"));
}

/// The shipped file through the table engine, as a search opens it.
class ShippedGazetteer : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    std::vector<std::unique_ptr<ForeignFormat>> formats;
    formats.push_back(CreeFormatJet());
    engine_ = CreeMoteurSqlite(std::move(formats));
    base_ = engine_->OpenDatabase(shipped, true);
  }
  static void TearDownTestSuite() {
    base_.reset();
    engine_.reset();
  }
  /// The rows that answer to a condition, in the order of the search field.
  static std::unique_ptr<Recordset> Cherche(const std::string& condition) {
    return base_->OpenRecordset("SELECT * FROM [TLPGazet_Decoding] WHERE " + condition +
                                " ORDER BY [Sort_Name];");
  }
  static std::string Texte(Recordset& rows, const char* field) { return rows.Get(field).Texte(); }

  static inline std::unique_ptr<TableEngine> engine_;
  static inline std::unique_ptr<Database> base_;
};

TEST_F(ShippedGazetteer, HasTheTableOfTheDefaultSettings) {
  const auto tables = base_->Tables();
  const auto table = std::find_if(tables.begin(), tables.end(), [](const TableDef& t) {
    return t.name == ShippedGazetteerTable;
  });
  ASSERT_NE(table, tables.end());
  std::vector<std::string> names;
  for (const FieldDef& field : table->fields) names.push_back(field.name);
  EXPECT_EQ(names,
            (std::vector<std::string>{"Sort_Name", "Full_Name", "Latitude", "Longitude", "FIPS_QRN",
                                      "Feature_Desig_Code", "Country_Name", "Province_Name"}));
  EXPECT_EQ(static_cast<std::size_t>(base_->OpenRecordset("TLPGazet_Decoding")->RecordCount()),
            published);
}

struct Town {
  const char* key;
  const char* name;
  const char* country;
  double latitude, longitude;
};

// To the minute. Saint-Ghislain: the municipality's own (50°27' N, 3°49' E). All others: zone.tab
// of the tz database, which has the principal town of each zone.
constexpr Town towns[] = {
    {"SAINTGHISLAIN", "Saint-Ghislain", "Belgium", 50 + 27 / 60.0, 3 + 49 / 60.0},
    {"BRUSSELS", "Brussels", "Belgium", 50 + 50 / 60.0, 4 + 20 / 60.0},
    {"PARIS", "Paris", "France", 48 + 52 / 60.0, 2 + 20 / 60.0},
    {"ZURICH", "Zürich", "Switzerland", 47 + 23 / 60.0, 8 + 32 / 60.0},
    {"PRAGUE", "Prague", "Czechia", 50 + 5 / 60.0, 14 + 26 / 60.0},
    {"WARSAW", "Warsaw", "Poland", 52 + 15 / 60.0, 21.0},
    {"NUUK", "Nuuk", "Greenland", 64 + 11 / 60.0, -51 - 44 / 60.0},
    {"SAOPAULO", "São Paulo", "Brazil", -23 - 32 / 60.0, -46 - 37 / 60.0},
    {"NAIROBI", "Nairobi", "Kenya", -1 - 17 / 60.0, 36 + 49 / 60.0},
    {"HOBART", "Hobart", "Australia", -42 - 53 / 60.0, 147 + 19 / 60.0},
    {"AUCKLAND", "Auckland", "New Zealand", -36 - 52 / 60.0, 174 + 46 / 60.0},
    {"LIMA", "Lima", "Peru", -12 - 3 / 60.0, -77 - 3 / 60.0},
};

TEST_F(ShippedGazetteer, HasKnownTownsWhereTheyAre) {
  for (const Town& town : towns) {
    SCOPED_TRACE(town.name);
    const auto rows = Cherche("[Sort_Name] = '" + std::string(town.key) +
                              "' AND [Country_Name] = '" + town.country + "'");
    ASSERT_GE(rows->RecordCount(), 1);
    EXPECT_EQ(Texte(*rows, "Full_Name"), town.name);
    EXPECT_NEAR(rows->Get("Latitude").Nombre(), town.latitude, 0.035);
    EXPECT_NEAR(rows->Get("Longitude").Nombre(), town.longitude, 0.035);
  }
}

TEST_F(ShippedGazetteer, FindsNamesBeyondTheCodePageByTheirPlainForm) {
  constexpr std::array<std::pair<const char*, const char*>, 4> names = {
      {{"LODZ", "Łódź"}, {"ABADEH", "Ābādeh"}, {"AHMADBAYLI", "Əhmədbəyli"}, {"BADON", "Ba Đồn"}}};
  for (const auto& [key, name] : names) {
    const auto rows = Cherche("[Sort_Name] = '" + std::string(key) + "'");
    ASSERT_EQ(rows->RecordCount(), 1) << key;
    EXPECT_EQ(Texte(*rows, "Full_Name"), name);
  }
}

TEST_F(ShippedGazetteer, FindsTheBeginningsOfNames) {
  const auto rows = Cherche("[Sort_Name] LIKE 'SAINTGH*'");
  ASSERT_EQ(rows->RecordCount(), 1);
  EXPECT_EQ(Texte(*rows, "FIPS_QRN"), "BE");
  EXPECT_EQ(Texte(*rows, "Feature_Desig_Code"), "PPL");
  EXPECT_EQ(Texte(*rows, "Province_Name"), "Wallonia");
}

TEST_F(ShippedGazetteer, PutsTheCapitalBeforeItsNamesakes) {
  const auto rows = Cherche("[Sort_Name] = 'PARIS'");
  ASSERT_GT(rows->RecordCount(), 5);
  EXPECT_EQ(Texte(*rows, "Country_Name"), "France");
}

TEST_F(ShippedGazetteer, LeavesUnknownProvincesAndCodesNull) {
  EXPECT_EQ(Cherche("[Province_Name] IS NULL")->RecordCount(), 887);
  // The places of Palestine whose part is not known.
  EXPECT_EQ(Cherche("[FIPS_QRN] IS NULL")->RecordCount(), 18);
  EXPECT_EQ(Cherche("[Full_Name] IS NULL OR [Country_Name] IS NULL OR [Feature_Desig_Code] IS NULL")
                ->RecordCount(),
            0);
}

/// What is compared of a row: the name, its key, the point in units.
using Identity = std::tuple<std::string, std::string, long, long>;

long Unites(double degrees) { return std::lround(degrees * Place::UnitsOfDegree); }

TEST(ShippedGazetteerFile, IsReadAlikeByMdbtools) {
  using test::Sortie;
  NEEDS_MDBTOOLS();
  std::vector<Identity> expected;
  for (const Place& p : LieuxLivres())
    expected.emplace_back(p.name, p.key, p.latitude, p.longitude);
  std::vector<Identity> read;
  for (const auto& row : test::LignesExportees(shipped, ShippedGazetteerTable)) {
    ASSERT_EQ(row.size(), 8U);
    read.emplace_back(row[1], row[0], Unites(Val(row[2])), Unites(Val(row[3])));
  }
  std::sort(expected.begin(), expected.end());
  std::sort(read.begin(), read.end());
  EXPECT_EQ(read.size(), published);
  EXPECT_TRUE(read == expected);
}

TEST(ShippedPlaces, AreThePublishedOnes) {
  const fs::path source = fs::path(TALPENA_SHARED_DATA) / "gazetteer" / "places.csv.gz";
  if (!fs::exists(source)) GTEST_SKIP() << "no places at " << source;
  // In the one order of the compact form, whatever the source's.
  EXPECT_TRUE(EcritLieux(LitLieuxPublies(source.string())) ==
              LitGzip(TALPENA_SOURCE_DIR "/data/gazetteer/places.gz"));
  EXPECT_EQ(LieuxLivres().size(), published);
}

}  // namespace
}  // namespace talpena
