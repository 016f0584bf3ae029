// Searches in tables that other programs made, and in the gazetteer that ships.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "gazetteer/kept_world.h"
#include "gazetteer/place_index.h"
#include "gazetteer/place_point.h"

namespace talpena {
namespace {

namespace fs = std::filesystem;
using test::KeptWorld;
using Names = std::vector<std::string>;

struct RealTable {
  const char* name;
  const char* files;  ///< folder under the real data
  const char* file;   ///< "" for the folder
  const char* connect;
  const char* table;
  const char* nameField;
  const char* latitude;
  const char* longitude;
  std::int16_t type;
  const char* exact;
  Names found;
  const char* start;
  std::size_t begins;
};

// Expected: the tables as mdb-export and a dump of their bytes show them.
const RealTable realTables[] = {
    {"Access",
     "mdb",
     "testV1997.mdb",
     "",
     "Table1",
     "A",
     "D",
     "E",
     1,
     "ABCDEFG",
     {"abcdefg"},
     "a",
     2},
    {"dBase",
     "dbf",
     "",
     "dBase IV;",
     "provincias_es",
     "Texto",
     "Codigo",
     "Cod_CCAA",
     1,
     "álava",
     {"Álava"},
     "b",
     3},
    {"Paradox",
     "paradox",
     "",
     "Paradox 4.X;",
     "County",
     "County",
     "CountyID",
     "CountyID",
     0,
     "abbeville",
     {"Abbeville"},
     "aca",
     1},
};

struct RealGazetteers : testing::Test, KeptWorld {};

TEST_F(RealGazetteers, AreSearchedInEachFormatAndStayAsTheyAre) {
  const fs::path real = fs::path(TALPENA_SHARED_DATA) / "db";
  if (!fs::exists(real)) GTEST_SKIP() << "no tables at " << real;
  for (const RealTable& t : realTables) {
    SCOPED_TRACE(t.name);
    const fs::path own = dossier.path() / t.files;
    fs::copy(real / t.files, own, fs::copy_options::recursive);
    state.GeoFile = (*t.file == '\0' ? own : own / t.file).string();
    state.GeoDbType = t.connect;
    state.GeoTable = t.table;
    state.GeoResearchField = state.GeoFullNameField = t.nameField;
    state.GeoLatitudeField = t.latitude;
    state.GeoLongitudeField = t.longitude;
    state.GeoCoordType = t.type;
    for (std::string* field : {&state.GeoFipsField, &state.GeoFeatureField, &state.GeoProvinceField,
                               &state.GeoCountryName, &state.GeoProvinceName}) {
      field->clear();
    }
    for (int turn = 0; turn < 2; ++turn) {  // read from the file, then from its copy
      EXPECT_EQ(Trouve(t.exact), t.found);
      EXPECT_EQ(Trouve(t.start, GeoSearch::Approximate).size(), t.begins);
      ASSERT_GT(query.ListView1.Nombre(), 0U);
      EXPECT_NE(query.ListView1.Item(0).Texte(PlaceColumn::LatitudeDms), "");
      query.base.Ferme();
    }
    for (const auto& entry : fs::directory_iterator(own)) {
      if (!entry.is_regular_file()) continue;
      EXPECT_TRUE(test::LitFichier(entry.path().string()) ==
                  test::LitFichier((real / t.files / entry.path().filename()).string()))
          << entry.path();
    }
  }
  EXPECT_EQ(Copies().size(), std::size(realTables));
}

/// The shipped gazetteer with the settings of a first run.
struct ShippedSearch : RealGazetteers {
  ShippedSearch() {
    const SettingsState first;
    static_cast<SettingsState&>(state) = first;
    state.Langue = 1000;
    state.AppDir = TALPENA_BINARY_DIR "/bin";
    state.GeoFile = environment.LecteurCD() + "tlpgazet.mdb";
    state.GeoDatum = "WGS84";
  }
};

TEST_F(ShippedSearch, AFirstRunFindsPlaces) {
  EXPECT_EQ(Trouve("saintghislain"), Names{"Saint-Ghislain"});
  EXPECT_EQ(query.ListView1.Item(0).Texte(PlaceColumn::Country), "Belgium");
  EXPECT_EQ(query.ListView1.Item(0).icon, PlaceIcon::Populated);
  EXPECT_EQ(Trouve("letanglaville"), Names{"L'Étang-la-Ville"});
  EXPECT_EQ(Trouve("lodz"), Names{"Łódź"});
  Cherche("", GeoSearch::Approximate);
  EXPECT_EQ(sound.bips, 1);
  Cherche(" ", GeoSearch::Approximate);
  EXPECT_EQ(query.lblNbre, "135219") << "all, those without a plain form left out";
}

TEST_F(ShippedSearch, WhileTypingNamesAreFoundAsTheyAreSpelledOrNot) {
  PlaceIndex index;
  Names names;
  const auto rows = query.base.Ouvre(state, io).OpenRecordset(
      "SELECT [Full_Name], [Latitude], [Longitude] FROM [TLPGazet_Decoding]");
  std::vector<Cell> cells(3);
  for (; !rows->EOF_(); rows->MoveNext()) {
    rows->LitLigne(cells);
    const auto point = PointDuLieu(cells[1], cells[2], state.GeoCoordType);
    names.push_back(cells[0].Texte());
    index.Ajoute(names.back(),
                 point ? std::optional(GeoPoint{point->latitude, point->longitude}) : std::nullopt);
  }
  index.Termine();
  const auto finds = [&](const std::string& typed, const std::string& name, PlaceMatch match) {
    const auto hits = index.Cherche(typed, GeoPoint{50.45, 3.82});
    return std::any_of(hits.begin(), hits.end(), [&](const PlaceHit& hit) {
      return names[hit.row] == name && hit.match == match;
    });
  };
  EXPECT_TRUE(finds("Saint-Gh", "Saint-Ghislain", PlaceMatch::Begins));
  EXPECT_TRUE(finds("nt-ghis", "Saint-Ghislain", PlaceMatch::Contains));
  EXPECT_TRUE(finds("saintgh", "Saint-Ghislain", PlaceMatch::Plain));
  EXPECT_TRUE(finds("l'étang-la", "L'Étang-la-Ville", PlaceMatch::Begins));
  EXPECT_TRUE(finds("letang la", "L'Étang-la-Ville", PlaceMatch::Plain));
  EXPECT_TRUE(finds("lodz", "Łódź", PlaceMatch::Plain));
  EXPECT_TRUE(finds("ahmadbayli", "Əhmədbəyli", PlaceMatch::Plain));
  EXPECT_TRUE(finds("ba don", "Ba Đồn", PlaceMatch::Plain));
}

}  // namespace
}  // namespace talpena
