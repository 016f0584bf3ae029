// Real distributions, when they are there, go into every format and come back.
#include <algorithm>
#include <filesystem>

#include "common/grouped_number.h"
#include "formats.h"
#include "interchange/database_fixture.h"
#include "interchange/export_options.h"
#include "store/deg_reader.h"

namespace talpena::test {
namespace {

constexpr const char* names[] = {"a.mdb", "a.dbf", "a.dbf", "a.db", "a.xls", "a.gpkg", "a.xlsx"};

class RealDatabases : public DatabaseExportTest {
 protected:
  RealDatabases() { Prend(TousLesFormats()); }

  /// The file's rows in the table, and all columns on.
  void Ouvre(const std::string& file) {
    for (const ExportBox& box : CasesExport()) state.*box.flag = 1;
    LitDeg(context, file, MergeMode::Replace);
  }

  /// A row has a value that is longer than its column.
  bool EstTropLong() const {
    return std::any_of(dialogues.boxes.begin(), dialogues.boxes.end(),
                       [](const MessageBox& box) { return box.text.starts_with("Error 3163\n"); });
  }
};

TEST_F(RealDatabases, GoIntoEveryFormatAndComeBack) {
  const std::filesystem::path shared = TALPENA_SHARED_DATA;
  if (!std::filesystem::is_directory(shared)) GTEST_SKIP() << shared << " is not there";
  int found = 0;
  for (const auto& entry : std::filesystem::directory_iterator(shared)) {
    if (entry.path().extension() != ".deg") continue;
    Ouvre(entry.path().string());
    dialogues.boxes.clear();
    const std::string rows = NombreGroupe(state.Langue, NombreLignes());
    for (int target = Access; target <= Workbook; ++target) {
      SCOPED_TRACE(entry.path().filename().string() + " as " + names[target]);
      for (const std::string& name : folder.Noms()) std::filesystem::remove(folder / name);
      state.document.DitResultat({});
      ExporteVers(target, folder / names[target]);
      // Comments beyond 150 characters end an export to the five old formats.
      if (target <= Excel && EstTropLong()) {
        dialogues.boxes.clear();
        state.ExportFreeField = 0;
        for (const std::string& name : folder.Noms()) std::filesystem::remove(folder / name);
        ExporteVers(target, folder / names[target]);
        state.ExportFreeField = 1;
      }
      EXPECT_EQ(Boites(), Texts{});
      EXPECT_EQ(Avis(), rows + " rows written and read back");
      dialogues.boxes.clear();
    }
    ++found;
  }
  EXPECT_GT(found, 0);
}

}  // namespace
}  // namespace talpena::test
