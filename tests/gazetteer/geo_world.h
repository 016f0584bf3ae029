// A record form, a gazetteer of a few places beside it, and the dialog over both.
#pragma once
#include <string>
#include <vector>

#include "common/paths.h"
#include "gazetteer/geo_query.h"
#include "store/record/record_world.h"

namespace talpena::test {

class FakeGazetteerDialogs : public GazetteerDialogs {
 public:
  int setups = 0;
  void MontreGeoSetup() override { ++setups; }
};

struct GazetteerRow {
  std::string key, name;
  Value latitude, longitude;
  std::string fips = {}, feature = {}, country = {};
};

struct GeoWorld : RecordWorld {
  GazetteerState gazetteer;
  FakeGazetteerDialogs dialogs;
  GazetteerContext geo{context, gazetteer, dialogs};
  GeoQueryScreen query;
  std::string path = working / "places.mdb";

  GeoWorld() {
    state.Langue = 1000;
    state.Silence = false;
    environment.prive.clear();
    state.GeoFile = path;
    files.Pose(DossierDe(path), "");
    ChargeGeoQuery(geo, query);
  }

  /// A gazetteer with the fields of a first run, under the name that the settings have.
  void Fait(const std::vector<GazetteerRow>& rows) {
    const auto base = engine->CreateDatabase(path, NewDatabase{});
    const auto text = [](const char* name) {
      return FieldDef{.name = name, .type = FieldType::Text, .size = 255, .allowZeroLength = true};
    };
    base->CreateTable({.name = state.GeoTable,
                       .fields = {text("Sort_Name"),
                                  text("Full_Name"),
                                  {.name = "Latitude", .type = FieldType::Double},
                                  {.name = "Longitude", .type = FieldType::Double},
                                  text("FIPS_QRN"),
                                  text("Feature_Desig_Code"),
                                  text("Country_Name"),
                                  text("Province_Name")},
                       .indexes = {}});
    auto table = base->OpenRecordset(state.GeoTable);
    for (const GazetteerRow& row : rows) {
      table->AddNew();
      const auto set = [&](const char* field, const std::string& value) {
        table->Set(field, Cell::Of(std::string_view(value)));
      };
      set("Sort_Name", row.key);
      set("Full_Name", row.name);
      table->Set("Latitude", Cell::Vue(row.latitude));
      table->Set("Longitude", Cell::Vue(row.longitude));
      set("FIPS_QRN", row.fips);
      set("Feature_Desig_Code", row.feature);
      set("Country_Name", row.country);
      table->Update();
    }
  }

  void Cherche(const std::string& text, GeoSearch kind = GeoSearch::Exact) {
    query.txt = text;
    cmd_Click(geo, query, kind);
  }

  std::vector<std::string> Noms(PlaceColumn column = PlaceColumn::Name) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < query.ListView1.Nombre(); ++i) {
      names.push_back(query.ListView1.Item(i).Texte(column));
    }
    return names;
  }

  /// The first place of an exact search goes into the record form.
  void Choisit(const std::string& text) {
    Cherche(text);
    ListView1_DblClick(geo, query, ecran);
  }
};

}  // namespace talpena::test
