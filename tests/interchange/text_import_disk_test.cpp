// A text import while the disk of the working database fills.
#include <gtest/gtest.h>

#include "fakes/tiny_disk.h"
#include "interchange/text_import.h"
#include "store/coords_world.h"

namespace talpena {
namespace {

constexpr std::size_t rowCount = 10000;

TEST(TextImportTinyDisk, LeavesWholeRowsOfTheBeginningOfTheFile) {
  test::TinyDisk disk{"size=8m,nr_inodes=20"};
  if (!disk.Refus().empty()) GTEST_SKIP() << "cannot mount a disk here";
  test::CoordsWorld w;
  w.state.DatumSpherique = w.state.Catalogue.DatumWgs84;
  w.state.document.WorkingDb = w.engine->CreateDatabase(disk / "t.mdb", NewDatabase{});
  CreateTable(*w.state.document.WorkingDb);
  w.state.document.RelieSqlCourant();
  std::string bytes;
  for (std::size_t i = 0; i < rowCount; ++i) bytes += "1,50.5,4.25,7,8,d,a place\r\n";
  w.files.Pose("/list.txt", bytes);
  InterchangeState interchange;
  interchange.FichierImportation = "/list.txt";
  disk.LaisseLibres(60);
  ImportCoord({w.Contexte(), interchange, w.vue}, 0);
  const test::Lines boxes = w.Boites();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].find("An error occured during importation\r"), 0U) << boxes[0];
  const test::Lines lines = w.Lignes();
  EXPECT_LT(lines.size(), rowCount);
  EXPECT_EQ(static_cast<std::size_t>(w.state.document.Data1.recordset().RecordCount()),
            lines.size());
  EXPECT_EQ(lines,
            test::Lines(lines.size(), "1|-|-|7|8|-|WGS84|deg +50.50000 +004.25000|d|a place"));
  w.state.document.Data1 = DataControl();
  w.state.document.WorkingDb.reset();
}

}  // namespace
}  // namespace talpena
