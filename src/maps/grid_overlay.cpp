#include "maps/grid_overlay.h"

#include <algorithm>
#include <string>
#include <vector>

#include "common/numbers.h"
#include "maps/projection.h"

namespace talpena {
namespace {

/// Nodes of one drawing: the whole world in steps of a fifth of a degree has 3.2 million. A finer
/// step only blackens the map, and the finest would never end; the drawing stops there.
constexpr int LimiteNoeuds = 4'000'000;

/// From and to where one coordinate of the nodes runs.
struct Suite {
  float from = 0, to = 0;
};

/// What a drawing goes over, in radians or in the units of a map of code 0.
struct Maille {
  Suite x, y;
  float step = 0;
};

/// Calls `body` for each value until it answers false. The sum is stored in 32 bits, so that the
/// last value is reached or missed as such sums fall; where it no longer grows, that was the end.
template <typename Body>
bool Parcourt(Suite suite, float step, Body body) {
  for (float value = suite.from; value <= suite.to;) {
    if (!body(value)) return false;
    const float next = value + step;
    if (!(next > value)) break;
    value = next;
  }
  return true;
}

/// One step further out than the multiple of the step at or below a value, but for a negative
/// value.
float Accroche(float value, float step) {
  const double multiple = Int(static_cast<double>(value) / step) * step;
  return EnSimple(value < 0 ? multiple : multiple - step);
}

Maille MailleDe(const MapState& carte) {
  if (carte.CodeProjection == 0)
    return {{carte.Gauche, carte.Droite}, {carte.Bas, carte.Haut}, carte.Pas};
  const float s = radian(carte.Pas);
  const float south = Accroche(EnSimple(Int(carte.LatSud)), carte.Pas);
  const float west = Accroche(EnSimple(Int(carte.LonOuest)), carte.Pas);
  const auto beyond = [s](float degrees) {
    return EnSimple(static_cast<double>(radian(degrees)) + s);
  };
  return {{radian(west), beyond(carte.LonEst)}, {radian(south), beyond(carte.LatNord)}, s};
}

/// The nodes of one row, and how many there were before: a drawing has its share.
class Noeuds {
 public:
  explicit Noeuds(const MapState& carte) : carte_(carte) {}

  void Vide() {
    x_.clear();
    y_.clear();
  }
  /// False when the share is used up.
  bool Ajoute(float x, float y) {
    if (++count_ > LimiteNoeuds) return false;
    x_.push_back(x);
    y_.push_back(y);
    return true;
  }
  /// Draws them as one row. A node without a projection is marked HORS_CARTE.
  void Trace(MapSink& sink) {
    if (carte_.CodeProjection == 0) return sink.TraceRangee(x_, y_);
    X_.assign(x_.size(), 0);
    Y_.assign(y_.size(), 0);
    ProjectPoints(carte_, y_, x_, X_, Y_);
    sink.TraceRangee(X_, Y_);
  }

 private:
  const MapState& carte_;
  std::vector<float> x_, y_;  ///< as they are counted
  std::vector<float> X_, Y_;  ///< on the map
  int count_ = 0;
};

void TraceParalleles(MapSink& sink, const Maille& maille, Noeuds& noeuds) {
  Parcourt(maille.y, maille.step, [&](float y) {
    noeuds.Vide();
    const bool more = Parcourt(maille.x, maille.step, [&](float x) { return noeuds.Ajoute(x, y); });
    noeuds.Trace(sink);
    return more;
  });
}

void TraceMeridiens(MapSink& sink, const Maille& maille, Noeuds& noeuds) {
  Parcourt(maille.x, maille.step, [&](float x) {
    noeuds.Vide();
    const bool more = Parcourt(maille.y, maille.step, [&](float y) { return noeuds.Ajoute(x, y); });
    noeuds.Trace(sink);
    return more;
  });
}

/// A grid is being drawn while it lives.
class GrilleOuverte {
 public:
  explicit GrilleOuverte(MapSink& sink) : sink_(sink) { sink_.CommenceGrille(); }
  GrilleOuverte(const GrilleOuverte&) = delete;
  GrilleOuverte& operator=(const GrilleOuverte&) = delete;
  ~GrilleOuverte() { sink_.FinitGrille(); }

 private:
  MapSink& sink_;
};

float DemandePas(MapContext c) {
  const bool georeferenced = c.carte.CodeProjection != 0;
  std::string answer = c.io.dialogues.Saisie(
      {.prompt = georeferenced ? "Entrez le pas de la maille en degrés décimaux Greenwich."
                               : "Entrez le pas de la maille.",
       .title = "Maille",
       .text = "1"});
  std::replace(answer.begin(), answer.end(), ',', '.');
  return EnSimple(Val(answer));
}

}  // namespace

void DisplayGrid(MapContext c, MapSink& sink, bool ask) {
  if (ask && sink.EstEcran()) c.carte.Pas = DemandePas(c);
  if (!(c.carte.Pas > 0)) return;
  const Maille maille = MailleDe(c.carte);
  const GrilleOuverte grille(sink);
  Noeuds noeuds(c.carte);
  TraceParalleles(sink, maille, noeuds);
  if (!sink.MarqueLesNoeuds()) TraceMeridiens(sink, maille, noeuds);
}

}  // namespace talpena
