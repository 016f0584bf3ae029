#include "maps/plot.h"

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "common/free_decimal.h"
#include "maps/eps.h"
#include "maps/projection.h"
#include "platform/commands.h"
#include "store/table.h"

namespace talpena {
namespace {

/// One channel of a colour, 0 to 1; `unit` is 1, 256 or 65536.
double Part(std::uint32_t colour, std::uint32_t unit) { return ((colour / unit) & 255U) / 255.0; }

std::string TexteCouleur(std::uint32_t colour) {
  return FormeLibre(Part(colour, 1)) + " " + FormeLibre(Part(colour, 256)) + " " +
         FormeLibre(Part(colour, 65536));
}

/// Circles on the canvas.
class SurCanevas {
 public:
  SurCanevas(MapContext c, float diameter) : c_(c), diameter_(diameter) {}
  void operator()(float X, float Y) const {
    PlotSymbol(c_.canvas, X, Y, 1, diameter_, static_cast<std::uint32_t>(c_.options.SymbolColor),
               FillStyle::Solid);
  }

 private:
  MapContext c_;
  float diameter_;
};

/// A line of the page for each point.
class SurPapier {
 public:
  SurPapier(MapContext c, EpsOutput& eps, float diameter, int mode) : carte_(c.carte), eps_(eps) {
    end_ = " " + FormeLibre(RayonSurPage(c.carte, diameter));
    end_ += mode == 1
                ? " " + TexteCouleur(static_cast<std::uint32_t>(c.options.SymbolColor)) + " sc1"
                : std::string(" 0 s1");
  }
  void operator()(float X, float Y) {
    const PagePoint point = SurPage(carte_, X, Y);
    line_.clear();
    AjouteFormeLibre(line_, point.x);
    line_ += ' ';
    AjouteFormeLibre(line_, point.y);
    line_ += end_;
    eps_.LigneBrute(line_);
  }

 private:
  const MapState& carte_;
  EpsOutput& eps_;
  std::string end_;  ///< radius, colour and operator, the same for all
  std::string line_;
};

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

template <typename Draw>
void Trace(MapContext c, Draw draw) {
  const std::vector<Bookmark> chosen = c.vue.LignesSelectionnees();
  Points points;
  c.state.Data1.recordset().LitNombres(std::array{Column::LATITUDE, Column::LONGITUDE},
                                       chosen.empty() ? nullptr : &chosen,
                                       [&](const NumberBlock& block) {
                                         points.Projette(c.carte, block);
                                         for (std::size_t i = 0; i < points.X.size(); ++i)
                                           draw(points.X[i], points.Y[i]);
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
}

void PlotSymbol(Canvas& canvas, float x, float y, int shape, float diameter, std::uint32_t colour,
                FillStyle fill) {
  canvas.Attributs.FillColor = colour;
  canvas.Attributs.fillStyle = fill;
  if (shape == 1) canvas.Circle(x, y, diameter / 2.0);
}

void PlotDistri(MapContext c, EpsOutput* eps, int mode) {
  const float diameter = DiametreSymbole(c.carte, c.options);
  if (!c.state.Data1.EstLie() || c.state.Data1.recordset().RecordCount() == 0) {
    Bip(c.state, c.io);
    return;
  }
  if (c.carte.CodeProjection == 0) {
    Bip(c.state, c.io);
    c.io.dialogues.Demande(
        {.text = "This map is not georeferenced.\rMapping aborted", .icon = Icon::Stop});
    return;
  }
  PrepareSymboles(c.canvas);
  if (eps != nullptr) {
    Trace(c, SurPapier(c, *eps, diameter, mode));
  } else {
    Trace(c, SurCanevas(c, diameter));
  }
}

}  // namespace talpena
