// Real distributions, when they are there, go out whole.
#include <filesystem>

#include "interchange/export_fixture.h"
#include "interchange/export_options.h"
#include "store/deg_reader.h"

namespace talpena::test {
namespace {

class RealExports : public TextExportTest {
 protected:
  /// The file's rows in the table, and all columns on.
  void Ouvre(const std::string& file) {
    for (const ExportBox& box : CasesExport()) state.*box.flag = 1;
    LitDeg(context, file, MergeMode::Replace);
  }
  std::vector<std::string> LignesExportees() {
    std::filesystem::remove(path);
    return Lignes(Exporte(Tabs));
  }
};

TEST_F(RealExports, HoldAllRowsOfEveryFileWithAndWithoutXAndY) {
  const std::filesystem::path shared = TALPENA_SHARED_DATA;
  if (!std::filesystem::is_directory(shared)) GTEST_SKIP() << shared << " is not there";
  int found = 0;
  for (const auto& entry : std::filesystem::directory_iterator(shared)) {
    if (entry.path().extension() != ".deg") continue;
    SCOPED_TRACE(entry.path());
    Ouvre(entry.path().string());
    const auto rows = static_cast<std::size_t>(NombreLignes());
    for (const std::int16_t system : {std::int16_t{-1}, std::int16_t{7}}) {
      state.ExportCoordSystem = system;
      EXPECT_EQ(LignesExportees().size(), rows + 1);
      EXPECT_EQ(Boites(), std::vector<std::string>());
    }
    ++found;
  }
  EXPECT_GT(found, 0);
}

}  // namespace
}  // namespace talpena::test
