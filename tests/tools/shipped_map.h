// A map as it lies beside the program, loaded by the program's own commands.
#pragma once
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "carto/map_catalogue.h"
#include "fakes/silent_map_window.h"
#include "maps/map_files.h"
#include "maps/projection.h"
#include "platform/os/file_system.h"
#include "store/world.h"

namespace talpena::test {

inline std::string DansCarto(const std::string& name) {
  return std::string(TALPENA_CARTO_DIR "/") + name;
}

/// All map descriptions in the folder, without their extension.
inline std::vector<std::string> CartesLivrees() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(TALPENA_CARTO_DIR)) {
    if (entry.path().extension() == ".dsw") names.push_back(entry.path().stem().string());
  }
  return names;
}

/// The real files, a canvas, and a map view without a window.
struct MapDesk : World {
  explicit MapDesk(Canvas& drawn) : canvas(drawn) {}

  bool Ouvre(const std::string& name) {
    carte = {};
    InitFacteurs(carte);
    return ChargeCarte(Contexte(), DansCarto(name + ".dsw"));
  }
  MapContext Contexte() { return {carte, options, canvas, fenetre, state, machine, vue, vue}; }

  std::unique_ptr<FileSystem> disk = CreeSystemeDeFichiers();
  Platform machine{*engine, *disk, settings, dialogues, clock, environment, sound};
  MapState carte;
  MapOption options;
  Canvas& canvas;
  SilentMapWindow fenetre;
};

}  // namespace talpena::test
