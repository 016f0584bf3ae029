// What every failing save starts from.
#pragma once
#include <algorithm>
#include <string>
#include <vector>

#include "store/save_fixture.h"

namespace talpena::test {

class SaveFailure : public testing::Test, protected Monde {
 protected:
  std::string path = folder / "a.deg";
  std::string bak = folder / "a.BAK";

  void Ecrit() { EcritDeg(context, path, WriteMode::Rows); }
  std::vector<std::string> Rangees() {
    auto lines = Lignes(LitFichier(path));
    lines.erase(lines.begin(), lines.begin() + std::min<std::ptrdiff_t>(8, std::ssize(lines)));
    return lines;
  }
  static std::string Question(const std::string& description) {
    return "Erreur pendant la sauvegarde\n" + description + "\nContinuer?";
  }
};

}  // namespace talpena::test
