// A dialog of the text import beside an open file.
#pragma once
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "interchange/import_choice.h"
#include "interchange/rehearsal.h"
#include "interchange/text_import.h"
#include "store/coords_world.h"

namespace talpena::test {

class ImportChoiceTest : public ::testing::Test, protected CoordsWorld {
 protected:
  static constexpr std::int16_t english = 1000;
  static constexpr const char* path = "/data/list.txt";
  static inline const std::string twoRows = "1,50.5,4.5,1,2,,\n1,50.6,4.6,1,2,,\n";

  ImportChoiceTest() {
    state.Langue = english;
    state.DatumSpherique = state.Catalogue.DatumEur;
    state.DatumUtm = state.Catalogue.DatumEur;
  }
  ImportChoice Choix() { return {state, interchange, io}; }
  ImportChoice ChoixDe(const std::string& bytes, CoordSystem system = CoordSystem::Deg) {
    files.Pose(path, bytes);
    interchange.FichierImportation = path;
    interchange.TypeImportation = static_cast<std::int16_t>(system);
    return Choix();
  }
  /// What Ok does with the list in hand.
  void Importe() { ImportCoord({Contexte(), interchange, vue}, interchange.TypeImportation); }
  std::unique_ptr<Rehearsal> Repete(const ImportChoice& choice) {
    auto r = std::make_unique<Rehearsal>(state, state.document.Entete().DatumFichier,
                                         state.document.Base(), *choice.Plan());
    while (r->Travaille([] { return true; })) {
    }
    return r;
  }

  InterchangeState interchange;
};

}  // namespace talpena::test
