#include "datum_database.h"

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "made_table.h"
#include "platform/foreign_format.h"

namespace talpena {
namespace {

FieldDef Champ(std::string name, FieldType type, int size = 0) {
  return {.name = std::move(name), .type = type, .size = size, .required = true};
}

Cell Entier(int value) { return Cell::Of(std::int64_t{value}); }
Cell Texte(std::string_view text) { return Cell::Of(text); }

void EcritEllipsoides(Database& database, const CatalogueSource& source) {
  MadeRows rows(source.ellipsoids, [](const EllipsoidSource& e) {
    return std::vector<Cell>{Entier(e.id), Texte(e.code), Texte(e.name), Cell::Of(e.a),
                             Cell::Of(e.fInv)};
  });
  EcritTable(database,
             {.name = "ELLI",
              .fields = {Champ("ELLI_ID", FieldType::Integer), Champ("ELLI", FieldType::Text, 2),
                         Champ("ELLI_NAME", FieldType::Text, 50), Champ("A", FieldType::Double),
                         Champ("f_Inv", FieldType::Double)},
              .indexes = {}},
             rows);
}

void EcritDatums(Database& database, const CatalogueSource& source) {
  MadeRows rows(source.datums, [&](const DatumSource& d) {
    return std::vector<Cell>{Entier(d.da),    Cell::Of(d.df),       Cell::Of(d.dx), Cell::Of(d.dy),
                             Cell::Of(d.dz),  Entier(d.ellipsoid),  Texte(d.code),  Texte(d.name),
                             Texte(d.applic), Entier(source.Use(d))};
  });
  EcritTable(database,
             {.name = "Datum",
              .fields = {Champ("da", FieldType::Integer), Champ("df", FieldType::Double),
                         Champ("dx", FieldType::Double), Champ("dy", FieldType::Double),
                         Champ("dz", FieldType::Double), Champ("ELLI_ID", FieldType::Integer),
                         Champ("Code", FieldType::Text, 5), Champ("Name", FieldType::Text, 50),
                         Champ("Applic", FieldType::Text, 100), Champ("Use", FieldType::Integer)},
              .indexes = {}},
             rows);
}

}  // namespace

void EcritBaseDatums(TableEngine& engine, const CatalogueSource& source, const std::string& path) {
  const auto database = engine.CreateForeignDatabase(path, Connect::Access, NewDatabase{});
  EcritEllipsoides(*database, source);
  EcritDatums(*database, source);
}

}  // namespace talpena
