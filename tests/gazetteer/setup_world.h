// A program with gazetteers on the disk, in each of the three formats.
#pragma once
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "coords/test_catalogue.h"
#include "fakes/fake_platform.h"
#include "fakes/fake_view.h"
#include "fakes/temp_folder.h"
#include "platform/foreign/dbase/dbase_format.h"
#include "platform/foreign/jet_format.h"
#include "platform/foreign/paradox/paradox_format.h"
#include "platform/os/file_system.h"
#include "platform/sqlite/sqlite_engine.h"
#include "store/command_context.h"

namespace talpena::test {

/// Rows that stand in a list.
class ListedRows final : public RowSource {
 public:
  explicit ListedRows(std::vector<std::vector<Value>> rows) : rows_(std::move(rows)) {}
  bool Suivante(std::span<Cell> cells) override {
    if (next_ == rows_.size()) return false;
    for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = Cell::Vue(rows_[next_][i]);
    ++next_;
    return true;
  }

 private:
  std::vector<std::vector<Value>> rows_;
  std::size_t next_ = 0;
};

inline std::vector<std::unique_ptr<ForeignFormat>> FormatsDeGazetteer() {
  std::vector<std::unique_ptr<ForeignFormat>> formats;
  formats.push_back(CreeFormatJet());
  formats.push_back(CreeFormatDbase());
  formats.push_back(CreeFormatParadox());
  return formats;
}

struct SetupWorld : FakeServices {
  TempFolder dossier;
  FakeView vue;
  std::unique_ptr<TableEngine> engine = CreeMoteurSqlite(FormatsDeGazetteer());
  std::unique_ptr<FileSystem> files = CreeSystemeDeFichiers();
  Platform io{*engine, *files, settings, dialogues, clock, environment, sound};
  StoreState state;
  CommandContext context{state, io, vue, vue, vue};

  SetupWorld() {
    environment.prive = dossier / "cache";
    state.Langue = 1000;
    state.InputMode = 0;
    state.AppDir = dossier.path().string();
    state.Catalogue = CatalogueDesSources();
  }
  SetupWorld(const SetupWorld&) = delete;
  SetupWorld& operator=(const SetupWorld&) = delete;

  static TableDef TableDeLieux(const std::string& name) {
    return {.name = name,
            .fields = {{.name = "KEY", .type = FieldType::Text, .size = 40},
                       {.name = "NAME", .type = FieldType::Text, .size = 60},
                       {.name = "LAT", .type = FieldType::Double},
                       {.name = "LON", .type = FieldType::Double},
                       {.name = "FIPS", .type = FieldType::Text, .size = 4}},
            .indexes = {}};
  }
  static std::vector<std::vector<Value>> Lieux() {
    return {{"MONS", "Mons", 50.45, 3.95, "BE03"},
            {"SAINTGHISLAIN", "Saint-Ghislain", 50.45, 3.82, "BE03"},
            {"NOWHERE", "Nowhere", Value(), Value(), "XX"}};
  }

  /// Makes a database, or a folder of tables, with these tables of places.
  std::string Cree(const std::string& name, std::string_view connect,
                   const std::vector<std::string>& tables) {
    const std::string path = dossier / name;
    if (!connect.empty()) std::filesystem::create_directory(path);
    const auto base = connect.empty() ? engine->CreateForeignDatabase(path, connect, {})
                                      : engine->OpenDatabase(path, false, connect);
    for (const std::string& table : tables) {
      base->CreateTable(TableDeLieux(table));
      ListedRows rows(Lieux());
      base->InsertRows(table, columns, rows);
    }
    return path;
  }

  /// An Access file with one table of these rows; its path.
  std::string CreeTable(const std::string& name, const TableDef& table,
                        std::vector<std::vector<Value>> lines) {
    const std::string path = dossier / name;
    const auto base = engine->CreateForeignDatabase(path, "", {});
    base->CreateTable(table);
    std::vector<std::string_view> fields;
    for (const FieldDef& field : table.fields) fields.push_back(field.name);
    ListedRows rows(std::move(lines));
    base->InsertRows(table.name, fields, rows);
    return path;
  }

  /// The settings as they are once such a table was set up.
  void Regle(const std::string& file, const std::string& connect, const std::string& table) {
    state.GeoFile = file;
    state.GeoDbType = connect;
    state.GeoTable = table;
    state.GeoResearchField = "KEY";
    state.GeoFullNameField = "NAME";
    state.GeoLatitudeField = "LAT";
    state.GeoLongitudeField = "LON";
    state.GeoFipsField = "FIPS";
    state.GeoProvinceField = state.GeoFeatureField = "";
    state.GeoCountryName = state.GeoProvinceName = "";
  }

 private:
  static constexpr std::array<std::string_view, 5> columns{"KEY", "NAME", "LAT", "LON", "FIPS"};
};

}  // namespace talpena::test
