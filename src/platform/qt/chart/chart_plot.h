// A chart on the screen, and as a picture for other programs and for paper.
#pragma once
#include <QByteArray>
#include <QImage>
#include <QPalette>
#include <QSize>
#include <QWidget>
#include <memory>
#include <vector>

#include "platform/chart.h"

class QCPAbstractPlottable;
class QCPItemRect;
class QCPRange;
class QCPTextElement;
class QCustomPlot;

namespace talpena {

/// Bars, stacked or side by side, and lines, in the desktop's colours. One point may be the current
/// one: that under the pointer, or that to which the arrow keys lead. Wheel, + and - change the
/// scale of the points, a drag moves along, 0 shows all.
class ChartPlot : public QWidget {
  Q_OBJECT

 public:
  explicit ChartPlot(QWidget* parent = nullptr);
  ~ChartPlot() override;

  void Montre(const ChartPicture& picture);
  const ChartPicture& Image() const { return picture_; }
  int PointCourant() const { return point_; }  ///< 0 for none
  void VaA(int point);                         ///< the nearest that there is; 0 for none
  void Zoome(double factor);                   ///< above 1: fewer points
  void MontreTout();

  // In the colours of paper, without the mark of the current point, of a size in pixels of a
  // screen.
  QImage EnImage(QSize size, double dotsPerPixel) const;
  QByteArray EnPng(QSize size) const;
  QByteArray EnSvg(QSize size) const;
  QByteArray EnPdf(QSize size) const;

 Q_SIGNALS:
  void PointChange(int point);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  void leaveEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  class Paper;

  void DisposeAuDessus(bool title, bool legend);
  void AjouteSeries();
  QCPAbstractPlottable* AjouteBarres(const ChartSeries& series);
  QCPAbstractPlottable* AjouteLigne(const ChartSeries& series);
  void RegleAxes();
  void Colore(const QPalette& colours);
  void ColoreAxes(const QColor& text, const QColor& grid);
  void ColoreSerie(std::size_t index, const QColor& background);
  void LimiteEtendue(const QCPRange& range);
  void MarquePoint();
  int PointSous(QPoint pixel) const;
  QFont Police() const;
  void SuitTaille();
  void Redessine();

  QCustomPlot* plot_ = nullptr;
  QCPItemRect* mark_ = nullptr;  ///< behind the current point
  QCPTextElement* title_ = nullptr;
  std::vector<QCPAbstractPlottable*> series_;
  ChartPicture picture_;
  int point_ = 0;
  QSize within_;  ///< size of the axes when the labels were chosen, pixels
};

}  // namespace talpena
