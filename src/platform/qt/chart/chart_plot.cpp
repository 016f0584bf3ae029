#include "platform/qt/chart/chart_plot.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "platform/qt/chart/chart_axis.h"
#include "platform/qt/chart/plot_library.h"
#include "platform/qt/contrast.h"
#include "platform/qt/controls.h"

namespace talpena {
namespace {

constexpr QSize SmallestSize(280, 180);
constexpr double HalfPoint = 0.5;
constexpr double BarWidth = 0.8;    ///< of the distance of two points
constexpr double Headroom = 1.06;   ///< above the highest value
constexpr double FewestPoints = 3;  ///< on show at the largest scale
constexpr double ZoomStep = 1.5;
constexpr int LegendColumns = 4;
constexpr double NoStretch = 0.001;  ///< of a row of the layout, which takes none that is 0

/// Colours that those who see few colours tell apart too. Source: Okabe and Ito, Color universal
/// design (2008).
constexpr std::array<QRgb, 6> seriesColours = {0xFF0072B2, 0xFFE69F00, 0xFF009E73,
                                               0xFFCC79A7, 0xFF56B4E9, 0xFFD55E00};

QPen Trait(const QColor& colour, double width = 1) { return {QBrush(colour), width}; }

}  // namespace

ChartPlot::ChartPlot(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(SmallestSize);
  plot_ = new QCustomPlot(this);
  plot_->setFocusPolicy(Qt::NoFocus);
  plot_->setMouseTracking(true);
  plot_->installEventFilter(this);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(2, 2, 2, 2);
  layout->addWidget(plot_);
  plot_->setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
  plot_->axisRect()->setRangeDrag(Qt::Horizontal);
  plot_->axisRect()->setRangeZoom(Qt::Horizontal);
  title_ = new QCPTextElement(plot_);
  plot_->axisRect()->insetLayout()->take(plot_->legend);
  plot_->legend->setFillOrder(QCPLayoutGrid::foColumnsFirst);
  plot_->legend->setWrap(LegendColumns);
  mark_ = new QCPItemRect(plot_);
  mark_->setLayer(QStringLiteral("background"));
  mark_->topLeft->setTypeY(QCPItemPosition::ptAxisRectRatio);
  mark_->bottomRight->setTypeY(QCPItemPosition::ptAxisRectRatio);
  mark_->setVisible(false);
  for (QCPAxis* axis : {plot_->yAxis, plot_->yAxis2}) {
    axis->setTicker(QSharedPointer<QCPAxisTicker>(new WholeTicker(*axis)));
  }
  connect(plot_->xAxis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this,
          &ChartPlot::LimiteEtendue);
  connect(plot_, &QCustomPlot::afterReplot, this, &ChartPlot::SuitTaille);
}

ChartPlot::~ChartPlot() = default;

void ChartPlot::Montre(const ChartPicture& picture) {
  picture_ = picture;
  point_ = 0;
  mark_->setVisible(false);
  plot_->clearPlottables();
  series_.clear();
  AjouteSeries();
  RegleAxes();
  title_->setText(EnQt(picture.graphTitle));
  const bool named = std::any_of(picture.series.begin(), picture.series.end(),
                                 [](const ChartSeries& one) { return !one.name.empty(); });
  DisposeAuDessus(!picture.graphTitle.empty(), named);
  Colore(palette());
  MontreTout();
}

/// Title and legend have rows of their own over the bars, if there are any.
void ChartPlot::DisposeAuDessus(bool title, bool legend) {
  QCPLayoutGrid* rows = plot_->plotLayout();
  int row = 0;
  const auto place = [&](QCPLayoutElement* element, bool shown) {
    if (element->layout() == rows) rows->take(element);
    rows->simplify();
    element->setVisible(shown);
    if (!shown) return;
    rows->insertRow(row);
    rows->addElement(row, 0, element);
    rows->setRowStretchFactor(row++, NoStretch);
  };
  place(title_, title);
  place(plot_->legend, legend);
}

void ChartPlot::AjouteSeries() {
  QCPBars* below = nullptr;
  QCPBarsGroup* group = nullptr;
  const auto bars = std::count_if(picture_.series.begin(), picture_.series.end(),
                                  [](const ChartSeries& one) { return !one.aDroite; });
  if (bars > 1 && picture_.style == ChartStyle::Beside) {
    group = new QCPBarsGroup(plot_);
    group->setSpacingType(QCPBarsGroup::stPlotCoords);
    group->setSpacing(0);
  }
  for (const ChartSeries& series : picture_.series) {
    series_.push_back(series.aDroite ? AjouteLigne(series) : AjouteBarres(series));
    series_.back()->setName(EnQt(series.name));
    auto* shown = qobject_cast<QCPBars*>(series_.back());
    if (shown == nullptr) continue;
    if (group != nullptr) {
      shown->setWidth(BarWidth / static_cast<double>(bars));
      shown->setBarsGroup(group);
    } else {
      if (below != nullptr) shown->moveAbove(below);
      below = shown;
    }
  }
}

QCPAbstractPlottable* ChartPlot::AjouteBarres(const ChartSeries& series) {
  auto* bars = new QCPBars(plot_->xAxis, plot_->yAxis);
  bars->setWidth(BarWidth);
  bars->setStackingGap(0);
  for (std::size_t i = 0; i < series.values.size(); ++i) {
    if (series.values[i]) bars->addData(static_cast<double>(i + 1), *series.values[i]);
  }
  return bars;
}

QCPAbstractPlottable* ChartPlot::AjouteLigne(const ChartSeries& series) {
  QCPGraph* line = plot_->addGraph(plot_->xAxis, plot_->yAxis2);
  for (std::size_t i = 0; i < series.values.size(); ++i) {
    if (series.values[i]) line->addData(static_cast<double>(i + 1), *series.values[i]);
  }
  return line;
}

void ChartPlot::RegleAxes() {
  const auto regle = [this](QCPAxis& axis, bool aDroite) {
    const ValueRange range = EtendueDesValeurs(picture_, aDroite);
    const double highest = std::max(range.highest, range.lowest < 0 ? 0.0 : 1.0);
    axis.setRange(range.lowest * Headroom, highest * Headroom);
  };
  regle(*plot_->yAxis, false);
  regle(*plot_->yAxis2, true);
  plot_->yAxis2->setVisible(std::any_of(picture_.series.begin(), picture_.series.end(),
                                        [](const ChartSeries& one) { return one.aDroite; }));
  plot_->xAxis->setLabel(EnQt(picture_.bottomTitle));
  plot_->yAxis->setLabel(EnQt(picture_.leftTitle));
  plot_->yAxis2->setLabel(EnQt(picture_.rightTitle));
  plot_->xAxis->setTicker(QSharedPointer<QCPAxisTicker>(new PointTicker(picture_, *plot_->xAxis)));
}

void ChartPlot::Colore(const QPalette& colours) {
  const QColor background = colours.color(QPalette::Base);
  const QColor text = TexteLisible(background, colours.color(QPalette::Text));
  QColor grid = text;
  grid.setAlphaF(0.2F);
  grid = VuSur(grid, background);  // not every reader of drawings knows half a colour
  plot_->setBackground(background);
  ColoreAxes(text, grid);
  title_->setTextColor(text);
  title_->setFont(EnGras(Police()));
  plot_->legend->setFont(Police());
  plot_->legend->setTextColor(text);
  plot_->legend->setBrush(background);
  plot_->legend->setBorderPen(Qt::NoPen);
  QColor mark = colours.color(QPalette::Highlight);
  mark.setAlphaF(0.3F);
  mark_->setBrush(mark);
  mark_->setPen(Qt::NoPen);
  for (std::size_t i = 0; i < series_.size(); ++i) ColoreSerie(i, background);
}

/// By pixels, so that texts are as large in drawings and on pages, beside the bars, as here.
QFont ChartPlot::Police() const {
  QFont sized = font();
  sized.setPixelSize(QFontInfo(font()).pixelSize());
  return sized;
}

void ChartPlot::ColoreAxes(const QColor& text, const QColor& grid) {
  for (QCPAxis* axis : {plot_->xAxis, plot_->yAxis, plot_->yAxis2}) {
    axis->setBasePen(Trait(text));
    axis->setTickPen(Trait(text));
    axis->setSubTickPen(Trait(text));
    axis->setTickLabelColor(text);
    axis->setLabelColor(text);
    axis->setTickLabelFont(Police());
    axis->setLabelFont(Police());
    axis->grid()->setPen(Trait(grid, 0));
    axis->grid()->setZeroLinePen(Trait(text));
  }
  plot_->xAxis->grid()->setVisible(false);
}

void ChartPlot::ColoreSerie(std::size_t index, const QColor& background) {
  const int wanted = picture_.series[index].couleur;
  const std::size_t place = wanted < 0 ? index : static_cast<std::size_t>(wanted);
  const QColor colour = Eloigne(QColor(seriesColours[place % seriesColours.size()]),
                                std::array{background}, ContrasteInactif);
  QCPAbstractPlottable* series = series_[index];
  if (auto* line = qobject_cast<QCPGraph*>(series); line != nullptr) {
    line->setPen(Trait(colour, 2));
    line->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssDisc, colour, colour, 5));
    return;
  }
  // With an outline of its colour a bar is seen also where it is narrower than a pixel.
  series->setPen(Trait(colour, 0));
  series->setBrush(colour);
}

void ChartPlot::MontreTout() {
  plot_->xAxis->setRange(HalfPoint, picture_.numPoints + HalfPoint);
  Redessine();
}

void ChartPlot::Zoome(double factor) {
  const QCPRange range = plot_->xAxis->range();
  const double middle = point_ != 0 && range.contains(point_) ? point_ : range.center();
  plot_->xAxis->scaleRange(1 / factor, middle);
  Redessine();
}

/// Neither beyond the points nor closer than a few of them.
void ChartPlot::LimiteEtendue(const QCPRange& range) {
  const double all = std::max(1, picture_.numPoints);
  const double size = std::clamp(range.size(), std::min(all, FewestPoints), all);
  const double lower = std::clamp(range.center() - size / 2, HalfPoint, all + HalfPoint - size);
  const QCPRange within(lower, lower + size);
  if (within == range) return;
  const QSignalBlocker quiet(plot_->xAxis);
  plot_->xAxis->setRange(within);
}

void ChartPlot::VaA(int point) {
  point = point == 0 ? 0 : std::clamp(point, 1, std::max(1, picture_.numPoints));
  if (point == point_) return;
  point_ = point;
  const QCPRange range = plot_->xAxis->range();
  if (point != 0 && (point < range.lower || point > range.upper)) {
    plot_->xAxis->setRange(point, range.size(), Qt::AlignCenter);
  }
  MarquePoint();
  Q_EMIT PointChange(point);
}

void ChartPlot::MarquePoint() {
  mark_->setVisible(point_ != 0);
  mark_->topLeft->setCoords(point_ - HalfPoint, 0);
  mark_->bottomRight->setCoords(point_ + HalfPoint, 1);
  Redessine();
}

int ChartPlot::PointSous(QPoint pixel) const {
  if (!plot_->axisRect()->rect().contains(pixel)) return 0;
  const auto point = static_cast<int>(std::lround(plot_->xAxis->pixelToCoord(pixel.x())));
  return point >= 1 && point <= picture_.numPoints ? point : 0;
}

/// Labels are chosen before the layout is made: in another size they are chosen anew.
void ChartPlot::SuitTaille() {
  const QSize size = plot_->axisRect()->size();
  if (std::exchange(within_, size) != size) Redessine();
}

void ChartPlot::Redessine() { plot_->replot(QCustomPlot::rpQueuedReplot); }

void ChartPlot::keyPressEvent(QKeyEvent* event) {
  const int page = std::max(1, picture_.numPoints / 10);
  switch (event->key()) {
    case Qt::Key_Left:
      return VaA(std::max(1, point_ - 1));
    case Qt::Key_Right:
      return VaA(point_ + 1);
    case Qt::Key_PageUp:
      return VaA(std::max(1, point_ - page));
    case Qt::Key_PageDown:
      return VaA(point_ + page);
    case Qt::Key_Home:
      return VaA(1);
    case Qt::Key_End:
      return VaA(picture_.numPoints);
    case Qt::Key_Plus:
      return Zoome(ZoomStep);
    case Qt::Key_Minus:
      return Zoome(1 / ZoomStep);
    case Qt::Key_0:
      return MontreTout();
    default:
      return QWidget::keyPressEvent(event);
  }
}

bool ChartPlot::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseMove) {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    const int under = PointSous(mouse->pos());
    if (under != 0 && mouse->buttons() == Qt::NoButton) {
      VaA(under);
      QToolTip::showText(mouse->globalPosition().toPoint(), EnQt(TexteDuPoint(picture_, under)),
                         plot_);
    }
  } else if (event->type() == QEvent::MouseButtonPress) {
    setFocus(Qt::MouseFocusReason);
  }
  return QWidget::eventFilter(watched, event);
}

void ChartPlot::leaveEvent(QEvent* event) {
  if (!hasFocus()) VaA(0);
  QWidget::leaveEvent(event);
}

void ChartPlot::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::PaletteChange && event->type() != QEvent::FontChange) return;
  Colore(palette());
  Redessine();
}

}  // namespace talpena
