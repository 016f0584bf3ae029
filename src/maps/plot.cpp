#include "maps/plot.h"

#include <array>
#include <cmath>
#include <vector>

#include "maps/projection.h"
#include "platform/busy.h"
#include "platform/commands.h"
#include "store/table.h"

namespace talpena {
namespace {

/// The points of a block of rows, those without coordinates left out.
struct Points {
  std::vector<float> lat, lon;  ///< radians
  std::vector<float> X, Y;

  void Projette(const MapState& carte, const NumberBlock& block) {
    lat.clear();
    lon.clear();
    for (std::size_t row = 0; row < block.rows; ++row) {
      const double latitude = block.Valeur(row, 0), longitude = block.Valeur(row, 1);
      if (std::isnan(latitude) || std::isnan(longitude)) continue;
      lat.push_back(radian(static_cast<float>(latitude)));
      lon.push_back(radian(static_cast<float>(longitude)));
    }
    // Of a point that a pole's map hides only X is set.
    X.assign(lat.size(), 0);
    Y.assign(lat.size(), 0);
    ProjectPoints(carte, lat, lon, X, Y);
  }
};

void Trace(MapContext c, MapSink& sink) {
  const std::vector<Bookmark> chosen = c.vue.LignesSelectionnees();
  const Busy busy(c.attente);
  Points points;
  c.state.document.Data1.recordset().LitNombres(std::array{Column::LATITUDE, Column::LONGITUDE},
                                                chosen.empty() ? nullptr : &chosen,
                                                [&](const NumberBlock& block) {
                                                  points.Projette(c.carte, block);
                                                  sink.TraceSymboles(points.X, points.Y);
                                                });
}

}  // namespace

float DiametreSymbole(const MapState& carte, const MapOption& options) {
  if (options.SymbolDiameter == -1) return static_cast<float>(carte.CoteKm / 50.0);
  if (carte.CodeProjection == 0) return static_cast<float>(options.SymbolDiameter);
  return static_cast<float>(options.SymbolDiameter / 1000.0);
}

void PrepareSymboles(Canvas& canvas) {
  canvas.Attributs.DrawWidth = 1;
  canvas.Attributs.ForeColor = 0;
  canvas.Attributs.drawStyle = DrawStyle::Solid;
  canvas.Attributs.RingWidth = 1;  // neighbours that overlap stay apart
}

void PlotSymbol(Canvas& canvas, float x, float y, int shape, float diameter, std::uint32_t colour,
                FillStyle fill) {
  canvas.Attributs.FillColor = colour;
  canvas.Attributs.fillStyle = fill;
  if (shape == 1) canvas.Circle(x, y, diameter / 2.0);
}

void PlotDistri(MapContext c, MapSink& sink) {
  if (!c.state.document.Data1.EstLie() || c.state.document.Data1.recordset().RecordCount() == 0) {
    Bip(c.state, c.io);
    return;
  }
  if (c.carte.CodeProjection == 0) {
    Bip(c.state, c.io);
    c.io.dialogues.Demande(
        {.text = "This map is not georeferenced.\rMapping aborted", .icon = Icon::Stop});
    return;
  }
  sink.CommenceSymboles(
      {DiametreSymbole(c.carte, c.options), static_cast<std::uint32_t>(c.options.SymbolColor)});
  Trace(c, sink);
}

}  // namespace talpena
