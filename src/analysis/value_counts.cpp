#include "analysis/value_counts.h"

#include <algorithm>
#include <cmath>

namespace talpena {
namespace {

/// A value and how many of them there are.
struct Run {
  std::int64_t value = 0;
  std::int64_t count = 0;
};

/// The value at a place, from 0, among all in order.
double ValeurA(const std::vector<Run>& runs, std::int64_t place) {
  for (const Run& run : runs) {
    if (place < run.count) return static_cast<double>(run.value);
    place -= run.count;
  }
  return 0;
}

double Fractile(const std::vector<Run>& runs, std::int64_t count, double part) {
  const double place = part * static_cast<double>(count - 1);
  const auto below = static_cast<std::int64_t>(std::floor(place));
  const double low = ValeurA(runs, below);
  const double fraction = place - static_cast<double>(below);
  if (fraction == 0) return low;
  return low + fraction * (ValeurA(runs, below + 1) - low);
}

/// Welford's running sums, a run at a time (Chan, Golub and LeVeque, The American Statistician 37
/// (1983), p. 242): exact where sums of squares are not.
void Moments(const std::vector<Run>& runs, ValueSummary& summary) {
  double mean = 0, squares = 0, seen = 0;
  for (const Run& run : runs) {
    const auto count = static_cast<double>(run.count);
    const double distance = static_cast<double>(run.value) - mean;
    squares += distance * distance * seen * count / (seen + count);
    mean += distance * count / (seen + count);
    seen += count;
  }
  summary.mean = mean;
  if (summary.count > 1) summary.deviation = std::sqrt(squares / (seen - 1));
}

}  // namespace

void ValueCounts::Ajoute(const ValueCounts& more) {
  small_.resize(std::max(small_.size(), more.small_.size()));
  for (std::size_t i = 0; i < more.small_.size(); ++i) small_[i] += more.small_[i];
  others_.insert(others_.end(), more.others_.begin(), more.others_.end());
  nulls_ += more.nulls_;
}

ValueSummary ValueCounts::Resume() const {
  std::vector<std::int64_t> others = others_;
  std::sort(others.begin(), others.end());
  const auto positive = std::lower_bound(others.begin(), others.end(), std::int64_t{0});
  std::vector<Run> runs;
  const auto ajoute = [&runs](std::int64_t value, std::int64_t count) {
    if (!runs.empty() && runs.back().value == value) {
      runs.back().count += count;
    } else if (count > 0) {
      runs.push_back({value, count});
    }
  };
  std::for_each(others.begin(), positive, [&](std::int64_t value) { ajoute(value, 1); });
  for (std::size_t i = 0; i < small_.size(); ++i) ajoute(static_cast<std::int64_t>(i), small_[i]);
  std::for_each(positive, others.end(), [&](std::int64_t value) { ajoute(value, 1); });

  ValueSummary summary;
  summary.nulls = nulls_;
  for (const Run& run : runs) summary.count += run.count;
  if (runs.empty()) return summary;
  summary.minimum = static_cast<double>(runs.front().value);
  summary.maximum = static_cast<double>(runs.back().value);
  summary.quartile1 = Fractile(runs, summary.count, 0.25);
  summary.median = Fractile(runs, summary.count, 0.5);
  summary.quartile3 = Fractile(runs, summary.count, 0.75);
  Moments(runs, summary);
  return summary;
}

}  // namespace talpena
