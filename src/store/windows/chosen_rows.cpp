#include "store/windows/chosen_rows.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace talpena {
namespace {

int Haut(RowRun run) { return std::min(run.from, run.to); }
int Bas(RowRun run) { return std::max(run.from, run.to); }
bool PlusHaut(RowRun a, RowRun b) { return Haut(a) < Haut(b); }

RowRun Dirige(int top, int bottom, bool upwards) {
  return upwards ? RowRun{bottom, top} : RowRun{top, bottom};
}

/// Sorted, and with neighbours joined.
std::vector<RowRun> Joint(std::vector<RowRun> rows) {
  std::sort(rows.begin(), rows.end(), PlusHaut);
  std::vector<RowRun> joined;
  for (const RowRun run : rows) {
    if (!joined.empty() && run.from == joined.back().to + 1) {
      joined.back().to = run.to;
    } else {
      joined.push_back(run);
    }
  }
  return joined;
}

/// The parts of a run that lie in sorted runs, in the order of the run.
std::vector<RowRun> Parties(RowRun run, std::span<const RowRun> sorted) {
  std::vector<RowRun> parts;
  auto next = std::partition_point(sorted.begin(), sorted.end(),
                                   [run](RowRun r) { return Bas(r) < Haut(run); });
  const bool upwards = run.to < run.from;
  for (; next != sorted.end() && Haut(*next) <= Bas(run); ++next) {
    const int top = std::max(Haut(*next), Haut(run));
    parts.push_back(Dirige(top, std::min(Bas(*next), Bas(run)), upwards));
  }
  if (upwards) std::reverse(parts.begin(), parts.end());
  return parts;
}

/// What of sorted runs lies in none of their parts, from the first row to the last.
std::vector<RowRun> Reste(std::span<const RowRun> sorted, std::vector<RowRun> taken) {
  std::sort(taken.begin(), taken.end(), PlusHaut);
  std::vector<RowRun> rest;
  auto next = taken.begin();
  for (const RowRun run : sorted) {
    int top = run.from;
    for (; next != taken.end() && Haut(*next) <= run.to; ++next) {
      if (Bas(*next) < top) continue;
      if (Haut(*next) > top) rest.push_back({top, Haut(*next) - 1});
      top = Bas(*next) + 1;
    }
    if (top <= run.to) rest.push_back({top, run.to});
  }
  return rest;
}

}  // namespace

void ChosenRows::Devient(std::vector<RowRun> rows, bool upwards) {
  const std::vector<RowRun> sorted = Joint(std::move(rows));
  const std::vector<RowRun> before = std::exchange(runs_, {});
  for (const RowRun run : before) {
    for (const RowRun part : Parties(run, sorted)) Ajoute(part);
  }
  std::vector<RowRun> added = Reste(sorted, runs_);
  if (upwards) std::reverse(added.begin(), added.end());
  for (const RowRun run : added) Ajoute(Dirige(run.from, run.to, upwards));
}

void ChosenRows::DevientDansLOrdre(std::span<const RowRun> rows) {
  runs_.clear();
  for (const RowRun run : rows) Ajoute(run);
}

// A run goes on from the one before it where it can.
void ChosenRows::Ajoute(RowRun run) {
  if (!runs_.empty()) {
    RowRun& last = runs_.back();
    for (const int step : {1, -1}) {
      const bool lastGoes = last.from == last.to || (last.to > last.from) == (step > 0);
      const bool runGoes = run.from == run.to || (run.to > run.from) == (step > 0);
      if (lastGoes && runGoes && run.from == last.to + step) {
        last.to = run.to;
        return;
      }
    }
  }
  runs_.push_back(run);
}

bool ChosenRows::Contient(int row) const {
  return std::any_of(runs_.begin(), runs_.end(),
                     [row](RowRun run) { return Haut(run) <= row && row <= Bas(run); });
}

std::optional<int> ChosenRows::Derniere() const {
  if (runs_.empty()) return std::nullopt;
  return runs_.back().to;
}

std::int64_t ChosenRows::Nombre() const {
  std::int64_t count = 0;
  for (const RowRun run : runs_) count += std::abs(run.to - run.from) + 1;
  return count;
}

}  // namespace talpena
