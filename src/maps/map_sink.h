// Where a map is drawn: the canvas of the view, a page of the printer, the lines of an EPS file.
#pragma once
#include <cstdint>
#include <span>

namespace talpena {

/// How all symbols of one drawing look.
struct SymbolLook {
  float diameter = 0;        ///< user units: kilometres of the projection
  std::uint32_t colour = 0;  ///< 0xBBGGRR
};

/// Takes points in user units, many at a time: a distribution has a million of them. A point that
/// the map hides has an X of HORS_CARTE.
class MapSink {
 public:
  MapSink() = default;
  MapSink(const MapSink&) = delete;
  MapSink& operator=(const MapSink&) = delete;
  virtual ~MapSink() = default;

  /// Whether the user sits before it and can be asked.
  virtual bool EstEcran() const { return false; }

  /// Ahead of the first symbols: they all look like this.
  virtual void CommenceSymboles(const SymbolLook& look) = 0;
  virtual void TraceSymboles(std::span<const float> X, std::span<const float> Y) = 0;

  /// Before and behind the rows of a grid.
  virtual void CommenceGrille() = 0;
  virtual void FinitGrille() = 0;
  /// Whether nodes are marked, not joined: every one is there with the parallels.
  virtual bool MarqueLesNoeuds() const { return false; }
  /// The nodes of one parallel or meridian, in their order.
  virtual void TraceRangee(std::span<const float> X, std::span<const float> Y) = 0;
};

}  // namespace talpena
