// Charts as they were shown.
#pragma once
#include <vector>

#include "platform/chart.h"

namespace talpena::test {

struct FakeCharts : ChartPort {
  std::vector<ChartPicture> montres;
  void MontreGraphique(const ChartPicture& picture) override { montres.push_back(picture); }

  /// The values of a series of the last one, point 1 first; what was never charted is -1.
  std::vector<double> Valeurs(std::size_t series = 0) const {
    std::vector<double> values;
    const ChartPicture& last = montres.back();
    if (series >= last.series.size()) return values;
    for (const auto& value : last.series[series].values) values.push_back(value.value_or(-1));
    return values;
  }
};

}  // namespace talpena::test
