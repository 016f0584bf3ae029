#include "coord_commands/fill.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "common/text.h"
#include "store/coords_world.h"

namespace talpena {
namespace {

using test::CoordsWorld;
using test::Lines;

CoordsWorld::Row A(const std::string& latitude, const std::string& longitude,
                   const std::string& comment = {}) {
  return {"WGS84", "deg 0 0", latitude, longitude, comment};
}

TEST(MnuRemplirCoo, AsksFirst) {
  CoordsWorld w;
  w.Montre({A("50.85", "4.35")});
  w.dialogues.answers = {Answer::Cancel};
  MnuRemplirCoo_Click(w.Contexte(), 0);
  EXPECT_EQ(w.Commentaires(), (Lines{"-"}));
  ASSERT_EQ(w.dialogues.boxes.size(), 1U);
  EXPECT_EQ(w.dialogues.boxes[0].text,
            "Caution.  The free fields will be completed with UTM squares corresponding to each "
            "coordinates\rCoordinates computing depends on the ellipsoid choice made in the "
            "preferences menu ");
  EXPECT_EQ(w.dialogues.boxes[0].icon, Icon::Exclamation);
  EXPECT_EQ(w.dialogues.boxes[0].buttons, Buttons::OkCancel);
  EXPECT_FALSE(w.state.document.FichierModifie());
}

TEST(MnuRemplirCoo, WritesMgrsAndItsFailures) {
  CoordsWorld w;
  w.Montre({A("50.85", "4.35"), A("-85", "10"), A("85", "10", "abc"), A("20.5", "-152.9")});
  w.dialogues.answers = {Answer::Ok};
  MnuRemplirCoo_Click(w.Contexte(), 0);
  EXPECT_EQ(w.Commentaires(), (Lines{"31UES9503234013", "S  POLAR REGION", "abc N  POLAR REGION",
                                     " 5QNC1042866816"}));
  EXPECT_TRUE(w.state.document.FichierModifie());
}

TEST(MnuRemplirCoo, WritesNationalReferencesOnTheFilesDatum) {
  CoordsWorld w;
  w.Montre({A("52.657568", "1.717908", "old"), A("40", "4", "stays")});
  MnuRemplirCoo_Click(w.Contexte(), 1);
  EXPECT_EQ(w.Commentaires()[0].substr(0, 10), "old TG 514");
  EXPECT_EQ(w.Commentaires()[0].size(), std::string("old TG 51409 13177").size());
  EXPECT_EQ(w.Commentaires()[1], "stays");
  MnuRemplirCoo_Click(w.Contexte(), 2);
  EXPECT_EQ(w.Commentaires()[1], "stays");
  CoordsWorld irish;
  irish.Montre({A("53.35", "-6.26")});
  MnuRemplirCoo_Click(irish.Contexte(), 2);
  EXPECT_EQ(irish.Commentaires()[0].substr(0, 3), "IO ");  // Dublin
}

TEST(MnuRemplirXY, WritesDegreesMinutesAndSeconds) {
  CoordsWorld w;
  w.Montre({A("50.425", "-3.92"), A("-0.5", "0.5", "abc")});
  MnuRemplirXY_Click(w.Contexte(), 0);
  EXPECT_EQ(w.Commentaires(), (Lines{"50°25'30.0''/-3°55'12.0''", "abc,0°30'00.0''/0°30'00.0''"}));
}

TEST(MnuRemplirXY, WritesGradesWithoutAChangeOfDatum) {
  CoordsWorld w;
  w.Montre({A("45", "2.337222"), A("49.5", "4.137222", "x")});
  MnuRemplirXY_Click(w.Contexte(), 1);
  EXPECT_EQ(w.Commentaires()[0].substr(0, 3), "50,");
  EXPECT_EQ(w.Commentaires()[1], "x,55,2");
}

TEST(MnuRemplirXY, WritesGradesWithSevenDigitsAtMost) {
  CoordsWorld w;
  w.Montre({A("51.329844", "-1.0374396"), A("0.0000123456789", "2.337222")});
  MnuRemplirXY_Click(w.Contexte(), 1);
  EXPECT_EQ(w.Commentaires()[0], "57.03316,-3.749624");
  for (const std::string& comment : w.Commentaires()) {
    for (const std::string& number : Decoupe(comment, ',')) {
      std::string digits = number.substr(0, number.find('E'));
      std::erase_if(digits, [](char c) { return c < '0' || c > '9'; });
      const std::size_t first = std::min(digits.find_first_not_of('0'), digits.size());
      EXPECT_LE(digits.size() - first, 7U) << number;
    }
  }
}

TEST(MnuRemplirXY, WritesLambertInWholeMetres) {
  CoordsWorld w;
  test::Entete(w.state.document)->DatumFichier = ChercheDatum(w.state.Catalogue, "BEL72");
  w.Montre({A("50.85", "4.35")});
  MnuRemplirXY_Click(w.Contexte(), 2);
  const std::string text = w.Commentaires()[0];
  EXPECT_EQ(text.find('.'), std::string::npos) << text;
  double x = 0, y = 0;
  LatLonVersLambertBelge(static_cast<double>(50.85F), static_cast<double>(4.35F), x, y);
  EXPECT_EQ(text, Str(std::trunc(x)) + "," + Str(std::trunc(y)));
}

TEST(MnuRemplirXY, WritesIfblAndLeavesWhatHasNone) {
  CoordsWorld w;
  w.Montre({A("50.85", "4.35"), A("40", "4", "stays")});
  MnuRemplirXY_Click(w.Contexte(), 3);
  EXPECT_EQ(w.Commentaires()[0].size(), 6U);
  EXPECT_EQ(w.Commentaires()[0].substr(0, 2), "E4");  // Brussels
  EXPECT_EQ(w.Commentaires()[1], "stays");
}

TEST(MnuRemplirXY, WritesTheZonesOfMorocco) {
  CoordsWorld w;
  test::Entete(w.state.document)->DatumFichier = ChercheDatum(w.state.Catalogue, "MER");
  w.Montre({A("33.3", "-5.39")});
  MnuRemplirXY_Click(w.Contexte(), 4);
  const std::string north = w.Commentaires()[0];
  EXPECT_EQ(north.substr(0, 7), "500931,");
  MnuRemplirXY_Click(w.Contexte(), 5);
  EXPECT_EQ(w.Commentaires()[0].substr(0, north.size() + 8), north + ",500932,");
}

TEST(MnuRemplirXY, SkipsRowsWithoutCoordinates) {
  CoordsWorld w;
  w.Montre({A("", "4", "a"), A("50", "", "b"), A("50", "4", "c")});
  MnuRemplirXY_Click(w.Contexte(), 0);
  EXPECT_EQ(w.Commentaires(), (Lines{"a", "b", "c,50°0'00.0''/4°0'00.0''"}));
  EXPECT_EQ(w.vue.progression, (std::vector<int>{100, 0}));
}

TEST(MnuRemplirTexte, AppendsWithTheSeparator) {
  CoordsWorld w;
  w.dialogues.inputs = {"x"};
  w.Montre({A("50", "4", "abc"), A("50", "4")});
  MnuRemplirTexte_Click(w.Contexte());
  EXPECT_EQ(w.Commentaires(), (Lines{"abc/x", "x"}));
  EXPECT_EQ(w.dialogues.asked[0].prompt, "Text to insert at the begin of each free field");
}

TEST(MnuRemplirTexte, WritesTheAnswerWithItsBlanks) {
  CoordsWorld w;
  w.dialogues.inputs = {" x "};
  w.Montre({A("50", "4", "abc"), A("50", "4")});
  MnuRemplirTexte_Click(w.Contexte());
  EXPECT_EQ(w.Commentaires(), (Lines{"abc/ x ", " x "}));
}

TEST(MnuRemplirTexte, EndsOnAnEmptyAnswer) {
  CoordsWorld w;
  w.dialogues.inputs = {""};
  w.Montre({A("50", "4", "abc")});
  MnuRemplirTexte_Click(w.Contexte());
  EXPECT_EQ(w.Commentaires(), (Lines{"abc"}));
  EXPECT_FALSE(w.state.document.FichierModifie());
}

TEST(MnuRemplirTexte, WritesIntoTheChosenRows) {
  CoordsWorld w;
  w.dialogues.inputs = {"x"};
  w.Montre({A("50", "4", "a"), A("50", "4", "b"), A("50", "4", "c")});
  w.vue.selection = {3, 1};
  MnuRemplirTexte_Click(w.Contexte());
  EXPECT_EQ(w.Commentaires(), (Lines{"a/x", "b", "c/x"}));
}

}  // namespace
}  // namespace talpena
