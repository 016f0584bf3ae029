// A program without windows into which waypoints are imported.
#pragma once
#include <string>
#include <vector>

#include "interchange/waypoint_commands.h"
#include "store/coords_world.h"

namespace talpena::test {

/// An empty file on WGS84 with the shipped catalogue; new rows in degrees stand on WGS84 too.
struct WaypointWorld : CoordsWorld {
  InterchangeState interchange;
  objGraminImport options;

  WaypointWorld() {
    state.DatumSpherique = state.Catalogue.DatumWgs84;
    state.DatumSpheriqueCode = "WGS84";
    Montre({});
  }

  ImportContext Contexte() { return {{context}, interchange, vue}; }

  void ImporteWpt(const std::string& bytes) {
    files.Pose("/gps/points.wpt", bytes);
    dialogues.paths.emplace_back("/gps/points.wpt");
    ImportGarmin(Contexte());
  }

  /// Every waypoint of a text, on the grid and the datum that it names.
  void ImporteMapSource(const std::string& bytes) {
    files.Pose("/gps/points.txt", bytes);
    MapSourceText text;
    RempliLV(files, "/gps/points.txt", text);
    Importe(text);
  }
  void Importe(const MapSourceText& text) {
    ImportMapSource(
        context, interchange, text,
        {.grid = text.grid.value_or(-1), .datum = text.datum, .items = TousLesPoints(text)},
        options);
  }
};

}  // namespace talpena::test
