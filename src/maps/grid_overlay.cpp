#include "maps/grid_overlay.h"

#include <algorithm>
#include <limits>

#include "common/free_decimal.h"
#include "common/numbers.h"
#include "maps/eps.h"
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

/// The nodes of one drawing, in the coordinates of the canvas.
class Noeuds {
 public:
  explicit Noeuds(const MapState& carte) : carte_(carte) {}

  float X = 0, Y = 0;

  /// Moves X and Y to a node; false when the drawing has had its share. A node without a projection
  /// is marked HORS_CARTE.
  bool Place(float x, float y) {
    if (++count_ > LimiteNoeuds) return false;
    if (carte_.CodeProjection == 0) {
      X = x;
      Y = y;
    } else {
      ProjectPoints(carte_, {&y, 1}, {&x, 1}, {&X, 1}, {&Y, 1});
    }
    return true;
  }

 private:
  const MapState& carte_;
  int count_ = 0;
};

/// Joins the nodes of one row; the first is a dot. A hidden node is joined like any other, but it
/// lies at infinity: the canvas would show the way to a place that is only far off.
class Trait {
 public:
  explicit Trait(Canvas& canvas) : canvas_(canvas) {}
  void Ajoute(float X, float Y) {
    const bool hidden = X == HORS_CARTE;
    const double x = hidden ? infinite : X, y = hidden ? infinite : Y;
    if (open_) {
      canvas_.Line(x_, y_, x, y);
    } else {
      canvas_.PSet(x, y);
    }
    open_ = true;
    x_ = x;
    y_ = y;
  }

 private:
  static constexpr double infinite = std::numeric_limits<double>::infinity();
  Canvas& canvas_;
  bool open_ = false;
  double x_ = 0, y_ = 0;
};

void TraceParalleles(Canvas& canvas, const Maille& maille, Noeuds& noeuds) {
  Parcourt(maille.y, maille.step, [&](float y) {
    Trait trait(canvas);
    return Parcourt(maille.x, maille.step, [&](float x) {
      if (!noeuds.Place(x, y)) return false;
      trait.Ajoute(noeuds.X, noeuds.Y);
      return true;
    });
  });
}

void TraceMeridiens(Canvas& canvas, const Maille& maille, Noeuds& noeuds) {
  Parcourt(maille.x, maille.step, [&](float x) {
    Trait trait(canvas);
    return Parcourt(maille.y, maille.step, [&](float y) {
      if (!noeuds.Place(x, y)) return false;
      trait.Ajoute(noeuds.X, noeuds.Y);
      return true;
    });
  });
}

void MarqueNoeuds(const MapState& carte, EpsOutput& eps, const Maille& maille, Noeuds& noeuds) {
  Parcourt(maille.y, maille.step, [&](float y) {
    return Parcourt(maille.x, maille.step, [&](float x) {
      if (!noeuds.Place(x, y)) return false;
      if (noeuds.X == HORS_CARTE) return true;
      const PagePoint place = SurPage(carte, noeuds.X, noeuds.Y);
      eps.Ligne(FormeLibre(place.x) + " " + FormeLibre(place.y) + " m1");
      return true;
    });
  });
}

/// Lines are dotted while it lives.
class Pointille {
 public:
  explicit Pointille(Canvas& canvas) : canvas_(canvas) {
    canvas_.Attributs.drawStyle = DrawStyle::Dotted;
  }
  Pointille(const Pointille&) = delete;
  Pointille& operator=(const Pointille&) = delete;
  ~Pointille() { canvas_.Attributs.drawStyle = DrawStyle::Solid; }

 private:
  Canvas& canvas_;
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

void DisplayGrid(MapContext c, EpsOutput* eps, bool ask) {
  MapState& carte = c.carte;
  if (eps == nullptr && ask) carte.Pas = DemandePas(c);
  if (!(carte.Pas > 0)) return;
  const Maille maille = MailleDe(carte);
  if (eps != nullptr) eps->Ligne("0 sg .1 setlinewidth");
  const Pointille pointille(c.canvas);
  Noeuds noeuds(carte);
  if (eps != nullptr) return MarqueNoeuds(carte, *eps, maille, noeuds);
  TraceParalleles(c.canvas, maille, noeuds);
  TraceMeridiens(c.canvas, maille, noeuds);
}

}  // namespace talpena
