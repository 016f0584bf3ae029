#include "coord_commands/row_faults.h"

#include <gtest/gtest.h>

#include <string>

#include "common/text.h"
#include "coord_commands/adjust.h"
#include "coord_commands/fill.h"
#include "coords/snap.h"
#include "store/coords_world.h"

namespace talpena {
namespace {

using test::CoordsWorld;
using test::Lines;

/// The lines about rows in the box of a recomputation.
Lines Dites(CoordsWorld& w) {
  AjusteDegres(w.Contexte(), SansMaille, SansMaille);
  const Lines boxes = w.Boites();
  if (boxes.size() != 1) return boxes;
  Lines lines = Decoupe(boxes[0], '\n');
  lines.erase(lines.begin(), lines.begin() + 2);  // the sentence and the blank line
  return lines;
}

TEST(LignesFautives, SayWhatIsWrong) {
  const struct {
    const char* name;
    const char* datum;
    const char* original;
    const char* reason;
  } cases[] = {
      {"a forgotten point", "WGS84", "deg 5041.234 3.9", "the latitude 5041.234° lies beyond 90°"},
      {"the same in the south", "WGS84", "deg -95 3.9", "the latitude -95° lies beyond 90°"},
      {"a longitude", "WGS84", "deg 50 392.1", "the longitude 32.1"},
      {"a longitude far off", "WGS84", "deg 50 3921", "the longitude 3561° lies beyond 180°"},
      {"a western one", "WGS84", "deg 50 -181", "the longitude -181° lies beyond 180°"},
      {"grades", "NTF", "grp 101 1", "the latitude 90.9° lies beyond 90°"},
      {"minutes", "WGS84", "dms 89.7500 4.15", "minutes or seconds of 60 and more"},
      {"no minutes", "WGS84", "dms 5025.30 4.15", "the latitude 5025.5° lies beyond 90°"},
      {"no number", "WGS84", "deg 1E999 4", "these numbers lie outside of what the system covers"},
      {"a zone", "WGS84", "utm 99999 500000 5e6",
       "these numbers lie outside of what the system covers"},
      {"northing", "WGS84", "utm 31 500000 15000000",
       "these numbers lie outside of what the system covers"},
      {"Lambert", "BEL72", "lmb 1E300 1E300",
       "these numbers lie outside of what the system covers"},
      {"blanks around it", "WGS84", " deg 95 4  ", "the latitude 95° lies beyond 90°"},
      {"digits", "OGB-M", "bng SU 9E999", "no square has these letters and digits"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    CoordsWorld w;
    w.Montre({{c.datum, c.original}});
    if (std::string(c.reason).starts_with("the longitude 32.1")) {  // 392.1 loses 360
      EXPECT_TRUE(Dites(w).empty());
      EXPECT_EQ(w.Points(), (Lines{"50 32.1"}));
      continue;
    }
    EXPECT_EQ(Dites(w),
              (Lines{"Row 1: " + std::string(Rogne(c.original)) + " (" + c.reason + ")"}));
    EXPECT_EQ(w.Points(), (Lines{"1 2"}));
  }
}

TEST(LignesFautives, LeaveALongitudeAbove180Its360) {
  CoordsWorld w;
  w.Montre({{"WGS84", "deg 50 180"}, {"WGS84", "deg 50 180.5"}, {"WGS84", "deg 50 540"}});
  EXPECT_TRUE(Dites(w).empty());
  EXPECT_EQ(w.Points(), (Lines{"50 180", "50 -179.5", "50 180"}));
}

TEST(LignesFautives, KeepLambertNumbersOutsideTheZoneWithoutAWord) {
  CoordsWorld w;
  w.Montre({{"NTF", "lf2 5000000 9000000"}, {"BEL72", "lmb -3000000 200000"}});
  EXPECT_TRUE(Dites(w).empty());
  EXPECT_NE(w.Points()[0], "1 2");
  EXPECT_NE(w.Points()[1], "1 2");
}

TEST(LignesFautives, KeepTextsThatCannotBeReadSilent) {
  CoordsWorld w;
  w.Montre({{"WGS84", "xyz 1 2"}, {"WGS84", "utm 31 0 5500000"}, {"BEL72", "ifb I3"}});
  EXPECT_TRUE(Dites(w).empty());
  EXPECT_TRUE(w.vue.selection.empty());
}

TEST(LignesFautives, TellTheFirstTenInTheOrderOfTheGrid) {
  CoordsWorld w;
  std::vector<CoordsWorld::Row> rows;
  for (int i = 1; i <= 15; ++i) {
    const bool wrong = i != 4;
    rows.push_back(
        {"WGS84", wrong ? "deg " + std::to_string(100 + i) + " 4" : "deg 50 4", std::to_string(i)});
  }
  w.Montre(rows);
  test::MontreSelect(w.state.document, "SELECT * FROM TALPENA ORDER BY LATITUDE DESC");
  const Lines lines = Dites(w);
  ASSERT_EQ(lines.size(), 11U);
  EXPECT_EQ(lines[0], "Row 1: deg 115 4 (the latitude 115° lies beyond 90°)");
  EXPECT_EQ(lines[9], "Row 10: deg 106 4 (the latitude 106° lies beyond 90°)");
  EXPECT_EQ(lines[10], "...");
  EXPECT_EQ(w.vue.selection.size(), 14U);
  EXPECT_EQ(w.state.document.Data1.recordset().GetBookmark(), 15) << "the first of them is in view";
  EXPECT_EQ(w.Points()[3], "50 4");
}

TEST(LignesFautives, AreThoseWhoseCellLiesBeyondThePoleToo) {
  CoordsWorld w;
  w.Montre({{"WGS84", "deg 89 4"}, {"WGS84", "deg 50 4"}});
  AjusteDegres(w.Contexte(), 8, SansMaille);
  EXPECT_EQ(w.Points(), (Lines{"1 2", "52 4"}));
  ASSERT_EQ(w.dialogues.boxes.size(), 1U);
  const std::string text = w.Boites()[0];
  EXPECT_NE(text.find("Row 1: deg 89 4 (there is no such place on the datum or grid asked for)"),
            std::string::npos)
      << text;
}

TEST(LignesFautives, OfAFillKeepTheirText) {
  CoordsWorld w;
  w.Montre({{"WGS84", "deg 50.85 4.35", "50.85", "4.35"},
            {"WGS84", "deg 5085 4.35", "5085", "4.35", "kept"},
            {"WGS84", "deg 50.85 4.35", "50.85", "4.35"}});
  MnuRemplirXY_Click(w.Contexte(), 2);
  const Lines comments = w.Commentaires();
  EXPECT_EQ(comments[1], "kept");
  EXPECT_NE(comments[0], "-");
  EXPECT_EQ(comments[0], comments[2]);
  ASSERT_EQ(w.dialogues.boxes.size(), 1U);
  const std::string text = w.Boites()[0];
  EXPECT_NE(text.find("Row 2: deg 5085 4.35 (the latitude 5085° lies beyond 90°)"),
            std::string::npos)
      << text;
  EXPECT_EQ(w.vue.selection, (std::vector<Bookmark>{2}));
}

}  // namespace
}  // namespace talpena
