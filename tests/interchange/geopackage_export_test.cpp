// Rows as points of a GeoPackage, as other programs see them.
#include "formats.h"
#include "interchange/database_fixture.h"
#include "platform/foreign/command_output.h"
#include "platform/geopackage_point.h"

namespace talpena::test {
namespace {

class GeoPackageExport : public DatabaseExportTest {
 protected:
  GeoPackageExport() {
    Prend(TousLesFormats());
    state.ExportLatitude = state.ExportLongitude = state.ExportFreeField = 1;
  }

  void Champs(const std::vector<std::string>& labels) {
    Edition edition(state.document, "Test");
    for (const std::string& label : labels) {
      edition.Entete().FreeFieldDefs.push_back({.Label = label, .Code = "C", .Width = 10});
    }
    edition.Valide();
  }
  void Datum(const char* code) {
    Edition edition(state.document, "Test");
    edition.Entete().DatumFichierCode = code;
    edition.Entete().DatumFichier = ChercheDatum(state.Catalogue, code);
    edition.Valide();
  }
  ReadTable Exporte() {
    ExporteVers(GeoPackageFile, path_);
    return LitTable(*makers, path_, "GeoPackage;");
  }
  /// What ogrinfo says of the layer; empty where it is not installed.
  std::string Ogrinfo(const std::string& flags) const {
    if (!Sortie("command -v ogrinfo")) return {};
    const auto told = Sortie("ogrinfo " + flags + " '" + path_ + "' moles 2>&1");
    if (!told) ADD_FAILURE() << "ogrinfo cannot read " << path_;
    return told.value_or("");
  }

  std::string path_ = folder / "moles.gpkg";
};

#define CONTAINS(text, part) EXPECT_NE((text).find(part), std::string::npos) << (text)

// As PROJ has it from EUR-M (1950 mean) with the same three shifts.
TEST_F(GeoPackageExport, HasThePointsOnWgs84) {
  Datum("WGS84");
  Ajoute(Ligne());
  Exporte();
  EXPECT_EQ(Boites(), Texts{});
  const std::string told = Ogrinfo("-al");
  if (told.empty()) GTEST_SKIP() << "the tools of GDAL are not installed";
  CONTAINS(told, "Layer name: moles");
  CONTAINS(told, "Geometry: Point");
  CONTAINS(told, "Feature Count: 1");
  CONTAINS(told, "Extent: (3.921200, 50.412340) - (3.921200, 50.412340)");
  CONTAINS(told, "ID[\"EPSG\",4326]");
  CONTAINS(told, "POINT (3.9212 50.41234)");
  EXPECT_EQ(told.find("Warning"), std::string::npos) << told;
}

TEST_F(GeoPackageExport, MovesThemFromTheDatumOfTheFile) {
  Datum("EUR-M");
  Ajoute(Ligne());
  const ReadTable table = Exporte();
  double latitude = Val("50.41234"), longitude = Val("3.9212");
  ConvertitDatum(state.Catalogue, latitude, longitude, 0, latitude, longitude,
                 ChercheDatum(state.Catalogue, "EUR-M"), ChercheDatum(state.Catalogue, "WGS84"));
  EXPECT_NE(latitude, Val("50.41234"));
  EXPECT_EQ(table.rows[0].back(), PointGeoPackage(longitude, latitude));
  EXPECT_EQ(table.rows[0][0], Str(50.41234F)) << "the columns are as in the table";
}

TEST_F(GeoPackageExport, ARowWithoutAPointHasNone) {
  for (const bool north : {true, false}) {
    Rangee row = Ligne();
    (north ? row.latitude : row.longitude).reset();
    Ajoute(row);
  }
  Rangee pole = Ligne();
  pole.latitude = 91;
  Ajoute(pole);
  Ajoute(Ligne());
  const ReadTable table = Exporte();
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(table.rows[i].back(), "(null)");
  EXPECT_NE(table.rows[3].back(), "(null)");
  EXPECT_EQ(table.rows[0][0], "(null)");
  EXPECT_EQ(Boites(), Texts{});
}

TEST_F(GeoPackageExport, AFileOnADatumThatTheCatalogueLacksHasNoPointsAndIsToldSo) {
  Datum("QQQ");
  AjouteToutes(Ligne(), Ligne());
  const ReadTable table = Exporte();
  EXPECT_EQ(table.rows[1].back(), "(null)");
  EXPECT_EQ(Boites(), Texts{"This datum is absent from the available datums!\n\nQQQ"});
}

TEST_F(GeoPackageExport, HasAColumnForEachFreeField) {
  Champs({" Town ", "Place", "Place", "", "geom", "FID"});
  Rangee row = Ligne();
  row.comment = "Mons/wood/oak";
  Ajoute(row);
  const ReadTable table = Exporte();
  EXPECT_EQ(table.Noms(), (Texts{"Latitude", "Longitude", "Comments", "Town", "Place", "Place_2",
                                 "C", "geom_2", "FID_2", "Title and comment", "geom"}));
  EXPECT_EQ(table.rows[0][2], "Mons/wood/oak");
  EXPECT_EQ(table.rows[0][3], "Mons");
  EXPECT_EQ(table.rows[0][4], "wood");
  EXPECT_EQ(table.rows[0][5], "oak");
  EXPECT_EQ(table.rows[0][6], "");
}

TEST_F(GeoPackageExport, WithoutTheFreeFieldThereAreNoSuchColumns) {
  Champs({"Town"});
  state.ExportFreeField = 0;
  Ajoute(Ligne());
  EXPECT_EQ(Exporte().Noms(), (Texts{"Latitude", "Longitude", "Title and comment", "geom"}));
}

TEST_F(GeoPackageExport, IsFoundByTheIndexOfPlaces) {
  Datum("WGS84");
  for (int i = 0; i < 500; ++i) {
    Rangee row = Ligne();
    row.longitude = i / 10.0;
    row.n1 = i;
    Ajoute(row);
  }
  Exporte();
  const std::string told = Ogrinfo("-al -so -spat 10.05 50 20.05 51");
  if (told.empty()) GTEST_SKIP() << "the tools of GDAL are not installed";
  CONTAINS(told, "Feature Count: 100");
}

}  // namespace
}  // namespace talpena::test
