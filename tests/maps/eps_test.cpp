// The map as EPS: the file line by line.
#include "maps/eps.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "common/talpena_error.h"
#include "maps/eps_world.h"

namespace talpena {
namespace {

using test::EpsWorld;
using Strings = std::vector<std::string>;

class EpsTest : public ::testing::Test {
 protected:
  /// Lines behind the prologue's last, up to and with the one named.
  Strings Entre(const Strings& lines, const std::string& first, const std::string& last) {
    const auto from = std::find(lines.begin(), lines.end(), first);
    const auto to = std::find(from, lines.end(), last);
    if (to == lines.end()) ADD_FAILURE() << "no " << first << " or no " << last;
    return {from, to == lines.end() ? to : to + 1};
  }
  EpsWorld w;
};

TEST_F(EpsTest, TheWholeFileOfASmallMapInColourAndInBlack) {
  w.files.Pose("/carto/proltlp.ps",
               "%!PS-Adobe-3.0 EPSF-3.0\n%%boundingbox: 0 0 1 1\n  %%Title: ?\r\n"
               "%%CreationDate: (never)\r%%EndComments\n\n/m {moveto} bind def");
  w.files.Pose("/carto/map.ps", "% rivers of the \xE9tang\n0 0 m\n");
  w.Remplit({{5, 5}, {10, 20}, {{}, 3}, {0, 0}, {2.5, -1.25}});
  w.options.SymbolColor = 0x4080FF;
  w.carte.Grille = true;
  w.carte.Pas = 10;
  EXPECT_EQ(w.Exporte(1, "/out/\xC3\xA9t\xC3\xA9.eps"),
            test::LitFichier(TALPENA_SOURCE_DIR "/tests/data/eps/small_colour.eps"));
  EXPECT_EQ(w.Exporte(0, "/out/\xC3\xA9t\xC3\xA9.eps"),
            test::LitFichier(TALPENA_SOURCE_DIR "/tests/data/eps/small_black.eps"));
}

TEST_F(EpsTest, ASquareMapHas500PointsOnBothSides) {
  w.OuvrePlate(0, 0, 10, 10);
  w.Remplit({{1, 1}});
  const Strings lines = w.Lignes();
  EXPECT_EQ(w.carte.CadreEPS, (std::array<std::int16_t, 4>{500, 500, 550, 280}));
  EXPECT_EQ(lines[1], "%%BoundingBox:  42   280   552   800 ");
}

TEST_F(EpsTest, AMapTwiceAsWideAsHighHas500By250AndABoxFrom530) {
  w.Remplit({{1, 1}});
  const Strings lines = w.Lignes();
  EXPECT_EQ(w.carte.CadreEPS, (std::array<std::int16_t, 4>{500, 250, 550, 530}));
  EXPECT_EQ(lines[1], "%%BoundingBox:  42   530   552   800 ");
}

struct FrameCase {
  float width, height, side;
  std::int16_t w, h;
};

TEST_F(EpsTest, TheFrameIsRoundedToEvenHalves) {
  for (const FrameCase& c : {FrameCase{1000, 499, 1000, 500, 250},
                             {501, 1000, 1000, 250, 500},
                             {503, 1000, 1000, 252, 500},
                             {1000, 1, 1000, 500, 0},
                             {1000, 3, 1000, 500, 2}}) {
    w.carte.LargeurKm = c.width;
    w.carte.HauteurKm = c.height;
    w.carte.CoteKm = c.side;
    CalculeCadreEPS(w.carte);
    EXPECT_EQ(w.carte.CadreEPS[0], c.w) << c.width;
    EXPECT_EQ(w.carte.CadreEPS[1], c.h) << c.height;
    EXPECT_EQ(w.carte.CadreEPS[2], c.w + 50);
    EXPECT_EQ(w.carte.CadreEPS[3], 780 - c.h);
  }
}

TEST_F(EpsTest, AnOddWidthLeavesAHalfInBoxAndTranslation) {
  w.OuvrePlate(0, 0, 500, 251);  // only the ratio counts
  w.Remplit({{1, 1}});
  const Strings lines = w.Lignes();
  EXPECT_EQ(w.carte.CadreEPS[0], 251);
  EXPECT_EQ(lines[1], "%%BoundingBox:  166.5   280   427.5   800 ");
  EXPECT_NE(std::find(lines.begin(), lines.end(), " 121.5 0  translate"), lines.end());
}

TEST_F(EpsTest, AMapWithoutExtentFails) {
  w.carte.CoteKm = 0;
  try {
    CalculeCadreEPS(w.carte);
    ADD_FAILURE();
  } catch (const TalpenaError& error) {
    EXPECT_EQ(error.number(), ErrorNumber::DivisionByZero);
  }
}

TEST_F(EpsTest, TheFrameIsDefinedBehindThePrologue) {
  w.Remplit({});
  EXPECT_EQ(Entre(w.Lignes(1), "/Lx {50} bind def", "% the map"),
            (Strings{"/Lx {50} bind def", "/Uy {800} bind def", "/Ux { 500  50 add} bind def",
                     "/Ly {800 250 sub} bind def", "-3 0  translate",
                     "/Cadre {Lx Ly m Lx Uy l Ux Uy l Ux Ly l c clip clippath 0 setgray ec sl s} "
                     "bind def",
                     "gsave", "Cadre", "/es { 0} def", "/coul true def", "/PresLeg false def ",
                     "% the map"}));
}

TEST_F(EpsTest, PlaceholdersOfThePrologueAreFoundInAnyCaseAndWhereverTheyStand) {
  w.files.Pose("/carto/proltlp.ps",
               "% %%boundingBOX of it\n%%TITLE%%BoundingBox\nx%%CREATIONDATE: y\n%%title\n");
  w.clock.annee = 2026;
  w.clock.mois = 11;
  w.clock.jour = 9;
  w.Remplit({});
  const Strings lines = w.Lignes();
  const Strings head(lines.begin(), lines.begin() + 4);
  EXPECT_EQ(head, (Strings{"%%BoundingBox:  42   530   552   800 ",
                           "%%BoundingBox:  42   530   552   800 ", "%%CreationDate: 11-09-2026",
                           "%%Title: TLP - /out/map.eps"}));
}

TEST_F(EpsTest, TheTitleIsInCodePage1252) {
  w.files.Pose("/carto/proltlp.ps", "%%Title\n");
  w.Remplit({});
  const std::string path = "/out/\xC3\xA9\xC5\xBE\xCE\xB1.eps";  // é, ž, and a Greek alpha
  EXPECT_EQ(w.Exporte(1, path).substr(0, 34), "%%Title: TLP - /out/\xE9\x9E?.eps\r\n/Lx {");
}

TEST_F(EpsTest, ThePrologueLiesInTheFolderOfTheMapOrInTheCurrentOne) {
  w.Remplit({});
  w.files.Pose("proltlp.ps", "% current\n");
  for (const char* folder : {"/carto/", "/carto"}) {
    w.carte.DossierCarte = folder;
    EXPECT_EQ(w.Lignes()[0], "%!PS") << folder;
  }
  w.carte.DossierCarte = "";
  EXPECT_EQ(w.Lignes()[0], "% current");
}

TEST_F(EpsTest, TheDrawingOfTheMapIsCopiedLineByLineWhateverItsLineEnds) {
  w.Remplit({});
  w.files.Pose("/carto/map.ps", "one\ntwo\rthree\r\n\n\xE9\x80|~\n(last\\)");
  EXPECT_EQ(Entre(w.Lignes(), "/PresLeg false def ", "(last\\)"),
            (Strings{"/PresLeg false def ", "one", "two", "three", "", "\xE9\x80|~", "(last\\)"}));
}

TEST_F(EpsTest, AColourLineHasPlaceRadiusAndColour) {
  w.Remplit({{5, 5}});
  w.options.SymbolColor = 255;
  EXPECT_EQ(EpsWorld::Avec(w.Lignes(1), " sc1"), (Strings{" 175  675  5  1  0  0 sc1"}));
  w.options.SymbolColor = 0x804000;
  EXPECT_EQ(EpsWorld::Avec(w.Lignes(1), " sc1"),
            (Strings{" 175  675  5  0  .250980392156863  .501960784313725 sc1"}));
  w.options.SymbolColor = 0x03020100;  // what lies above the colour does not count
  EXPECT_EQ(EpsWorld::Avec(w.Lignes(1), " sc1").at(0).substr(0, 16), " 175  675  5  0 ");
}

TEST_F(EpsTest, WithMode0NoLineHoldsSc1) {
  w.Remplit({{5, 5}, {6, 6}});
  for (const int mode : {0, 2, -1}) {
    const Strings lines = w.Lignes(mode);
    for (const std::string& line : lines) EXPECT_EQ(line.find(" sc1"), std::string::npos) << line;
    EXPECT_EQ(EpsWorld::Avec(lines, " 0 s1").at(0), " 175  675  5 0 s1");
    EXPECT_EQ(EpsWorld::Avec(lines, " def").back().substr(0, 1), "(");
    EXPECT_NE(std::find(lines.begin(), lines.end(), "/coul false def"), lines.end());
  }
}

TEST_F(EpsTest, TheRadiusFollowsTheDiameterOfTheOptions) {
  w.Remplit({{5, 5}});
  w.options.SymbolDiameter = 0;
  EXPECT_EQ(EpsWorld::Avec(w.Lignes(0), " 0 s1"), (Strings{" 175  675  0 0 s1"}));
  w.options.SymbolDiameter = 22264;  // 22.264 km of 2226.477: a hundredth
  EXPECT_EQ(EpsWorld::Avec(w.Lignes(0), " 0 s1"), (Strings{" 175  675  2.499913 0 s1"}));
}

TEST_F(EpsTest, ASelectionLimitsTheRows) {
  w.Remplit({{1, 5}, {2, 5}, {3, 5}});
  w.vue.selection = {3, 1};
  EXPECT_EQ(EpsWorld::Avec(w.Lignes(0), " s1"),
            (Strings{" 175  625  5 0 s1", " 175  575  5 0 s1"}));
}

TEST_F(EpsTest, ARowBehindTheGlobeIsWrittenFarOffThePage) {
  w.OuvreCode(13, -90, -180, 90, 180);
  w.Remplit({{0, 180}, {0, 0}});
  const Strings rows = EpsWorld::Avec(w.Lignes(0), " s1");
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0], " 1.332625E+37  1.332625E+37  5 0 s1");
  EXPECT_EQ(rows[1], " 300  550  5 0 s1");
}

TEST_F(EpsTest, CoordinatesThatNoFloatHoldsStayWithinThem) {
  w.OuvrePlate(0, 0, .1F, .1F);
  CalculeCadreEPS(w.carte);
  const PagePoint far = SurPage(w.carte, HORS_CARTE, -HORS_CARTE);
  EXPECT_EQ(far.x, HORS_CARTE);
  EXPECT_EQ(far.y, -HORS_CARTE);
}

TEST_F(EpsTest, WithTheGridFlagOffNoLineEndsInM1) {
  w.Remplit({{1, 1}});
  w.carte.Pas = 5;
  EXPECT_TRUE(EpsWorld::Avec(w.Lignes(), " m1").empty());
}

TEST_F(EpsTest, TheGridStandsBehindTheRows) {
  w.Remplit({{1, 1}});
  w.carte.Pas = 10;
  w.carte.Grille = true;
  const Strings lines = w.Lignes(0);
  const auto row = std::find(lines.begin(), lines.end(), " 75  575  5 0 s1");
  ASSERT_NE(row, lines.end());
  EXPECT_EQ(*(row + 1), "0 sg .1 setlinewidth");
  EXPECT_TRUE((row + 2)->ends_with(" m1"));
}

TEST_F(EpsTest, TheMarkOfOriginClosesThePage) {
  w.Remplit({});
  const Strings expected{
      "/Courier /Courier scandvec ReEncodeSmall /Courier findfont 6 scalefont setfont",
      "0 setgray .1 setlinewidth",
      "Lx 4 add Ly 6 add m",
      R"((\124\114\120 \55 \61\71\71\71) /cpr exch def)",
      "gsave cpr false charpath pathbbox Box grestore cpr show",
      "PresLeg {PutLeg} { } ifelse",
      "0 sg Lx Ly m Lx Uy l Ux Uy l Ux Ly l c s",
      "grestore showpage",
      "clear",
      "%%Trailer"};
  for (const int mode : {0, 1})
    EXPECT_EQ(Entre(w.Lignes(mode), expected[0], expected.back()), expected);
  EXPECT_EQ(w.Lignes().back(), "%%Trailer");
}

TEST_F(EpsTest, ASignatureStandsOverTheMarkOfOrigin) {
  w.Remplit({});
  w.fenetre.signature = "  M\xC3\xBCller | (Z\xC3\xBCrich)  ";
  EXPECT_EQ(
      Entre(w.Lignes(), R"((\124\114\120 \55 \61\71\71\71) /cpr exch def)",
            "PresLeg {PutLeg} { } ifelse"),
      (Strings{
          R"((\124\114\120 \55 \61\71\71\71) /cpr exch def)",
          "0 6 rm",
          R"((M\374ller \246 (Z\374rich)) /signature exch def)",
          "cpr stringwidth pop /maxcpr exch def ",
          "signature stringwidth pop /maxsignature exch def",
          "maxcpr maxsignature gt {/max maxcpr def} {/max maxsignature def} ifelse",
          "gsave ",
          "-1 6 rm max 2 add 0 rl 0 -15 rl max 2 add neg 0 rl 0 15 rl gsave 1 sg fill grestore "
          "stroke ",
          "grestore",
          "gsave",
          "maxcpr maxsignature gt {cpr stringwidth pop 2 div signature stringwidth pop 2 div sub 0 "
          "rm} if",
          "signature show grestore",
          "gsave maxsignature maxcpr gt {signature stringwidth pop 2 div cpr stringwidth pop 2 div "
          "sub} {0} ifelse",
          "-6 rm cpr show grestore",
          "PresLeg {PutLeg} { } ifelse",
      }));
}

TEST_F(EpsTest, ASignatureOfBlanksIsNone) {
  w.Remplit({});
  w.fenetre.signature = "   ";
  const Strings lines = w.Lignes();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "0 6 rm"), 0);
}

TEST_F(EpsTest, ASignatureThatTheCodePageLacksIsRefused) {
  w.Remplit({});
  w.fenetre.signature = "\xCE\xB1";
  try {
    w.Exporte();
    ADD_FAILURE();
  } catch (const TalpenaError& error) {
    EXPECT_EQ(error.number(), ErrorNumber::NotInCodePage);
    EXPECT_EQ(error.description(), "The character \xCE\xB1 is not in code page 1252.");
  }
}

struct AccentCase {
  const char* character;
  const char* code;
};

// The codes are those of ISO Latin-1, but for the bar's.
TEST(ChangeAccents, WritesEachOf68CharactersByItsCode) {
  // clang-format off
  constexpr AccentCase cases[] = {
      {"Á", "301"}, {"Â", "302"}, {"Ä", "304"}, {"À", "300"}, {"Å", "305"}, {"Ã", "303"},
      {"Ç", "307"}, {"É", "311"}, {"Ê", "312"}, {"Ë", "313"}, {"È", "310"}, {"Í", "315"},
      {"Î", "316"}, {"Ï", "317"}, {"Ì", "314"}, {"Ñ", "321"}, {"Ó", "323"}, {"Ô", "324"},
      {"Ö", "326"}, {"Ò", "322"}, {"Ø", "330"}, {"Õ", "325"}, {"Ú", "332"}, {"Û", "333"},
      {"Ü", "334"}, {"Ù", "331"}, {"Ý", "335"}, {"á", "341"}, {"â", "342"}, {"ä", "344"},
      {"à", "340"}, {"å", "345"}, {"ã", "343"}, {"|", "246"}, {"ç", "347"}, {"©", "251"},
      {"°", "260"}, {"é", "351"}, {"ê", "352"}, {"ë", "353"}, {"è", "350"}, {"í", "355"},
      {"î", "356"}, {"ï", "357"}, {"ì", "354"}, {"ñ", "361"}, {"ó", "363"}, {"ô", "364"},
      {"ö", "366"}, {"ò", "362"}, {"½", "275"}, {"¼", "274"}, {"õ", "365"}, {"±", "261"},
      {"®", "256"}, {"¾", "276"}, {"ú", "372"}, {"û", "373"}, {"ü", "374"}, {"ù", "371"},
      {"ý", "375"}, {"ÿ", "377"}, {"ß", "337"}, {"¹", "271"}, {"²", "262"}, {"³", "263"},
      {"µ", "265"}, {"÷", "367"}};
  // clang-format on
  static_assert(std::size(cases) == 68);
  std::string all, expected;
  for (const AccentCase& c : cases) {
    std::string text = c.character;
    ChangeAccents(text);
    EXPECT_EQ(text, std::string("\\") + c.code) << c.character;
    all += c.character;
    expected += std::string("\\") + c.code;
  }
  ChangeAccents(all);
  EXPECT_EQ(all, expected);
}

TEST(ChangeAccents, LeavesAllOtherCharacters) {
  const std::string others = "abc XYZ 019 ()\\ ~^ ¦ × Ð ð Þ þ æ Æ ø œ Š € «»";
  std::string text = others;
  ChangeAccents(text);
  EXPECT_EQ(text, others);
}

TEST(ModifieCar, ReplacesEveryOccurrence) {
  std::string text = "a-b-c";
  ModifieCar(text, "-", "--");
  EXPECT_EQ(text, "a--b--c");
}

}  // namespace
}  // namespace talpena
