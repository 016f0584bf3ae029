// A program without windows: state, table engine, files in memory, scripted boxes.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "common/numbers.h"
#include "fakes/document_states.h"
#include "fakes/fake_files.h"
#include "fakes/fake_platform.h"
#include "fakes/fake_view.h"
#include "fakes/temp_folder.h"
#include "platform/sqlite/sqlite_engine.h"
#include "store/deg_reader.h"
#include "store/table.h"

namespace talpena::test {

/// An empty table TALPENA, a catalogue of five datums, nothing open.
struct World : FakeServices {
  TempFolder working;  ///< holds the working database
  FakeFiles files;
  FakeView vue;
  std::unique_ptr<TableEngine> engine = CreeMoteurSqlite();
  Platform io{*engine, files, settings, dialogues, clock, environment, sound};
  StoreState state;
  CommandContext context{state, io, vue, vue, vue};

  World() {
    state.WorkingDbPath = working / "talpena_tmp.mdb";
    state.AppDir = "/app";
    for (const char* code : {"WGS84", "EUR-M", "NTF  ", "NAS-C", "ARS-M"}) {
      DatumRecord datum;
      datum.code = code;
      state.Catalogue.Datums.push_back(datum);
    }
    state.document.WorkingDb = engine->CreateDatabase(state.WorkingDbPath, NewDatabase{});
    CreateTable(*state.document.WorkingDb);
    vue.Suit(state.document);
  }
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  /// Puts bytes under a path and loads it.
  void Charge(const std::string& bytes, MergeMode mode = MergeMode::Replace,
              const std::string& path = "/data/f.deg") {
    files.Pose(path, bytes);
    LitDeg(context, path, mode);
  }

  /// Rows of TALPENA in file order, their ten columns joined by "|", Null as "-".
  std::vector<std::string> Lignes() {
    std::vector<std::string> all;
    const auto rows =
        state.document.WorkingDb->OpenRecordset("SELECT * FROM TALPENA ORDER BY Counter");
    for (; !rows->EOF_(); rows->MoveNext()) all.push_back(Texte(*rows));
    return all;
  }
  static std::string Texte(Recordset& rows) {
    std::string line;
    for (int field = Column::PERIOD; field < Column::Count; ++field) {
      const Cell cell = rows.Get(field);
      if (field > Column::PERIOD) line += '|';
      const bool single = field == Column::LATITUDE || field == Column::LONGITUDE;
      line += cell.EstNull() ? "-" : single ? Str(static_cast<float>(cell.real)) : cell.Texte();
    }
    return line;
  }

  /// The texts of the boxes shown since the last call.
  std::vector<std::string> Boites() {
    std::vector<std::string> texts;
    for (const MessageBox& box : dialogues.boxes) texts.push_back(box.text);
    dialogues.boxes.clear();
    return texts;
  }
};

}  // namespace talpena::test
