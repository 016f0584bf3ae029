#include "coords/mif_files.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "common/text.h"
#include "coords/ifbl.h"
#include "fakes/fake_files.h"

namespace talpena {
namespace {

struct Pair {
  std::string mif, mid;
};

Pair Ecrit(const IfblPolygons& polygons) {
  test::FakeFiles files;
  const auto mif = files.Cree("a.mif");
  const auto mid = files.Cree("a.mid");
  EcritMif(*mif, polygons);
  EcritMid(*mid, polygons);
  mif->Remplace();
  mid->Remplace();
  return {files.Contenu("a.mif"), files.Contenu("a.mid")};
}

/// Lines closed by CR LF.
std::vector<std::string> Lignes(const std::string& bytes) {
  std::vector<std::string> lines = Decoupe(bytes, '\n');
  EXPECT_EQ(lines.back(), "");
  lines.pop_back();
  for (std::string& line : lines) {
    EXPECT_TRUE(line.ends_with('\r'));
    line.pop_back();
  }
  return lines;
}

// Byte for byte, the rectangle of "M0" behind it.
TEST(MifFiles, BeginWithTheHeaderOfBelgianLambert) {
  const Pair pair = Ecrit(PairesDeFichiers()[2]);
  const std::string head =
      "Version 300\r\n"
      "Charset \"WindowsLatin1\"\r\n"
      "Delimiter \",\"\r\n"
      "CoordSys Earth Projection 19, 110, \"m\", 4.3569397222, 90, 49.8333333333, 51.1666666667, "
      "150000.01256, 5400088.4378000004 Bounds (-128761662.607, -123511574.182) (129061662.632, "
      "134311751.057)\r\n"
      "Columns 1\r\n"
      "   IFBL Char(10)\r\n"
      "Data\r\n"
      "Rect 2012 18180 34012 38180\r\n"
      "   Pen (4,2,16711680)\r\n"
      "   Brush (1,16777215)\r\n"
      "Rect 34012 18180 66012 38180\r\n";
  EXPECT_EQ(pair.mif.substr(0, head.size()), head);
  EXPECT_EQ(pair.mid.substr(0, 18), "\"M0\"\r\n\"M1\"\r\n\"M2\"\r\n");
}

struct PairCase {
  const char* name;
  std::size_t squares;
  const char* pen;
  const char* brush;
  const char* firstRect;
  const char* lastRect;
  const char* firstCode;
  const char* lastCode;
};

constexpr PairCase PairCases[] = {
    {"ifbl01x01", 241 * 321, "Pen (1,3,0)", "Brush (1,16777215)", "Rect 2012 18180 3012 19180",
     "Rect 322012 258180 323012 259180", "\"M05133\"", "\"@105133\""},
    {"ifbl04x04", 4800, "Pen (1,2,0)", "Brush (1,16777215)", "Rect 2012 18180 6012 22180",
     "Rect 318012 254180 322012 258180", "\"M051\"", "\"A918\""},
    {"ifbl32x20", 120, "   Pen (4,2,16711680)", "   Brush (1,16777215)",
     "Rect 2012 18180 34012 38180", "Rect 290012 238180 322012 258180", "\"M0\"", "\"A9\""},
};

TEST(MifFiles, HoldEverySquareOnce) {
  ASSERT_EQ(PairesDeFichiers().size(), 3U);
  for (std::size_t i = 0; i < 3; ++i) {
    const PairCase& c = PairCases[i];
    SCOPED_TRACE(c.name);
    EXPECT_EQ(PairesDeFichiers()[i].name, c.name);
    const Pair pair = Ecrit(PairesDeFichiers()[i]);
    const auto mif = Lignes(pair.mif), mid = Lignes(pair.mid);
    ASSERT_EQ(mif.size(), 7 + 3 * c.squares);
    ASSERT_EQ(mid.size(), c.squares);
    EXPECT_EQ(mif[7], c.firstRect);
    EXPECT_EQ(mif[mif.size() - 3], c.lastRect);
    EXPECT_EQ(mid.front(), c.firstCode);
    EXPECT_EQ(mid.back(), c.lastCode);
    for (std::size_t square = 0; square < c.squares; ++square) {
      ASSERT_EQ(mif[7 + 3 * square + 1], c.pen);
      ASSERT_EQ(mif[7 + 3 * square + 2], c.brush);
    }
    EXPECT_EQ(std::set<std::string>(mid.begin(), mid.end()).size(), c.squares);
  }
}

// Codes of the grid's own squares decode to the middle of the rectangle of the same number.
TEST(MifFiles, CodesNameTheRectangleOfTheirLine) {
  for (const IfblPolygons& polygons : PairesDeFichiers()) {
    SCOPED_TRACE(polygons.name);
    const Pair pair = Ecrit(polygons);
    const auto mif = Lignes(pair.mif), mid = Lignes(pair.mid);
    std::size_t inside = 0;
    for (std::size_t i = 0; i < mid.size(); ++i) {
      const auto rect = Decoupe(mif[7 + 3 * i], ' ');
      ASSERT_EQ(rect.size(), 5U);
      const int west = std::stoi(rect[1]), south = std::stoi(rect[2]);
      ASSERT_EQ(std::stoi(rect[3]) - west, polygons.width);
      ASSERT_EQ(std::stoi(rect[4]) - south, polygons.height);
      if (west >= IfblEst || south >= IfblNord) continue;
      double x = 0, y = 0;
      std::int16_t error = 0;
      IfblVersLambert(mid[i].substr(1, mid[i].size() - 2), x, y, error);
      ASSERT_EQ(error, 0);
      ASSERT_EQ(x, west + polygons.width / 2);
      ASSERT_EQ(y, south + polygons.height / 2);
      ++inside;
    }
    EXPECT_EQ(inside, static_cast<std::size_t>(320 * 240 /
                                               (polygons.width / 1000 * polygons.height / 1000)));
  }
}

}  // namespace
}  // namespace talpena
