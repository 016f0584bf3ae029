// What every file command starts from: a folder, and files in it.
#pragma once
#include <string>

#include "store/deg_writer.h"
#include "store/file_commands.h"
#include "store/save_fixture.h"

namespace talpena::test {

class FileCommands : public testing::Test, protected Monde {
 protected:
  std::string path = folder / "a.deg";
  std::string bak = folder / "a.BAK";

  /// A file of `rows` rows on disk, without a trace in the state.
  void PoseFichier(const std::string& name, int rows) {
    Monde other;
    for (int i = 0; i < rows; ++i) other.Ajoute({.period = 1, .latitude = i, .longitude = i});
    EcritDeg(other.context, name, WriteMode::Rows);
  }
  void OuvreA(int rows) {
    PoseFichier(path, rows);
    dialogues.paths = {path};
    MnuOuvrir_Click(context);
    ASSERT_EQ(NombreLignes(), rows);
    vue.calls.clear();
    dialogues.fileDialogs.clear();
    sound.bips = 0;
  }
  void Modifie() { Ajoute({.period = 2, .latitude = 1, .longitude = 1}); }
};

}  // namespace talpena::test
