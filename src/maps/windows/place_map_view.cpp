#include "maps/windows/place_map_view.h"

#include <QPainter>
#include <utility>

namespace talpena {
namespace {

constexpr int settlesMs = 60;

}  // namespace

PlaceMapView::PlaceMapView(FileSystem& files, std::string folder, QWidget* parent)
    : QWidget(parent), files_(files), folder_(std::move(folder)) {
  attend_.setSingleShot(true);
  attend_.setInterval(settlesMs);
  connect(&attend_, &QTimer::timeout, this, &PlaceMapView::Trace);
}

void PlaceMapView::Montre(const PlaceMap& map) {
  carte_ = map;
  Demande();
}

void PlaceMapView::Efface() {
  carte_.reset();
  trace_ = false;
  attend_.stop();
  update();
}

void PlaceMapView::Demande() {
  if (carte_) attend_.start();
}

void PlaceMapView::Trace() {
  if (!carte_ || !isVisible()) return;  // it has its size once it is on show
  Dessine();
  update();
}

void PlaceMapView::Dessine() {
  canvas_.ChangeFeuille(size(), devicePixelRatioF());
  TracePlaceMap(canvas_, files_, folder_, *carte_);
  trace_ = true;
}

/// The map is ink on paper, in a dark desktop too.
void PlaceMapView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  if (carte_ && !trace_) Dessine();  // the first place comes up with the window
  if (trace_) {
    painter.drawImage(rect(), canvas_.Surface());
  } else {
    painter.fillRect(rect(), palette().color(QPalette::Base));
  }
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void PlaceMapView::resizeEvent(QResizeEvent*) { Demande(); }

}  // namespace talpena
