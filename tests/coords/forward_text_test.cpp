#include "coords/forward_text.h"

#include <gtest/gtest.h>

#include "coords/ifbl.h"
#include "coords/original_maker.h"

namespace talpena::test {
namespace {

struct ReferenceDuPointTest : ::testing::Test {
  ReferenceDuPointTest() {
    PoseCatalogue(state);
    datumFichier = state.Catalogue.DatumEur;
  }
  CoordState state;
  std::int16_t datumFichier = 0;

  /// What the point of an ORIGINAL is in its own system.
  std::string Retour(CoordSystem system, const std::string& original) {
    std::string code;
    double latitude = 0, longitude = 0;
    const std::int16_t datum = DatumDuSysteme(state, system);
    DecodeOriginal(state, original, datum, latitude, longitude, code);
    ConvertitDatum(state.Catalogue, latitude, longitude, 0, latitude, longitude, datum,
                   datumFichier);
    return ReferenceDuPoint(state, system, datumFichier, latitude, longitude);
  }
};

TEST_F(ReferenceDuPointTest, GivesBackWhatTheSystemsWrite) {
  datumFichier = state.Catalogue.DatumWgs84;
  for (const auto& [system, original] : {
           std::pair{CoordSystem::Grp, "GRP +54.39450 +001.32130"},
           {CoordSystem::Lmb, "LMB 112568 128963"},
           {CoordSystem::Ifb, "IFB G33643"},
           {CoordSystem::Lf1, "LF1 600123 200456"},
           {CoordSystem::Lf2, "LF2 600123 200456"},
           {CoordSystem::Lf3, "LF3 600123 200456"},
           {CoordSystem::Lf4, "LF4 50123 185456"},
           {CoordSystem::Lfe, "LFE 600123 2200456"},
           {CoordSystem::Nma, "NMA 500123 300456"},
           {CoordSystem::Sma, "SMA 500123 300456"},
       }) {
    EXPECT_EQ(Retour(system, original), std::string(original).substr(4)) << original;
  }
}

// The national forward cuts to the metre and lies within 2 m of the inverse.
TEST_F(ReferenceDuPointTest, WritesNationalReferencesInThreeParts) {
  EXPECT_EQ(Retour(CoordSystem::Bng, "BNG SU 3456700012").substr(0, 3), "SU ");
  EXPECT_EQ(Retour(CoordSystem::Bng, "BNG SU 3456700012").size(), 14U);
  EXPECT_EQ(Retour(CoordSystem::Itm, "ITM IO 1500023000").substr(0, 3), "IO ");
}

TEST_F(ReferenceDuPointTest, IsEmptyWhereThereIsNone) {
  EXPECT_EQ(ReferenceDuPoint(state, CoordSystem::Deg, datumFichier, 50, 4), "");
  EXPECT_EQ(ReferenceDuPoint(state, CoordSystem::Mgr, datumFichier, 50, 4), "");
  EXPECT_EQ(ReferenceDuPoint(state, CoordSystem::Bng, datumFichier, 50, 40), "");
  EXPECT_EQ(ReferenceDuPoint(state, CoordSystem::Itm, datumFichier, -33, 18), "");
  EXPECT_EQ(ReferenceDuPoint(state, CoordSystem::Ifb, datumFichier, 43, 4), "");
  EXPECT_EQ(ReferenceDuPoint(state, CoordSystem::Ifb, datumFichier, 49.3, 4.5), "")
      << "a code of no square";
  EXPECT_EQ(ReferenceDuPoint(state, CoordSystem::Lmb, datumFichier, 5000, 4), "");
  state.Catalogue.DatumsSpeciaux[5] = 0;
  EXPECT_EQ(ReferenceDuPoint(state, CoordSystem::Lmb, datumFichier, 50, 4), "");
}

TEST(NommeCarreIfbl, KnowsTheCodesOfSquares) {
  for (const char* code : {"G3", "g336", "G33643", "G3 36 43"}) EXPECT_TRUE(NommeCarreIfbl(code));
  for (const char* code : {"", "G", "G33", "I3", "N3", "GX", "G39643", "G33615", "@3"}) {
    EXPECT_FALSE(NommeCarreIfbl(code)) << code;
  }
}

TEST(EstCarreNational, KnowsTheLetters) {
  EXPECT_TRUE(EstCarreNational(Grille::British, "SU"));
  EXPECT_TRUE(EstCarreNational(Grille::Irish, "IO"));
  EXPECT_FALSE(EstCarreNational(Grille::British, "ZZ"));
  EXPECT_FALSE(EstCarreNational(Grille::British, "SI"));
  EXPECT_FALSE(EstCarreNational(Grille::Irish, "II"));
  EXPECT_FALSE(EstCarreNational(Grille::British, "S"));
  EXPECT_FALSE(EstCarreNational(Grille::British, ""));
}

TEST(EchecMgrsTest, SaysWhyAReferenceIsRefused) {
  CoordState state;
  PoseCatalogue(state);
  const std::int16_t wgs84 = state.Catalogue.DatumWgs84;
  EXPECT_EQ(EchecMgrs(state, "MGR 31 U FR1664", wgs84), "");
  EXPECT_EQ(EchecMgrs(state, "MGR 32 X FR1664", wgs84), MgrsFailure::Invalid);
  EXPECT_EQ(EchecMgrs(state, "MGR 99 U FR1664", wgs84), MgrsFailure::Invalid);
  EXPECT_EQ(EchecMgrs(state, "MGR 31 Y FR1664", wgs84), MgrsFailure::Invalid);
  EXPECT_EQ(EchecMgrs(state, "MGR 31 U AA1664", wgs84), MgrsFailure::OutsideRange);
  EXPECT_EQ(EchecMgrs(state, "MGR 31 U FR166", wgs84), "") << "no reference at all";
  EXPECT_EQ(EchecMgrs(state, "MGR", wgs84), "");
}

}  // namespace
}  // namespace talpena::test
