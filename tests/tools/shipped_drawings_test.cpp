#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "carto/map_drawing.h"
#include "carto/page_writer.h"
#include "fakes/temp_folder.h"
#include "tools/shipped_map.h"

namespace talpena {
namespace {

std::string Contenu(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

std::string Dessin(const MapRow& row) {
  return Contenu(test::DansCarto(std::string(row.name) + ".ps"));
}

TEST(ShippedDrawings, AreAsciiInShortLines) {
  for (const MapRow& row : Catalogue()) {
    const std::string text = Dessin(row);
    EXPECT_GT(text.size(), 2000U) << row.name;
    EXPECT_LT(text.size(), 1500000U) << row.name;
    std::size_t column = 0, longest = 0;
    bool ascii = true;
    for (const char c : text) {
      ascii = ascii && (c == '\r' || c == '\n' || (c >= ' ' && c <= '~'));
      column = c == '\n' ? 0 : column + 1;
      longest = std::max(longest, column);
    }
    EXPECT_TRUE(ascii) << row.name;
    EXPECT_LT(longest, 200U) << row.name;
  }
}

TEST(ShippedDrawings, NeverShowThePageAndPutTheStateBack) {
  for (const MapRow& row : Catalogue()) {
    std::istringstream words(Dessin(row));
    int depth = 0, points = 0;
    for (std::string word; words >> word;) {
      ASSERT_NE(word, "showpage") << row.name;
      if (word == "gsave") ++depth;
      if (word == "grestore") --depth;
      if (word == "m" || word == "l") ++points;
      if (word == "s" || word == "eofill") {
        ASSERT_LE(points, 1500) << row.name;
        points = 0;
      }
    }
    EXPECT_EQ(depth, 0) << row.name;
  }
}

/// A page of the prologue that ships and a drawing, which must leave both stacks as they were.
std::string Page(const MapRow& row, bool colour) {
  return Contenu(TALPENA_SOURCE_DIR "/data/carto/proltlp.ps") + "\n/coul " +
         (colour ? "true" : "false") + " def /dicts countdictstack def count /held exch def\n" +
         Dessin(row) +
         "countdictstack dicts ne {dictionaries left} if count held ne {operands left} if\n"
         "showpage clear\n";
}

/// The box that Ghostscript sees, in points; fails the test when it ends with an error.
Frame Encre(const std::string& page) {
  const test::TempFolder folder;
  const std::string input = folder / "page.ps", output = folder / "box.txt";
  std::ofstream(input, std::ios::binary) << page;
  const std::string command = "gs -q -dNOPAUSE -dBATCH -dSAFER -dPARANOIDSAFER -sDEVICE=bbox " +
                              input + " >" + output + " 2>&1";
  EXPECT_EQ(std::system(command.c_str()), 0) << Contenu(output);
  const std::string text = Contenu(output);
  const std::size_t at = text.find("%%HiResBoundingBox:");
  Frame box;
  if (at == std::string::npos) {
    ADD_FAILURE() << text;
    return box;
  }
  std::istringstream numbers(text.substr(at + 19));
  numbers >> box.left >> box.bottom >> box.right >> box.top;
  return box;
}

void AttendEncreDansLeCadre(const MapRow& row, bool colour) {
  SCOPED_TRACE(row.name);
  const Frame frame = CadreDePage(MapSheet(row).Etat());
  const Frame ink = Encre(Page(row, colour));
  EXPECT_NEAR(ink.left, frame.left, 1);
  EXPECT_NEAR(ink.right, frame.right, 1);
  EXPECT_NEAR(ink.bottom, frame.bottom, 1);
  EXPECT_NEAR(ink.top, frame.top, 1);
}

TEST(ShippedDrawings, PrintInColourAndFillTheFrame) {
  for (const MapRow& row : Catalogue()) AttendEncreDansLeCadre(row, true);
}

TEST(ShippedDrawings, PrintInGreys) {
  for (const MapRow& row : Catalogue()) {
    const std::string name = row.name;
    if (name == "world" || name == "globe" || name == "france_belgium")
      AttendEncreDansLeCadre(row, false);
  }
}

// What is drawn comes from the data: no step of a coast is longer than the longest of the data,
// on any map. A line across the map would be.
TEST(ShippedDrawings, HaveNoStreaks) {
  const GeoData small = LitDonnees(TALPENA_SOURCE_DIR "/data/maps/scale_50m.geo");
  const GeoData large = LitDonnees(TALPENA_SOURCE_DIR "/data/maps/scale_10m.geo");
  for (const MapRow& row : Catalogue()) {
    const MapSheet sheet(row);
    const GeoData& data = row.detail == Detail::Region ? large : small;
    const double side = sheet.Etat().CoteKm;
    double longest = 0;
    for (const auto* areas : {&data.land, &data.lakes}) {
      for (const Line& line : sheet.PlaceLignes(Contours(*areas))) {
        for (std::size_t i = 1; i < line.size(); ++i)
          longest =
              std::max(longest, std::hypot(line[i].x - line[i - 1].x, line[i].y - line[i - 1].y));
      }
    }
    EXPECT_LT(longest / side, 0.05) << row.name;
  }
}

}  // namespace
}  // namespace talpena
