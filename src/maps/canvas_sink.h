// A map on a canvas: that of the view, or that of a page.
#pragma once
#include "maps/map_context.h"
#include "maps/map_sink.h"

namespace talpena {

/// Draws on a canvas, line layers too.
class CanvasSink : public MapSink {
 public:
  /// @param collecteur  what collects the lines of the layers in pixels of this canvas
  CanvasSink(Canvas& canvas, Polygon& collecteur) : canvas_(canvas), collecteur_(collecteur) {}

  Canvas& Canevas() { return canvas_; }
  Polygon& Collecteur() { return collecteur_; }

  void CommenceSymboles(const SymbolLook& look) override;
  void TraceSymboles(std::span<const float> X, std::span<const float> Y) override;
  /// Lines of the grid are dotted.
  void CommenceGrille() override;
  void FinitGrille() override;
  /// A dot, and lines from node to node. A hidden node is joined like any other, but it lies at
  /// infinity: the canvas would show the way to a place that is only far off.
  void TraceRangee(std::span<const float> X, std::span<const float> Y) override;

 private:
  Canvas& canvas_;
  Polygon& collecteur_;
  SymbolLook look_;
};

/// The canvas of the view. A line that a layer left without an end waits in the map's state.
class ScreenSink final : public CanvasSink {
 public:
  explicit ScreenSink(MapContext c) : CanvasSink(c.canvas, c.carte.polygone) {}
  bool EstEcran() const override { return true; }
};

/// The canvas of a page, with a collector of its own: pixels of one surface mean nothing on
/// another, and what waits on the screen goes on waiting.
class PageSink final : public CanvasSink {
 public:
  explicit PageSink(Canvas& page) : CanvasSink(page, lines_) {}

 private:
  Polygon lines_;
};

}  // namespace talpena
