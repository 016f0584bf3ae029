// Where the axes of a chart have their labels, at any size of the window.
#pragma once
#include "platform/chart.h"
#include "platform/qt/chart/plot_library.h"

namespace talpena {

/// Of the points: as many labels as have room.
class PointTicker final : public QCPAxisTicker {
 public:
  PointTicker(const ChartPicture& picture, const QCPAxis& axis);

 protected:
  QVector<double> createTickVector(double tickStep, const QCPRange& range) override;
  QString getTickLabel(double tick, const QLocale& locale, QChar formatChar,
                       int precision) override;
  int getSubTickCount(double) override { return 0; }

 private:
  int LargeurLibelle() const;  ///< of the widest label, pixels

  ChartPicture picture_;
  const QCPAxis& axis_;
};

/// Of values: whole numbers, as everything that is counted or summed up is.
/// Fewer of them on a low axis, so that none touches its neighbour.
class WholeTicker final : public QCPAxisTicker {
 public:
  explicit WholeTicker(const QCPAxis& axis) : axis_(axis) {}

 protected:
  double getTickStep(const QCPRange& range) override;
  QString getTickLabel(double tick, const QLocale& locale, QChar formatChar,
                       int precision) override;
  int getSubTickCount(double) override { return 0; }

 private:
  const QCPAxis& axis_;
};

}  // namespace talpena
