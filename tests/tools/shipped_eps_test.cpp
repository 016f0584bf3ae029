// Every map that ships as an EPS file with rows on it, through Ghostscript.
#include <algorithm>
#include <string>
#include <vector>

#include "fakes/fake_canvas.h"
#include "maps/eps.h"
#include "maps/ghostscript.h"
#include "store/table.h"
#include "tools/shipped_map.h"

namespace talpena {
namespace {

/// Takes any picture that is there.
class AnyPicture final : public test::FakeCanvas {
 public:
  void ChargeImage(const std::string& path) override {
    images[path] = {800, 600};
    FakeCanvas::ChargeImage(path);
  }
};

/// Rows all over the globe, every ten degrees, the poles and the antimeridian among them.
void RemplitLeGlobe(StoreState& state) {
  const auto rows = state.document.WorkingDb->OpenRecordset("TALPENA");
  for (int latitude = -90; latitude <= 90; latitude += 10) {
    for (int longitude = -180; longitude <= 180; longitude += 10) {
      rows->AddNew();
      rows->Set(Column::LATITUDE, Cell::Of(double(latitude)));
      rows->Set(Column::LONGITUDE, Cell::Of(double(longitude)));
      rows->Update();
    }
  }
  state.document.Data1.Lie(*state.document.WorkingDb);
  state.document.RelieSqlCourant();
}

/// Every fourth map, from one of the first four on: the parts can run at once.
class ShippedEps : public testing::TestWithParam<std::size_t> {
 protected:
  static constexpr std::size_t Parts = 4;

  static std::vector<std::string> Cartes() {
    std::vector<std::string> all = test::CartesLivrees(), part;
    std::sort(all.begin(), all.end());
    EXPECT_GE(all.size(), Parts);
    for (std::size_t i = GetParam(); i < all.size(); i += Parts) part.push_back(all[i]);
    return part;
  }
};
INSTANTIATE_TEST_SUITE_P(Part, ShippedEps, testing::Range<std::size_t>(0, 4));

TEST_P(ShippedEps, PrintsEveryMapWithDistributionAndGrid) {
  AnyPicture canvas;
  test::MapDesk desk(canvas);
  desk.state.Silence = true;
  RemplitLeGlobe(desk.state);
  const test::TempFolder folder;
  const std::string path = folder / "map.eps";
  for (const std::string& name : Cartes()) {
    SCOPED_TRACE(name);
    ASSERT_TRUE(desk.Ouvre(name));
    desk.carte.Pas = 10;
    desk.carte.Grille = true;
    for (const int mode : {1, 0}) {
      FaitEPS(desk.Contexte(), path, mode);
      EXPECT_EQ(desk.dialogues.boxes.back().text, "Fichier " + path + " créé avec succès.");
      const std::string eps = test::LitFichier(path);
      EXPECT_EQ(eps.find(mode == 1 ? " 0 s1" : " sc1\r"), std::string::npos);
      const test::Interpreted page = test::ExigeImprimable(eps);
      const test::Box stated = test::BoiteAnnoncee(eps);
      EXPECT_NEAR(page.ink.left, stated.left + 5, 1);
      EXPECT_NEAR(page.ink.right, stated.right - 5, 1);
      EXPECT_NEAR(page.ink.top, stated.top, 1);
      EXPECT_NEAR(page.ink.bottom, stated.bottom + 20, 1);
    }
  }
}

}  // namespace
}  // namespace talpena
