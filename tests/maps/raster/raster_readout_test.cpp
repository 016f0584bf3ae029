// The labels beside a raster map.
#include "maps/raster/raster_readout.h"

#include <gtest/gtest.h>

#include <GeographicLib/TransverseMercator.hpp>
#include <string>

#include "common/numbers.h"
#include "coords/datum.h"
#include "coords/lambert.h"
#include "coords/national_grids.h"
#include "coords/test_catalogue.h"

namespace talpena {
namespace {

const DatumCatalogue& Catalogue() {
  static const DatumCatalogue catalogue = test::CatalogueDesSources();
  return catalogue;
}

RasterLabels Lit(CarteRaster carte, PointDegres place) {
  const RasterMap map = RasterDe(LigneRaster(carte), "/app");
  return LitPositionRaster(Catalogue(), map, ProjetteRaster(map, place));
}

/// A place of another datum as EUR-M has it.
PointDegres EnEur(PointDegres place, SystemDatum datum) {
  PointDegres moved;
  ConvertitDatum(Catalogue(), place.latitude, place.longitude, 0, moved.latitude, moved.longitude,
                 Catalogue().DatumsSpeciaux[static_cast<std::size_t>(datum)], Catalogue().DatumEur);
  return moved;
}

// clang-format off
struct TextCase { PointDegres place; const char* text; };
constexpr TextCase texts[] = {
    {{50.25, 4.5},      "Lat=+50.25 / Lon=+4.5"},
    {{50, -0.125},      "Lat=+50. / Lon=-.125"},
    {{-30.126, 20.123}, "Lat=-30.13 / Lon=+20.12"},
};
// clang-format on

TEST(RasterReadout, ThePositionFollowsTheMasksAsPrinted) {
  for (const TextCase& c : texts) {
    EXPECT_EQ(Lit(CarteRaster::Monde, c.place).LblPosition, c.text);
  }
}

// Expected: GeographicLib's transverse Mercator on the International ellipsoid.
TEST(RasterReadout, UtmAndMgrsAreThoseOfTheInternationalEllipsoid) {
  const GeographicLib::TransverseMercator mercator(6378388, 1 / 297.0, 0.9996);
  double east = 0, north = 0;
  mercator.Forward(3, 50.5, 4.5, east, north);
  const RasterLabels labels = Lit(CarteRaster::Belgique, {50.5, 4.5});
  EXPECT_EQ(labels.LblUTM, "E=" + Format(east + 500000, "0") + "   N=" + Format(north, "0"));
  EXPECT_EQ(labels.LblMGRS,
            "31UFR" + Format(east + 500000 - 600000, "00000") + Format(north - 5500000, "00000"));
}

TEST(RasterReadout, AFailureTextStandsInThePlaceOfUtmAndMgrs) {
  const RasterLabels labels = Lit(CarteRaster::Monde, {86, 10});
  EXPECT_EQ(labels.LblUTM, "N  POLAR REGION");
  EXPECT_EQ(labels.LblMGRS, "N  POLAR REGION");
  EXPECT_EQ(labels.LblPosition, "Lat=+86. / Lon=+10.");
}

TEST(RasterReadout, TheBelgianMapShowsLambertOnItsDatum) {
  PointDegres place;
  LambertBelgeVersLatLon(150000.2, 170000.3, place.latitude, place.longitude);
  EXPECT_EQ(Lit(CarteRaster::Belgique, EnEur(place, SystemDatum::Bel72)).LblBNG,
            "x=150000   y=170000");
}

TEST(RasterReadout, TheMapOfGaulShowsParisGradesOnTheirDatum) {
  PointDegres place;
  GradesParisVersLatLon(52.5F, -1.25F, place.latitude, place.longitude);
  EXPECT_EQ(Lit(CarteRaster::Gaule, EnEur(place, SystemDatum::Ntf)).LblBNG,
            "Lat=52.50000 / Lon=-1.25000");
}

/// A national reference in metres of what a map prints.
std::string Nationale(Grille grid, double east, double north) {
  const bool british = grid == Grille::British;
  PointDegres place;
  GrilleVersLatLon(grid, north + (british ? 5527063.816 : 5680030),
                   east + (british ? 100000 : 300000), place.latitude, place.longitude);
  place.longitude = LongitudeSignee(place.longitude);
  return Lit(CarteRaster::IlesBritanniques,
             EnEur(place, british ? SystemDatum::Ogb : SystemDatum::Irl))
      .LblBNG;
}

TEST(RasterReadout, TheBritishMapShowsTheGridOfThePlace) {
  EXPECT_EQ(Nationale(Grille::British, 430050, 180050).substr(0, 3), "SU ");
  EXPECT_EQ(Nationale(Grille::Irish, 200050, 250050).substr(0, 3), "IN ") << "Athlone";
  EXPECT_EQ(Nationale(Grille::British, 245050, 640050).substr(0, 3), "NS ")
      << "Scotland lies in Irish squares too";
}

TEST(RasterReadout, OutsideOfBothGridsThereIsNothing) {
  EXPECT_EQ(Lit(CarteRaster::IlesBritanniques, {49.6, -20}).LblBNG, "");
}

TEST(RasterReadout, MapsOfNoSingleCountryHaveNoGridOfTheirOwn) {
  int without = 0;
  for (const RasterRow& row : CartesRaster()) {
    if (GrilleDe(RasterDe(row, "/app").FichierCarte) == GrilleLocale::None) ++without;
  }
  EXPECT_EQ(without, 11);
  EXPECT_EQ(Lit(CarteRaster::Europe, {50.5, 4.5}).LblBNG, "");
}

TEST(RasterReadout, TheFileNameIsReadInAnyCaseAndItsFolderIsNot) {
  EXPECT_EQ(GrilleDe("/opt/Belgium.BMP"), GrilleLocale::Lambert);
  EXPECT_EQ(GrilleDe("/opt/belgium/europe.bmp"), GrilleLocale::None);
  EXPECT_EQ(NomGrille(GrilleDe("\\britisle.bmp")), "British National Grid");
  EXPECT_EQ(NomGrille(GrilleDe("gaule.bmp")), "Grades Paris");
  EXPECT_EQ(NomGrille(GrilleDe("belgium.bmp")), "Lambert belge");
  EXPECT_EQ(NomGrille(GrilleLocale::None), "");
}

TEST(RasterReadout, LongitudesAbove180LoseATurnFirst) {
  EXPECT_EQ(Lit(CarteRaster::Monde, {10, 190}).LblPosition, "Lat=+10. / Lon=-170.");
  EXPECT_EQ(Lit(CarteRaster::Monde, {10, 190}).LblMGRS,
            Lit(CarteRaster::Monde, {10, -170}).LblMGRS);
}

TEST(RasterReadout, ACatalogueWithoutTheDatumLeavesTheGridEmpty) {
  const RasterMap map = RasterDe(LigneRaster(CarteRaster::Belgique), "/app");
  const RasterLabels labels =
      LitPositionRaster(DatumCatalogue(), map, ProjetteRaster(map, {50.5, 4.5}));
  EXPECT_EQ(labels.LblBNG, "");
  EXPECT_EQ(labels.LblMGRS, "31UFR0638495414");
}

TEST(RasterReadout, WithoutAMapAllLabelsAreEmpty) {
  EXPECT_EQ(LitPositionRaster(Catalogue(), RasterMap(), {1, 2}), RasterLabels());
}

}  // namespace
}  // namespace talpena
