// A program without windows that a benchmark imports into, and the files of a run.
#pragma once
#include <filesystem>
#include <string>

#include "coords/test_catalogue.h"
#include "fakes/document_states.h"
#include "fakes/silent_platform.h"
#include "fakes/silent_view.h"
#include "store/table.h"

namespace talpena::bench {

/// A list and a database, gone behind the run.
struct ImportFiles {
  explicit ImportFiles(const std::filesystem::path& stem)
      : list(stem.string() + ".txt"), database(stem.string() + ".db") {}
  ImportFiles(const ImportFiles&) = delete;
  ImportFiles& operator=(const ImportFiles&) = delete;
  ~ImportFiles() {
    for (const std::string& file : {list, database, database + "-journal"}) {
      std::filesystem::remove(file);
    }
  }

  std::string list, database;
};

/// A program with an empty table.
struct ImportProgram {
  explicit ImportProgram(const std::string& database) {
    state.Silence = true;
    state.Catalogue = test::CatalogueDesSources();
    state.DatumSpherique = state.Catalogue.DatumEur;
    test::Entete(state.document)->DatumFichierCode = "WGS84";
    test::Entete(state.document)->DatumFichier = state.Catalogue.DatumWgs84;
    std::filesystem::remove(database);
    state.document.WorkingDb = machine.engine->CreateDatabase(database, {});
    CreateTable(*state.document.WorkingDb);
    state.document.Data1.Lie(*state.document.WorkingDb);
    state.document.RelieSqlCourant();
  }
  ImportProgram(const ImportProgram&) = delete;
  ImportProgram& operator=(const ImportProgram&) = delete;
  ~ImportProgram() {
    state.document.Data1 = DataControl();
    state.document.WorkingDb.reset();
  }

  CommandContext Contexte() { return view.Contexte(state, machine.io); }

  test::SilentPlatform machine;
  test::SilentView view;
  StoreState state;
};

}  // namespace talpena::bench
