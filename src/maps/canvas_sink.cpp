#include "maps/canvas_sink.h"

#include <limits>

#include "maps/plot.h"

namespace talpena {

void CanvasSink::CommenceSymboles(const SymbolLook& look) {
  look_ = look;
  PrepareSymboles(canvas_);
}

void CanvasSink::TraceSymboles(std::span<const float> X, std::span<const float> Y) {
  for (std::size_t i = 0; i < X.size(); ++i) {
    PlotSymbol(canvas_, X[i], Y[i], 1, look_.diameter, look_.colour, FillStyle::Solid);
  }
}

void CanvasSink::CommenceGrille() { canvas_.Attributs.drawStyle = DrawStyle::Dotted; }

void CanvasSink::FinitGrille() { canvas_.Attributs.drawStyle = DrawStyle::Solid; }

void CanvasSink::TraceRangee(std::span<const float> X, std::span<const float> Y) {
  constexpr double infinite = std::numeric_limits<double>::infinity();
  double fromX = 0, fromY = 0;
  for (std::size_t i = 0; i < X.size(); ++i) {
    const bool hidden = X[i] == HORS_CARTE;
    const double x = hidden ? infinite : X[i], y = hidden ? infinite : Y[i];
    if (i == 0) {
      canvas_.PSet(x, y);
    } else {
      canvas_.Line(fromX, fromY, x, y);
    }
    fromX = x;
    fromY = y;
  }
}

}  // namespace talpena
