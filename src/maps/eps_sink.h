// The distribution and the grid as lines of an EPS file.
#pragma once
#include <string>

#include "maps/eps.h"
#include "maps/map_sink.h"

namespace talpena {

/// Draws on the page whose frame CalculeCadreEPS has set.
class EpsSink final : public MapSink {
 public:
  /// @param mode  1 is colour, any other grey
  EpsSink(const MapState& carte, EpsOutput& eps, int mode)
      : carte_(carte), eps_(eps), mode_(mode) {}

  void CommenceSymboles(const SymbolLook& look) override;
  void TraceSymboles(std::span<const float> X, std::span<const float> Y) override;
  void CommenceGrille() override;
  void FinitGrille() override {}
  bool MarqueLesNoeuds() const override { return true; }
  void TraceRangee(std::span<const float> X, std::span<const float> Y) override;

 private:
  void EcritPoint(float X, float Y, std::string_view end);

  const MapState& carte_;
  EpsOutput& eps_;
  int mode_;
  std::string symbol_;  ///< radius, colour and operator, the same for all
  std::string line_;
};

}  // namespace talpena
