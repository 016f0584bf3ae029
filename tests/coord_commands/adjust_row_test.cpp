#include "coord_commands/adjust_row.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "common/numbers.h"
#include "common/talpena_error.h"
#include "coords/datum.h"
#include "coords/ifbl.h"
#include "coords/mgrs.h"
#include "coords/national_grids.h"
#include "coords/original.h"
#include "coords/snap.h"
#include "coords/test_catalogue.h"

namespace talpena {
namespace {

class AdjustRowTest : public ::testing::Test {
 protected:
  AdjustRowTest() {
    state.Catalogue = test::CatalogueDesSources();
    datumFichier = state.Catalogue.DatumEur;
  }
  std::int16_t Datum(std::string_view code) const { return ChercheDatum(state.Catalogue, code); }

  /// A row as the commands hand it over.
  const RowPoint& Lit(std::string_view original, std::string_view datum = "EUR-M") {
    text_ = original;
    row.original = text_;
    row.datum = Datum(datum);
    DecodeOriginal(state, text_, row.datum, row.latitude, row.longitude, code_);
    row.code = code_;
    return row;
  }
  bool Ajuste(std::int16_t mesh, std::int16_t grid) {
    state.MailleChoisie = mesh;
    state.GrilleChoisie = grid;
    return AjusteSurGrille(state, row, datumFichier);
  }
  /// Where a reference lies, on the file's datum.
  void AttendPoint(std::string_view original, std::string_view datum) {
    double latitude = 0, longitude = 0;
    std::string code;
    DecodeOriginal(state, original, Datum(datum), latitude, longitude, code);
    ConvertitDatum(state.Catalogue, latitude, longitude, 0, latitude, longitude, Datum(datum),
                   datumFichier);
    EXPECT_NEAR(row.latitude, latitude, 1e-12) << original;
    EXPECT_NEAR(row.longitude, longitude, 1e-12) << original;
  }

  CoordState state;
  std::int16_t datumFichier = 0;
  RowPoint row;

 private:
  std::string text_, code_;
};

using AjusteSurGrilleTest = AdjustRowTest;
using AjusteSurIfblTest = AdjustRowTest;

TEST_F(AdjustRowTest, DegreesGoToTheFilesDatumFirst) {
  Lit("DEG 50.5 4.25", "WGS84");
  double latitude = 0, longitude = 0;
  ConvertitDatum(state.Catalogue, 50.5, 4.25, 0, latitude, longitude, Datum("WGS84"), datumFichier);
  EXPECT_TRUE(AjusteEnDegres(state, row, datumFichier, SansMaille, SansMaille));
  EXPECT_EQ(row.latitude, latitude);
  EXPECT_EQ(row.longitude, longitude);
  EXPECT_NE(row.latitude, 50.5);
}

TEST_F(AdjustRowTest, DegreesSnapEachAxisByItself) {
  Lit("DEG 50.6 -0.1");
  EXPECT_TRUE(AjusteEnDegres(state, row, datumFichier, SansMaille, 0.5));
  EXPECT_EQ(row.latitude, 50.6);
  EXPECT_DOUBLE_EQ(row.longitude, -0.25);
}

TEST_F(AdjustRowTest, GradesSnapInTheFrameOfParis) {
  Lit("GRP 55.55 2.1");
  EXPECT_TRUE(AjusteEnGrades(state, row, datumFichier));
  EXPECT_NEAR(row.latitude, 55.5 * 0.9, 1e-9);
  EXPECT_NEAR(row.longitude, 2 * 0.9 + 2.337222, 1e-9);
}

TEST_F(AjusteSurGrilleTest, MeshZeroOnlyRecomputes) {
  for (const std::int16_t grid : {AjusteUtm, AjusteBritish, AjusteIrish}) {
    Lit("DEG 50.123456 4.25");
    EXPECT_TRUE(Ajuste(0, grid));
    EXPECT_EQ(row.latitude, 50.123456);
  }
}

TEST_F(AjusteSurGrilleTest, SnapsAReferenceOfTheGrid) {
  Lit("MGR 31 U ES12346789");
  ASSERT_TRUE(Ajuste(4, AjusteUtm));
  AttendPoint("MGR 31 U ES1499964999", "EUR-M");
  Lit("MGR 31 U ES12346789");
  ASSERT_TRUE(Ajuste(5, AjusteUtm));
  AttendPoint("MGR 31 U ES1000070000", "EUR-M");
  Lit("BNG SU 12346789", "OGB-M");
  ASSERT_TRUE(Ajuste(2, AjusteBritish));
  AttendPoint("BNG SU 1249967499", "OGB-M");
  Lit("ITM IN 12346789", "IRL");
  ASSERT_TRUE(Ajuste(7, AjusteIrish));
  AttendPoint("ITM IN 4999949999", "IRL");
}

TEST_F(AjusteSurGrilleTest, ProjectsARowOfAnotherNotation) {
  // 31U ES on the file's datum.
  Lit("UTM 31 512345 5667890");
  ASSERT_TRUE(Ajuste(4, AjusteUtm));
  AttendPoint("MGR 31 U ES1499964999", "EUR-M");
  Lit("DEG 51.16 3.18", "WGS84");
  ASSERT_TRUE(Ajuste(7, AjusteUtm));
  AttendPoint("MGR 31 U ES4999949999", "EUR-M");
}

TEST_F(AjusteSurGrilleTest, ProjectsAReferenceOfAnotherDatum) {
  Lit("MGR 31 U ES00006789", "WGS84");  // on the edge of its 10 km square: moves to the next
  ASSERT_TRUE(Ajuste(4, AjusteUtm));
  AttendPoint("MGR 31 U ES0499964999", "EUR-M");
  Lit("MGR 31 U ES99996789", "WGS84");
  ASSERT_TRUE(Ajuste(4, AjusteUtm));
  AttendPoint("MGR 31 U FS0499964999", "EUR-M");
}

TEST_F(AjusteSurGrilleTest, ReadsZonesBelowTen) {
  Lit("UTM 5 512345 2267890");
  ASSERT_TRUE(Ajuste(4, AjusteUtm));
  EXPECT_NEAR(row.latitude, 20.5, 0.1);
  EXPECT_NEAR(row.longitude, -152.9, 0.1);
}

TEST_F(AjusteSurGrilleTest, SkipsThePolarRegions) {
  Lit("DEG 86 10");
  EXPECT_FALSE(Ajuste(4, AjusteUtm));
  Lit("DEG -82 10");
  EXPECT_FALSE(Ajuste(4, AjusteUtm));
}

TEST_F(AjusteSurGrilleTest, SkipsAReferenceThatCannotBeCompleted) {
  Lit("BNG SU 123", "OGB-M");
  EXPECT_FALSE(Ajuste(4, AjusteBritish));
}

// The forward gets radians there, and finds no letters.
TEST_F(AjusteSurGrilleTest, BritishSkipsOtherNotations) {
  for (const char* original : {"DEG 52.5 -1.5", "UTM 30 600000 5800000", "MGR 30 U XC1234"}) {
    Lit(original);
    EXPECT_FALSE(Ajuste(4, AjusteBritish)) << original;
  }
  Lit("BNG SU 1234", "EUR-M");  // not on the grid's datum either
  EXPECT_FALSE(Ajuste(4, AjusteBritish));
}

// The forward gets the point before its change of datum, though the result is read as Irish.
TEST_F(AjusteSurGrilleTest, IrishTakesThePointAsDecoded) {
  Lit("DEG 53.5 -7.5", "WGS84");
  std::string letters, east, north;
  LatLonVersGrille(Grille::Irish, 53.5, -7.5, letters, east, north);
  std::string square = letters + east + north;
  ASSERT_TRUE(AjusteGrille(square, 1));
  ASSERT_TRUE(Ajuste(1, AjusteIrish));
  AttendPoint("ITM " + square.substr(0, 2) + " " + square.substr(2), "IRL");
}

TEST_F(AjusteSurGrilleTest, SkipsAPointOutsideIreland) {
  Lit("DEG 40 4");
  EXPECT_FALSE(Ajuste(4, AjusteIrish));
}

// On every mesh, the point stays within the diagonal of its cell and does not move any more.
TEST_F(AjusteSurGrilleTest, IsIdempotentAndStaysNear) {
  const double cell[] = {0, 100, 1000, 5000, 10000, 20000, 50000, 100000};
  std::mt19937 random(5);
  std::uniform_real_distribution<double> latitude(-79, 83), longitude(-179.9, 179.9);
  for (std::int16_t mesh = 1; mesh <= 7; ++mesh) {
    for (int i = 0; i < 300; ++i) {
      const double phi = latitude(random), lambda = longitude(random);
      Lit("DEG " + Str(phi) + " " + Str(lambda));
      if (!Ajuste(mesh, AjusteUtm)) continue;
      const double metres = test::Metres(phi, lambda, row.latitude, row.longitude);
      EXPECT_LT(metres, cell[mesh] * 1.42 + 1) << mesh << ' ' << phi << ' ' << lambda;
    }
  }
}

TEST_F(AjusteSurIfblTest, TakesTheCodeAsItStands) {
  for (const auto& [level, square] : {std::pair{2, "G3"}, {4, "G336"}, {6, "G33643"}}) {
    Lit("IFB G33643", "BEL72");
    ASSERT_TRUE(AjusteSurIfbl(state, row, datumFichier, level));
    AttendPoint(std::string("IFB ") + square, "BEL72");
  }
}

TEST_F(AjusteSurIfblTest, KeepsAShortCode) {
  Lit("IFB G3", "BEL72");
  ASSERT_TRUE(AjusteSurIfbl(state, row, datumFichier, 6));
  AttendPoint("IFB G3", "BEL72");
}

TEST_F(AjusteSurIfblTest, ProjectsARowOfAnotherNotation) {
  Lit("LMB 112568 128963", "BEL72");
  std::string code;
  std::int16_t error = 0;
  LambertVersIfbl(112568, 128963, code, error, 6);
  ASSERT_TRUE(AjusteSurIfbl(state, row, datumFichier, 6));
  AttendPoint("IFB " + code, "BEL72");
  Lit("DEG 50.85 4.35", "WGS84");
  ASSERT_TRUE(AjusteSurIfbl(state, row, datumFichier, 2));
  EXPECT_LT(test::Metres(50.85, 4.35, row.latitude, row.longitude), 19000);
}

TEST_F(AjusteSurIfblTest, SkipsWhatLiesOutsideTheGrid) {
  for (const char* original :
       {"DEG 40 4", "DEG 50.85 7.9", "LMB 1000 20000", "LMB 325000 100000", "LMB 100000 265000"}) {
    Lit(original, "BEL72");
    EXPECT_FALSE(AjusteSurIfbl(state, row, datumFichier, 2)) << original;
  }
}

// South of the grid a code of six characters comes out all the same, and its rectangle is one.
TEST_F(AjusteSurIfblTest, TakesTheStripSouthOfTheGrid) {
  Lit("LMB 100000 10000", "BEL72");
  ASSERT_TRUE(AjusteSurIfbl(state, row, datumFichier, 2));
  AttendPoint("IFB M3", "BEL72");
}

}  // namespace
}  // namespace talpena
