#include "maps/symbol_cover.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <utility>
#include <vector>

#include "maps/map_sink.h"
#include "maps/plot.h"

namespace talpena {
namespace {

constexpr double mostCovered = 0.1;  ///< of the land
constexpr double mostLanes = 4000;   ///< of the cells along the longer side of a map
constexpr double cellsAcross = 4;    ///< of a symbol

/// The points of a drawing that lie in the box of the map.
class PointSink final : public MapSink {
 public:
  explicit PointSink(const MapState& carte) : carte_(carte) {}

  void CommenceSymboles(const SymbolLook&) override {}
  void TraceSymboles(std::span<const float> X, std::span<const float> Y) override {
    for (std::size_t i = 0; i < X.size(); ++i) {
      const float x = X[i] - carte_.XGauche, y = Y[i] - carte_.YBas;
      if (x >= 0 && x < carte_.LargeurKm && y >= 0 && y < carte_.HauteurKm)
        points.emplace_back(x, y);
    }
  }
  void CommenceGrille() override {}
  void FinitGrille() override {}
  void TraceRangee(std::span<const float>, std::span<const float>) override {}

  std::vector<std::pair<float, float>> points;  ///< kilometres from the lower left corner

 private:
  const MapState& carte_;
};

/// A map in square cells, those that symbols cover marked.
class CoverGrid {
 public:
  CoverGrid(const MapState& carte, double diameterKm)
      : cell_(std::max(diameterKm / cellsAcross, carte.CoteKm / mostLanes)),
        radius_(diameterKm / 2 / cell_),
        across_(Cellules(carte.LargeurKm)),
        up_(Cellules(carte.HauteurKm)),
        covered_(across_ * up_, false) {}

  void Marque(std::pair<float, float> km) {
    const double x = km.first / cell_, y = km.second / cell_;
    const auto reach = static_cast<std::ptrdiff_t>(std::ceil(radius_));
    const auto column = static_cast<std::ptrdiff_t>(x), row = static_cast<std::ptrdiff_t>(y);
    MarqueCellule(column, row);  // also where a symbol is smaller than a cell
    for (std::ptrdiff_t dy = -reach; dy <= reach; ++dy) {
      for (std::ptrdiff_t dx = -reach; dx <= reach; ++dx) {
        const double fromX = static_cast<double>(column + dx) + 0.5 - x;
        const double fromY = static_cast<double>(row + dy) + 0.5 - y;
        if (std::hypot(fromX, fromY) <= radius_) MarqueCellule(column + dx, row + dy);
      }
    }
  }

  double Km2() const {
    const double ofSymbol = std::numbers::pi * radius_ * radius_;
    return static_cast<double>(count_) * cell_ * cell_ * std::min(1.0, ofSymbol);
  }

 private:
  std::size_t Cellules(double km) const { return static_cast<std::size_t>(km / cell_) + 1; }

  void MarqueCellule(std::ptrdiff_t column, std::ptrdiff_t row) {
    const auto x = static_cast<std::size_t>(column), y = static_cast<std::size_t>(row);
    if (x >= across_ || y >= up_) return;  // below 0 as well
    const std::size_t place = y * across_ + x;
    if (covered_[place]) return;
    covered_[place] = true;
    ++count_;
  }

  double cell_;    ///< kilometres
  double radius_;  ///< of a symbol, cells
  std::size_t across_, up_;
  std::vector<bool> covered_;
  std::size_t count_ = 0;
};

bool Couvre(const MapState& carte, const PointSink& sink, double diameterKm, double mostKm2) {
  CoverGrid grid(carte, diameterKm);
  for (const auto& point : sink.points) {
    grid.Marque(point);
    if (grid.Km2() > mostKm2) return true;
  }
  return false;
}

}  // namespace

std::optional<int> ConseilDiametre(MapContext c, double landShare) {
  const bool rows =
      c.state.document.Data1.EstLie() && c.state.document.Data1.recordset().RecordCount() != 0;
  if (!rows || c.carte.CodeProjection == 0 || !(c.carte.CoteKm > 0)) return {};
  PointSink sink(c.carte);
  PlotDistri(c, sink);
  const double map = static_cast<double>(c.carte.LargeurKm) * c.carte.HauteurKm;
  const double mostKm2 = map * landShare * mostCovered;
  MapOption automatic;
  if (!Couvre(c.carte, sink, DiametreSymbole(c.carte, automatic), mostKm2)) return {};
  const auto fits = std::find_if(DiametresOfferts.rbegin(), DiametresOfferts.rend(),
                                 [&](int km) { return !Couvre(c.carte, sink, km, mostKm2); });
  return fits == DiametresOfferts.rend() ? DiametresOfferts.front() : *fits;
}

}  // namespace talpena
