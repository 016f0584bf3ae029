// The distribution files beside the project, when they are there.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/os/file_system.h"
#include "store/deg_reader.h"
#include "store/world.h"

namespace talpena {
namespace {

struct RealFile {
  const char* name;
  int rows;
  const char* datum;  ///< of the file; "" in form 1, which leaves that of the state
  int fields;
  int pivots;
  double south, north, west, east;
};

void PrintTo(const RealFile& file, std::ostream* out) { *out << file.name; }

// Rows, fields, periods and ranges as the data's own description gives them, ranges to a tenth of
// a degree.
// clang-format off
constexpr RealFile realFiles[] = {
    {"andrena_flavipes",           759, "WGS84", 11, 1,  36.4,  43.6,   -9.4,   4.2},
    {"bombus_hortorum_form1",      932, "",       0, 2,  36.8,  43.7,   -9.4,   3.1},
    {"bombus_lapidarius",          821, "EUR-M", 11, 2,  37.8,  43.6,   -8.8,   3.7},
    {"bombus_terrestris",         3245, "WGS84", 11, 2,  36.1,  43.7,   -9.5,   4.2},
    {"chameleons_east_africa",     515, "ARS-M", 11, 2,  -8.6,   5.2,  -38.6,  40.0},
    {"dendroctonus_frontalis_us",  720, "NAS-C", 11, 2,  28.7,  41.7, -111.7, -71.7},
    {"diomedea_exulans",          1098, "WGS84", 11, 2, -68.3, -30.2, -179.9, 179.9},
    {"impatiens_glandulifera",    1100, "WGS84", 11, 0,  50.7,  51.1,    3.9,   4.8},
    {"nz_freshwater_fish",          69, "GEO",   11, 2, -46.2, -34.7,  167.7, 178.1},
    {"odobenus_rosmarus",         2640, "WGS84", 11, 1,  66.3,  70.6, -172.8, -161.8},
    {"ondatra_zibethicus",         197, "EUR-M", 11, 1,  50.7,  51.3,    3.4,   4.1},
    {"pygoscelis_adeliae",        1786, "WGS84",  0, 2, -77.6, -60.6, -140.3, 171.2},
};
// clang-format on

class RealFiles : public ::testing::TestWithParam<RealFile> {
 protected:
  void SetUp() override {
    path = std::string(TALPENA_SHARED_DATA) + "/" + GetParam().name + ".deg";
    if (!std::filesystem::exists(path)) GTEST_SKIP() << path << " is not there";
  }

  void Charge() {
    Platform io{*world.engine,     *disk,      world.settings, world.dialogues, world.clock,
                world.environment, world.sound};
    LitDeg({world.state, io, world.vue, world.vue, world.vue}, path, MergeMode::Replace);
  }

  double Nombre(Recordset& rows, int field) { return rows.Get(field).Nombre(); }

  void ExpectRange(int field, double low, double high) {
    const char* name = field == Column::LATITUDE ? "LATITUDE" : "LONGITUDE";
    const std::string sql = std::string("SELECT * FROM TALPENA ORDER BY ") + name;
    const auto rows = world.state.document.WorkingDb->OpenRecordset(sql);
    EXPECT_NEAR(Nombre(*rows, field), low, 0.0501) << name;
    rows->MoveLast();
    EXPECT_NEAR(Nombre(*rows, field), high, 0.0501) << name;
  }

  /// The row lines, found by other means than the reader's.
  std::vector<std::string> LignesDuFichier() const {
    std::ifstream in(path, std::ios::binary);
    std::stringstream bytes;
    bytes << in.rdbuf();
    std::vector<std::string> lines = Decoupe(bytes.str(), '\r');
    for (std::string& line : lines) {
      if (!line.empty() && line[0] == '\n') line.erase(0, 1);
    }
    std::erase_if(lines,
                  [](const std::string& line) { return line.size() < 31 || line[1] != 'K'; });
    return lines;
  }

  test::World world;
  std::unique_ptr<FileSystem> disk = CreeSystemeDeFichiers();
  std::string path;
};

TEST_P(RealFiles, LoadWithEveryRow) {
  Platform io{world.io.engine,   *disk,      world.settings, world.dialogues, world.clock,
              world.environment, world.sound};
  LitDeg({world.state, io, world.vue, world.vue, world.vue}, path, MergeMode::Replace);
  ASSERT_TRUE(world.dialogues.boxes.empty()) << world.dialogues.boxes[0].text;
  const RealFile& file = GetParam();
  Recordset& rows = world.state.document.Data1.recordset();
  EXPECT_EQ(rows.RecordCount(), file.rows);
  EXPECT_EQ(world.state.document.Entete().DatumFichierCode,
            *file.datum == '\0' ? "EUR-M" : file.datum);
  EXPECT_EQ(world.state.document.Entete().FreeFieldCount, file.fields);
  EXPECT_EQ(world.state.document.Entete().NbPivots, file.pivots);
  EXPECT_NE(world.vue.boxTitre, "");
  ExpectRange(Column::LATITUDE, file.south, file.north);
  ExpectRange(Column::LONGITUDE, file.west, file.east);
}

TEST_P(RealFiles, HoldTheTextsOfTheirLines) {
  Platform io{world.io.engine,   *disk,      world.settings, world.dialogues, world.clock,
              world.environment, world.sound};
  LitDeg({world.state, io, world.vue, world.vue, world.vue}, path, MergeMode::Replace);
  const std::vector<std::string> lines = LignesDuFichier();
  Recordset& rows = world.state.document.Data1.recordset();
  ASSERT_EQ(rows.RecordCount(), static_cast<std::int64_t>(lines.size()));
  for (const std::string& line : lines) {
    ASSERT_EQ(rows.Get(Column::PERIOD).integer, line[0] - '0');
    if (line.size() > 71) {
      ASSERT_EQ(Utf8VersCp1252(rows.Get(Column::DATE).text), line.substr(31, 10));
      ASSERT_EQ(Utf8VersCp1252(rows.Get(Column::ORIGINAL).text), line.substr(47, 24));
      const std::string comment = *Utf8VersCp1252(rows.Get(Column::COMMENT).text);
      const std::string inFile = line.substr(71);
      ASSERT_GE(comment.size(), inFile.size());
      ASSERT_EQ(comment.substr(comment.size() - inFile.size()), inFile);
    }
    rows.MoveNext();
  }
}

INSTANTIATE_TEST_SUITE_P(All, RealFiles, ::testing::ValuesIn(realFiles),
                         [](const auto& file) { return std::string(file.param.name); });

}  // namespace
}  // namespace talpena
