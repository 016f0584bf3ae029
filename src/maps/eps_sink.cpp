#include "maps/eps_sink.h"

#include "common/free_decimal.h"

namespace talpena {
namespace {

/// One channel of a colour, 0 to 1; `unit` is 1, 256 or 65536.
double Part(std::uint32_t colour, std::uint32_t unit) { return ((colour / unit) & 255U) / 255.0; }

std::string TexteCouleur(std::uint32_t colour) {
  return FormeLibre(Part(colour, 1)) + " " + FormeLibre(Part(colour, 256)) + " " +
         FormeLibre(Part(colour, 65536));
}

}  // namespace

void EpsSink::CommenceSymboles(const SymbolLook& look) {
  symbol_ = " " + FormeLibre(RayonSurPage(carte_, look.diameter));
  symbol_ += mode_ == 1 ? " " + TexteCouleur(look.colour) + " sc1" : std::string(" 0 s1");
}

void EpsSink::TraceSymboles(std::span<const float> X, std::span<const float> Y) {
  for (std::size_t i = 0; i < X.size(); ++i) EcritPoint(X[i], Y[i], symbol_);
}

void EpsSink::CommenceGrille() { eps_.Ligne("0 sg .1 setlinewidth"); }

void EpsSink::TraceRangee(std::span<const float> X, std::span<const float> Y) {
  for (std::size_t i = 0; i < X.size(); ++i) {
    if (X[i] != HORS_CARTE) EcritPoint(X[i], Y[i], " m1");
  }
}

void EpsSink::EcritPoint(float X, float Y, std::string_view end) {
  const PagePoint point = SurPage(carte_, X, Y);
  line_.clear();
  AjouteFormeLibre(line_, point.x);
  line_ += ' ';
  AjouteFormeLibre(line_, point.y);
  line_ += end;
  eps_.LigneBrute(line_);
}

}  // namespace talpena
