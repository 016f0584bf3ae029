#include "maps/plot.h"

#include <array>
#include <cmath>
#include <vector>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "maps/projection.h"
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
  Recordset& rows = c.state.document.Data1.recordset();
  Busy busy(c.attente);
  AnnonceAttente(busy, c.state,
                 chosen.empty() ? rows.RecordCount() : static_cast<std::int64_t>(chosen.size()));
  Points points;
  rows.LitNombres(std::array{Column::LATITUDE, Column::LONGITUDE},
                  chosen.empty() ? nullptr : &chosen, [&](const NumberBlock& block) {
                    points.Projette(c.carte, block);
                    sink.TraceSymboles(points.X, points.Y);
                  });
}

}  // namespace

void AnnonceAttente(Busy& busy, const SharedState& state, std::int64_t rows) {
  constexpr std::int64_t many = 200000;
  if (rows >= many) busy.Message(Texte(state.Langue, MsgId::Patientez));
}

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

void CacheSymbole(Canvas& canvas, double x, double y, double diameter) {
  constexpr std::uint32_t white = 0xFFFFFF;
  const DrawAttributes before = canvas.Attributs;
  canvas.Attributs.ForeColor = white;
  canvas.Attributs.FillColor = white;
  canvas.Attributs.fillStyle = FillStyle::Solid;
  canvas.Attributs.RingWidth = 0;
  canvas.Circle(x, y, diameter / 4.0);
  canvas.Attributs.ForeColor = before.ForeColor;
  canvas.Attributs.RingWidth = before.RingWidth;
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
