#include "carto/surface_clip.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <utility>

namespace talpena {
namespace {

/// One side of a frame: `keep` of the coordinate `along`.
struct Side {
  double PlanePoint::*along;
  double PlanePoint::*across;
  double bound;
  bool lower;  ///< points below the bound are cut off; otherwise those above it

  /// Points on the bound itself count as outside, so that what is kept of an outline never lies
  /// on it as a whole.
  bool Garde(PlanePoint p) const { return lower ? p.*along > bound : p.*along < bound; }
  PlanePoint Croise(PlanePoint a, PlanePoint b) const {
    const double t = (bound - a.*along) / (b.*along - a.*along);
    PlanePoint p;
    p.*along = bound;
    p.*across = a.*across + (b.*across - a.*across) * t;
    return p;
  }
};

/// A place where the bound is crossed: one end of a chain.
struct Crossing {
  double place;
  std::size_t chain;
  bool atEnd;
};

/// Cuts a surface along one straight bound. Where outlines cross it they become open chains; from
/// one end to the other along the bound the surface is inside between the first and the second
/// crossing, the third and the fourth and so on, and that is how the chains are closed.
class Cutter {
 public:
  explicit Cutter(const Side& side) : side_(side) {}

  Surface Coupe(Surface surface) {
    for (Ring& ring : surface) Ajoute(std::move(ring));
    Apparie();
    for (std::size_t i = 0; i < chains_.size(); ++i) {
      if (!used_[i]) AjouteFermee(Relie(i));
    }
    return std::move(kept_);
  }

 private:
  void Ajoute(Ring ring) {
    const auto inside = [this](PlanePoint p) { return side_.Garde(p); };
    const auto out = std::find_if_not(ring.begin(), ring.end(), inside);
    if (out == ring.end()) {
      kept_.push_back(std::move(ring));
      return;
    }
    std::rotate(ring.begin(), out, ring.end());
    for (std::size_t i = 1; i <= ring.size(); ++i)
      Avance(ring[i - 1], i == ring.size() ? ring.front() : ring[i]);
  }

  /// One edge of an outline, which begins outside.
  void Avance(PlanePoint from, PlanePoint to) {
    const bool was = side_.Garde(from), is = side_.Garde(to);
    if (was != is) {
      if (is) chains_.emplace_back();
      const PlanePoint p = side_.Croise(from, to);
      chains_.back().push_back(p);
      crossings_.push_back({p.*side_.across, chains_.size() - 1, was});
    }
    if (is) chains_.back().push_back(to);
  }

  void Apparie() {
    std::stable_sort(crossings_.begin(), crossings_.end(),
                     [](const Crossing& a, const Crossing& b) { return a.place < b.place; });
    used_.assign(chains_.size(), false);
    starts_.assign(chains_.size(), 0);
    ends_.assign(chains_.size(), 0);
    for (std::size_t i = 0; i < crossings_.size(); ++i)
      (crossings_[i].atEnd ? ends_ : starts_)[crossings_[i].chain] = i;
  }

  /// The chains that make one ring with the given one.
  Ring Relie(std::size_t chain) {
    Ring ring;
    bool backwards = false;
    while (!used_[chain]) {
      used_[chain] = true;
      const Line& line = chains_[chain];
      if (backwards) {
        ring.insert(ring.end(), line.rbegin(), line.rend());
      } else {
        ring.insert(ring.end(), line.begin(), line.end());
      }
      const Crossing& next = crossings_[(backwards ? starts_ : ends_)[chain] ^ 1U];
      chain = next.chain;
      backwards = next.atEnd;
    }
    return ring;
  }

  void AjouteFermee(Ring ring) {
    ring.erase(std::unique(ring.begin(), ring.end()), ring.end());
    if (ring.size() > 1 && ring.front() == ring.back()) ring.pop_back();
    if (ring.size() >= 3) kept_.push_back(std::move(ring));
  }

  Side side_;
  Surface kept_;
  std::vector<Line> chains_;
  std::vector<Crossing> crossings_;
  std::vector<std::size_t> starts_, ends_;  ///< of each chain: its place among the crossings
  std::vector<bool> used_;
};

}  // namespace

Surface RogneSurface(const Surface& surface, const Frame& frame) {
  constexpr auto x = &PlanePoint::x, y = &PlanePoint::y;
  const Side sides[] = {{x, y, frame.left, true},
                        {x, y, frame.right, false},
                        {y, x, frame.bottom, true},
                        {y, x, frame.top, false}};
  Surface whole, cut;
  for (const Ring& ring : surface) {
    const Frame own = CadreDe(ring);
    if (!SeTouchent(own, frame)) continue;
    const bool inside =
        frame.Contient({own.left, own.bottom}) && frame.Contient({own.right, own.top});
    (inside ? whole : cut).push_back(ring);
  }
  for (const Side& side : sides) cut = Cutter(side).Coupe(std::move(cut));
  whole.insert(whole.end(), std::make_move_iterator(cut.begin()),
               std::make_move_iterator(cut.end()));
  return whole;
}

}  // namespace talpena
