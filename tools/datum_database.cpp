#include "datum_database.h"

#include <cstdint>
#include <string_view>

namespace talpena {
namespace {

FieldDef Champ(std::string name, FieldType type, int size = 0) {
  return {.name = std::move(name), .type = type, .size = size, .required = true};
}

Cell Entier(int value) { return Cell::Of(std::int64_t{value}); }
Cell Texte(std::string_view text) { return Cell::Of(text); }

void EcritEllipsoides(Database& database, const CatalogueSource& source) {
  database.CreateTable(
      {.name = "ELLI",
       .fields = {Champ("ELLI_ID", FieldType::Integer), Champ("ELLI", FieldType::Text, 2),
                  Champ("ELLI_NAME", FieldType::Text, 50), Champ("A", FieldType::Double),
                  Champ("f_Inv", FieldType::Double)},
       .indexes = {{"PrimaryKey", {"ELLI_ID"}, true, true}}});
  const auto rows = database.OpenRecordset("ELLI");
  for (const EllipsoidSource& e : source.ellipsoids) {
    rows->AddNew();
    rows->Set("ELLI_ID", Entier(e.id));
    rows->Set("ELLI", Texte(e.code));
    rows->Set("ELLI_NAME", Texte(e.name));
    rows->Set("A", Cell::Of(e.a));
    rows->Set("f_Inv", Cell::Of(e.fInv));
    rows->Update();
  }
}

void EcritDatums(Database& database, const CatalogueSource& source) {
  database.CreateTable(
      {.name = "Datum",
       .fields = {Champ("da", FieldType::Integer), Champ("df", FieldType::Double),
                  Champ("dx", FieldType::Double), Champ("dy", FieldType::Double),
                  Champ("dz", FieldType::Double), Champ("ELLI_ID", FieldType::Integer),
                  Champ("Code", FieldType::Text, 5), Champ("Name", FieldType::Text, 50),
                  Champ("Applic", FieldType::Text, 100), Champ("Use", FieldType::Integer)},
       .indexes = {{"PrimaryKey", {"Code"}, true, true}}});
  const auto rows = database.OpenRecordset("Datum");
  for (const DatumSource& d : source.datums) {
    rows->AddNew();
    rows->Set("da", Entier(d.da));
    rows->Set("df", Cell::Of(d.df));
    rows->Set("dx", Cell::Of(d.dx));
    rows->Set("dy", Cell::Of(d.dy));
    rows->Set("dz", Cell::Of(d.dz));
    rows->Set("ELLI_ID", Entier(d.ellipsoid));
    rows->Set("Code", Texte(d.code));
    rows->Set("Name", Texte(d.name));
    rows->Set("Applic", Texte(d.applic));
    rows->Set("Use", Entier(source.Use(d)));
    rows->Update();
  }
}

}  // namespace

void EcritBaseDatums(TableEngine& engine, const CatalogueSource& source, const std::string& path) {
  const auto database = engine.CreateDatabase(path, NewDatabase{});
  Transaction transaction(*database);
  EcritEllipsoides(*database, source);
  EcritDatums(*database, source);
  transaction.Valide();
}

}  // namespace talpena
