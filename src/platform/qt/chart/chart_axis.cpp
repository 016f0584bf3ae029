#include "platform/qt/chart/chart_axis.h"

#include <QFontMetrics>
#include <algorithm>
#include <cmath>

#include "platform/qt/controls.h"

namespace talpena {

PointTicker::PointTicker(const ChartPicture& picture, const QCPAxis& axis)
    : picture_(picture), axis_(axis) {
  picture_.series.clear();  // names are all that is asked for
}

int PointTicker::LargeurLibelle() const {
  const QFontMetrics font(axis_.tickLabelFont());
  int widest = 0;
  for (const std::string& label : picture_.labels) {
    widest = std::max(widest, font.horizontalAdvance(EnQt(label)));
  }
  if (!picture_.labels.empty()) return widest;
  return font.horizontalAdvance(EnQt(NomDuPoint(picture_, picture_.numPoints)));
}

QVector<double> PointTicker::createTickVector(double, const QCPRange& range) {
  const double apart = LargeurLibelle() + QFontMetrics(axis_.tickLabelFont()).averageCharWidth();
  const double room = axis_.axisRect()->width() / std::max(1.0, apart);
  const int step = PasLisible(picture_, range.size(), room);
  const int first = std::max(1, static_cast<int>(std::ceil(range.lower)));
  const int last = std::min(picture_.numPoints, static_cast<int>(std::floor(range.upper)));
  QVector<double> ticks;
  for (int point = first; point <= last; ++point) {
    if (EstEtiquete(picture_, point, step)) ticks.append(point);
  }
  return ticks;
}

QString PointTicker::getTickLabel(double tick, const QLocale&, QChar, int) {
  return EnQt(NomDuPoint(picture_, static_cast<int>(std::lround(tick))));
}

double WholeTicker::getTickStep(const QCPRange& range) {
  constexpr int fewest = 2, most = 6, linesApart = 3;
  const int lines = axis_.axisRect()->height() / QFontMetrics(axis_.tickLabelFont()).height();
  setTickCount(std::clamp(lines / linesApart, fewest, most));
  return std::max(1.0, std::round(QCPAxisTicker::getTickStep(range)));
}

QString WholeTicker::getTickLabel(double tick, const QLocale&, QChar, int) {
  return QString::number(tick + 0.0, 'f', 0);
}

}  // namespace talpena
