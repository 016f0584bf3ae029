// A program without windows that shows a raster map.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "fakes/fake_canvas.h"
#include "maps/raster/raster_context.h"
#include "maps/raster/raster_plot.h"
#include "store/coords_world.h"

namespace talpena::test {

class FakeRasterWindow : public RasterWindow {
 public:
  int montres = 0;  ///< how often the canvas was shown
  void MontreCanevas() override { ++montres; }
};

struct RasterWorld : CoordsWorld {
  RasterMap carte;
  RasterSession session;
  FakeCanvas canvas;
  FakeRasterWindow fenetre;

  RasterWorld() {
    for (const RasterRow& row : CartesRaster()) {
      canvas.images["/app/" + std::string(row.file)] = {1600, 1000};
    }
  }
  RasterContext Carte() { return {carte, session, canvas, fenetre, state, io, vue, vue}; }
  void Ouvre(CarteRaster choisie) { ChargeCarteRaster(Carte(), choisie); }

  struct Point {
    std::optional<int> period;
    std::optional<double> latitude, longitude;
  };
  /// Puts rows into the table and shows them, as a file that was just opened.
  void Remplit(const std::vector<Point>& points) {
    const auto table = state.document.WorkingDb->OpenRecordset("TALPENA");
    for (const Point& point : points) {
      table->AddNew();
      if (point.period) table->Set(Column::PERIOD, Cell::Of(std::int64_t{*point.period}));
      if (point.latitude) table->Set(Column::LATITUDE, Cell::Of(*point.latitude));
      if (point.longitude) table->Set(Column::LONGITUDE, Cell::Of(*point.longitude));
      table->Update();
    }
    state.document.RelieSqlCourant();
    state.document.OublieModifications();
  }
  std::vector<CanvasCall> Cercles() const { return canvas.Appels("Circle"); }
  std::vector<std::uint32_t> Couleurs() const {
    std::vector<std::uint32_t> colours;
    for (const CanvasCall& call : Cercles()) colours.push_back(call.attributs.FillColor);
    return colours;
  }
};

}  // namespace talpena::test
