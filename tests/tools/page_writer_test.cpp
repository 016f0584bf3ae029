#include "carto/page_writer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

namespace talpena {
namespace {

const MapRow& Ligne(const std::string& name) {
  const auto rows = Catalogue();
  return *std::find_if(rows.begin(), rows.end(), [&](const MapRow& r) { return r.name == name; });
}

std::vector<std::string> Mots(const std::string& text) {
  std::istringstream in(text);
  std::vector<std::string> words;
  for (std::string word; in >> word;) words.push_back(word);
  return words;
}

TEST(CadreDePage, HasItsLongerSide500PointsLong) {
  const Frame frame = CadreDePage(MapSheet(Ligne("world")).Etat());
  EXPECT_EQ(frame.left, 50);
  EXPECT_EQ(frame.right, 550);
  EXPECT_EQ(frame.bottom, 550);
  EXPECT_EQ(frame.top, 800);
}

TEST(EcritDessin, PutsTheBoxOfTheMapInTheFrameOfThePage) {
  const MapSheet sheet(Ligne("world"));
  const std::string text = EcritDessin(sheet, {{Matter::Water, sheet.Terre(), {}}});
  EXPECT_NE(text.find("50 550 m 550 550 l 550 800 l 50 800 l c eofill\r\n"), std::string::npos)
      << text;
}

TEST(EcritDessin, PutsAPlaceWhereTheExportPutsItsSymbol) {
  const MapSheet sheet(Ligne("world"));
  const Line line{sheet.Projette({90, 45}), sheet.Projette({-90, -45})};
  const std::string text = EcritDessin(sheet, {{Matter::Coast, {}, {line}}});
  EXPECT_NE(text.find("425 737.5 m 175 612.5 l s\r\n"), std::string::npos) << text;
}

TEST(EcritDessin, ChoosesColourOrGreyByTheFlag) {
  const MapSheet sheet(Ligne("world"));
  const std::string text = EcritDessin(sheet, {{Matter::Water, sheet.Terre(), {}}});
  const Ink ink = EncreDe(Matter::Water, Detail::World);
  EXPECT_NE(text.find("/ink {coul {pop setrgbcolor} {4 1 roll pop pop pop sg} ifelse}"),
            std::string::npos);
  EXPECT_NE(text.find(" .93 ink"), std::string::npos) << text;
  EXPECT_EQ(ink.grey, 0.93);
}

// By this colour the options dialog of the map view finds the land on a picture.
TEST(EncreDe, GivesLandTheColourThatIsMeasured) {
  const Ink land = EncreDe(Matter::Land, Detail::Region);
  EXPECT_EQ(land.red, 249);
  EXPECT_EQ(land.green, 246);
  EXPECT_EQ(land.blue, 236);
}

TEST(EcritDessin, LeavesTheGraphicsStateAsItWas) {
  const MapSheet sheet(Ligne("world"));
  const auto words = Mots(EcritDessin(sheet, {{Matter::Water, sheet.Terre(), {}}}));
  EXPECT_EQ(std::count(words.begin(), words.end(), "gsave"), 1);
  EXPECT_EQ(std::count(words.begin(), words.end(), "grestore"), 1);
  EXPECT_EQ(std::count(words.begin(), words.end(), "begin"), 1);
  EXPECT_EQ(std::count(words.begin(), words.end(), "end"), 1);
  EXPECT_EQ(words.back(), "grestore");
}

/// A ring of many points round the middle of the world, in and out.
Ring Etoile(const MapSheet& sheet, int points) {
  Ring ring;
  for (int i = 0; i < points; ++i) {
    const double angle = 2 * 3.14159265 * i / points;
    const double radius = i % 2 == 0 ? 60 : 40;
    ring.push_back(sheet.Projette({radius * std::cos(angle), radius * std::sin(angle)}));
  }
  return ring;
}

TEST(EcritDessin, KeepsPathsShortAndTheirAreaWhole) {
  const MapSheet sheet(Ligne("world"));
  const Ring star = Etoile(sheet, 6000);
  std::size_t inPath = 0, fills = 0;
  for (const std::string& word :
       Mots(EcritDessin(sheet, {{Matter::Land, {star}, {Ferme(star)}}}))) {
    if (word == "m" || word == "l") ++inPath;
    if (word == "eofill") ++fills;
    if (word == "eofill" || word == "s") {
      EXPECT_LE(inPath, 1500U);
      inPath = 0;
    }
  }
  EXPECT_GE(fills, 4U);
}

TEST(EcritDessin, KeepsLinesShort) {
  const MapSheet sheet(Ligne("world"));
  std::istringstream text(EcritDessin(sheet, {{Matter::Land, {Etoile(sheet, 6000)}, {}}}));
  for (std::string line; std::getline(text, line);) EXPECT_LT(line.size(), 200U);
}

TEST(EcritDessin, WritesDashesForDisputedBorders) {
  const MapSheet sheet(Ligne("world"));
  const Line line{sheet.Projette({0, 0}), sheet.Projette({10, 0})};
  const std::string text = EcritDessin(sheet, {{Matter::DisputedBorder, {}, {line}}});
  EXPECT_NE(text.find("setlinewidth [ 1.04 ] 0 setdash"), std::string::npos) << text;
}

}  // namespace
}  // namespace talpena
