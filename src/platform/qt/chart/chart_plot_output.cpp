// ChartPlot: the chart as a picture of its own.
#include <QBuffer>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <QtMath>

#include "platform/qt/chart/chart_plot.h"
#include "platform/qt/chart/plot_library.h"

namespace talpena {
namespace {

constexpr double PngDots = 3;            ///< for a pixel of the screen
constexpr double PointsPerPixel = 0.75;  ///< of paper
constexpr int PdfResolution = 1200;      ///< dots to the inch

QPalette CouleursDuPapier() {
  QPalette paper;
  paper.setColor(QPalette::Base, Qt::white);
  paper.setColor(QPalette::Text, Qt::black);
  return paper;
}

}  // namespace

/// The plot in the colours of paper, for as long as it lives.
class ChartPlot::Paper {
 public:
  explicit Paper(const ChartPlot& chart) : chart_(const_cast<ChartPlot&>(chart)) {
    chart_.mark_->setVisible(false);
    chart_.Colore(CouleursDuPapier());
  }
  Paper(const Paper&) = delete;
  Paper& operator=(const Paper&) = delete;
  ~Paper() {
    chart_.Colore(chart_.palette());
    chart_.MarquePoint();
  }

  QImage Image(QSize size, double dots) {
    Dispose(size);
    return chart_.plot_->toPixmap(size.width(), size.height(), dots).toImage();
  }
  /// On a device with so many dots for a pixel.
  void Peint(QPaintDevice& device, QSize size, double dots) {
    Dispose(size);
    QCPPainter painter;
    painter.begin(&device);
    painter.setMode(QCPPainter::pmVectorized);
    painter.setMode(QCPPainter::pmNoCaching);
    painter.setMode(QCPPainter::pmNonCosmetic);
    painter.scale(dots, dots);
    painter.fillRect(QRect(QPoint(0, 0), size), Qt::white);
    chart_.plot_->toPainter(&painter, size.width(), size.height());
  }

 private:
  /// The labels are chosen before the layout is made: this makes that of the size.
  void Dispose(QSize size) { chart_.plot_->toPixmap(size.width(), size.height(), 1); }

  ChartPlot& chart_;
};

QImage ChartPlot::EnImage(QSize size, double dotsPerPixel) const {
  return Paper(*this).Image(size, dotsPerPixel);
}

QByteArray ChartPlot::EnPng(QSize size) const {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  EnImage(size, PngDots).save(&buffer, "PNG");
  return bytes;
}

QByteArray ChartPlot::EnSvg(QSize size) const {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QSvgGenerator svg;
  svg.setOutputDevice(&buffer);
  svg.setSize(size);
  svg.setViewBox(QRect(QPoint(0, 0), size));
  svg.setTitle(QString::fromStdString(picture_.graphTitle));
  Paper(*this).Peint(svg, size, 1);
  return bytes;
}

QByteArray ChartPlot::EnPdf(QSize size) const {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter pdf(&buffer);
  pdf.setResolution(PdfResolution);
  pdf.setPageSize(QPageSize(QSizeF(size) * PointsPerPixel, QPageSize::Point));
  pdf.setPageMargins(QMarginsF());
  pdf.setTitle(QString::fromStdString(picture_.graphTitle));
  Paper(*this).Peint(pdf, size, PointsPerPixel * PdfResolution / 72);
  return bytes;
}

}  // namespace talpena
