// A change of datum while the disk of the working database fills.
#include <gtest/gtest.h>

#include <algorithm>

#include "coord_commands/adjust.h"
#include "fakes/tiny_disk.h"
#include "store/coords_world.h"

namespace talpena {
namespace {

using test::CoordsWorld;

constexpr std::size_t rowCount = 20000;

/// Rows in a database on a disk of its own.
struct TinyWorld {
  test::TinyDisk disk{"size=8m,nr_inodes=20"};
  CoordsWorld w;

  TinyWorld() {
    if (!disk.Refus().empty()) return;
    w.state.document.WorkingDb = w.engine->CreateDatabase(disk / "t.mdb", NewDatabase{});
    CreateTable(*w.state.document.WorkingDb);
    w.state.document.AjusteGrille();
    w.Montre(std::vector<CoordsWorld::Row>(rowCount, {"WGS84", "deg 50.5 4.25"}));
  }
  ~TinyWorld() { w.state.document.WorkingDb.reset(); }

  /// How many rows hold a point.
  std::size_t Compte(const std::string& point) {
    const auto points = w.Points();
    return static_cast<std::size_t>(std::count(points.begin(), points.end(), point));
  }
};

TEST(ChangeDatumFichierTinyDisk, ChangesHeaderAndRowsOrNeither) {
  TinyWorld tiny;
  if (!tiny.disk.Refus().empty()) GTEST_SKIP() << "cannot mount a disk here";
  CoordsWorld& w = tiny.w;
  int failures = 0;
  for (fsblkcnt_t blocks = 0; blocks < 1000; blocks += 40) {
    SCOPED_TRACE(blocks);
    tiny.disk.LaisseLibres(blocks);
    ChangeDatumFichier(w.Contexte(), "EUR-M");
    if (w.Boites().empty()) break;
    ++failures;
    EXPECT_EQ(w.state.document.Entete().DatumFichierCode, "WGS84");
    EXPECT_FALSE(w.state.document.FichierModifie());
    ASSERT_EQ(tiny.Compte("1 2"), rowCount);
  }
  EXPECT_GT(failures, 1);
  EXPECT_EQ(w.state.document.Entete().DatumFichierCode, "EUR-M");
  EXPECT_EQ(tiny.Compte("50.50085 4.25129"), rowCount);
}

}  // namespace
}  // namespace talpena
