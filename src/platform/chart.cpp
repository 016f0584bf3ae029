#include "platform/chart.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "common/numbers.h"

namespace talpena {

std::string NomDuPoint(const ChartPicture& picture, int point) {
  const auto index = static_cast<std::size_t>(point - 1);
  if (index < picture.labels.size()) return picture.labels[index];
  return Str(std::int64_t{picture.firstPoint} + point - 1);
}

std::string TexteDuPoint(const ChartPicture& picture, int point) {
  std::string text;
  for (const ChartSeries& series : picture.series) {
    const auto index = static_cast<std::size_t>(point - 1);
    if (index >= series.values.size() || !series.values[index]) continue;
    if (!text.empty()) text += ", ";
    if (!series.name.empty()) text += series.name + " ";
    text += Str(*series.values[index]);
  }
  return NomDuPoint(picture, point) + ": " + (text.empty() ? "–" : text);
}

int PasLisible(const ChartPicture& picture, double shown, double room) {
  constexpr std::array byNumber = {2.0, 2.5, 2.0};  // 1, 2, 5, 10, 20, ...
  constexpr std::array byName = {3.0, 2.0, 2.0};    // 1, 3, 6, 12, ... as months and ten-day steps
  const auto& factors = picture.labels.empty() ? byNumber : byName;
  double step = std::max(1, picture.labelEvery);
  for (std::size_t i = 0; shown / step > std::max(1.0, room); ++i) step *= factors[i % 3];
  while (step > 1 && shown / step < 2) {
    const double closer = std::max(1.0, std::floor(step / 2));
    if (shown / closer > room) break;
    step = closer;
  }
  return static_cast<int>(step);
}

bool EstEtiquete(const ChartPicture& picture, int point, int step) {
  if (!picture.labels.empty()) return (point - 1) % step == 0;
  return (picture.firstPoint + point - 1) % step == 0;
}

ValueRange EtendueDesValeurs(const ChartPicture& picture, bool aDroite) {
  ValueRange range;
  for (std::size_t point = 0; point < static_cast<std::size_t>(picture.numPoints); ++point) {
    ValueRange stack;
    for (const ChartSeries& series : picture.series) {
      if (series.aDroite != aDroite || point >= series.values.size()) continue;
      const double value = series.values[point].value_or(0);
      const bool onTop = picture.style == ChartStyle::Stacked && !aDroite;
      double& side = value < 0 ? stack.lowest : stack.highest;
      side = onTop ? side + value : value;
      range.lowest = std::min(range.lowest, stack.lowest);
      range.highest = std::max(range.highest, stack.highest);
    }
  }
  return range;
}

void Chart::DataReset() {
  picture_.series.clear();
  picture_.numPoints = 0;
  point_ = 1;
}

void Chart::NumPoints(int count) {
  picture_.numPoints = count;
  for (ChartSeries& series : picture_.series) series.values.resize(static_cast<std::size_t>(count));
}

void Chart::ThisPoint(double point) { point_ = Arrondi16(point); }

void Chart::GraphData(double value) {
  if (point_ >= 1 && point_ <= picture_.numPoints) {
    Courante().values[static_cast<std::size_t>(point_ - 1)] = value;
  }
  if (autoInc_) ++point_;
}

void Chart::Serie(const std::string& name, bool aDroite, int couleur) {
  picture_.series.push_back({name, {}, aDroite, couleur});
  point_ = 1;
}

ChartSeries& Chart::Courante() {
  if (picture_.series.empty()) picture_.series.emplace_back();
  ChartSeries& series = picture_.series.back();
  series.values.resize(static_cast<std::size_t>(picture_.numPoints));
  return series;
}

}  // namespace talpena
