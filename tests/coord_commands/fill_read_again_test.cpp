// What the fill commands write is read again by imports and in the record form: it names the point
// that it was made of.
#include <gtest/gtest.h>

#include <random>

#include "common/text.h"
#include "coord_commands/fill.h"
#include "coords/original.h"
#include "coords/original_maker.h"
#include "coords/tokens.h"
#include "store/coords_world.h"

namespace talpena {
namespace {

using test::CoordsWorld;

struct FillCase {
  const char* name;
  CoordSystem system;
  void (*fill)(CommandContext, int);
  int index;
  double metres;  ///< how far the point that is read may lie from the one that was written
};

// MGRS is rounded to the metre, national references and Lambert are cut to it, seven digits of
// grades are some metres, a square of IFBL is 1 km wide.
constexpr FillCase fillCases[] = {
    {"MGRS", CoordSystem::Mgr, MnuRemplirCoo_Click, 0, 1.5},
    {"British", CoordSystem::Bng, MnuRemplirCoo_Click, 1, 4},
    {"Irish", CoordSystem::Itm, MnuRemplirCoo_Click, 2, 4},
    {"grades", CoordSystem::Grp, MnuRemplirXY_Click, 1, 7},
    {"Lambert belge", CoordSystem::Lmb, MnuRemplirXY_Click, 2, 2},
    {"IFBL", CoordSystem::Ifb, MnuRemplirXY_Click, 3, 750},
    {"Lambert Nord Maroc", CoordSystem::Nma, MnuRemplirXY_Click, 4, 2},
    {"Lambert Sud Maroc", CoordSystem::Sma, MnuRemplirXY_Click, 5, 2},
};

/// A filled text behind its code, as an import puts it together.
std::string Original(CoordSystem system, const std::string& text) {
  switch (InfoDe(system).content) {
    case Content::Reference:
      return AssembleReference(system, system == CoordSystem::Mgr ? text : Remplace(text, " ", ""));
    default:
      return Minuscules(InfoDe(system).code) + " " + Remplace(text, ",", " ");
  }
}

TEST(RemplitEtRelit, GivesThePointBack) {
  std::mt19937 random(20261122);
  for (const FillCase& c : fillCases) {
    SCOPED_TRACE(c.name);
    CoordsWorld w;
    const std::int16_t datum = DatumDuSysteme(w.state, c.system);
    const std::int16_t own = datum == 0 ? w.state.Catalogue.DatumWgs84 : datum;
    test::Entete(w.state.document)->DatumFichier = own;
    const test::Area area = test::AreaOf(c.system);
    std::vector<CoordsWorld::Row> rows;
    for (int i = 0; i < 200; ++i) {
      std::uniform_real_distribution<double> north(area.south, area.north);
      std::uniform_real_distribution<double> east(area.west, area.east);
      rows.push_back({"WGS84", "deg 0 0", Str(static_cast<float>(north(random))),
                      Str(static_cast<float>(east(random)))});
    }
    w.Montre(rows);
    if (c.system == CoordSystem::Mgr) w.dialogues.answers = {Answer::Ok};
    c.fill(w.Contexte(), c.index);
    const auto texts = w.Commentaires();
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (texts[i] == "-") continue;  // outside of the grid
      std::string original, code;
      OriginalLisible(Original(c.system, texts[i]), original);
      double latitude = 0, longitude = 0;
      ASSERT_EQ(DecodeOriginal(w.state, original, own, latitude, longitude, code), Lecture::Point)
          << texts[i];
      EXPECT_LT(test::Metres(Val(rows[i].latitude), Val(rows[i].longitude), latitude, longitude),
                c.metres)
          << texts[i] << " of " << rows[i].latitude << ' ' << rows[i].longitude;
    }
  }
}

}  // namespace
}  // namespace talpena
