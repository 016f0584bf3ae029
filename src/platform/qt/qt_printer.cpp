#include "platform/qt/qt_printer.h"

#include <QPainter>

#include "common/msg_id_errors.h"
#include "common/talpena_error.h"
#include "platform/qt/qt_canvas.h"

namespace talpena {

void QtPrinter::ChangeOrientation(bool paysage) {
  printer_.setPageOrientation(paysage ? QPageLayout::Landscape : QPageLayout::Portrait);
}

PageArea QtPrinter::ZoneImprimable() const {
  const QSizeF area = printer_.pageLayout().paintRect(QPageLayout::Point).size();
  return {area.width(), area.height()};
}

std::unique_ptr<Canvas> QtPrinter::CreeCanevas(double points) {
  return std::make_unique<QtCanvas>(points);
}

void QtPrinter::ImprimePage(Canvas& canvas, const PagePlace& place) {
  QPainter painter;
  if (!painter.begin(&printer_)) {
    throw TalpenaError(ErrorNumber::DeviceFault, "The printer cannot be opened.",
                       {.text = MsgId::ImprimanteFermee});
  }
  const double dots = printer_.resolution() / 72.0;  // for a point
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(
      QRectF(place.left * dots, place.top * dots, place.width * dots, place.height * dots),
      dynamic_cast<QtCanvas&>(canvas).Surface());
  if (!painter.end()) {
    throw TalpenaError(ErrorNumber::DeviceFault, "The page cannot be printed.",
                       {.text = MsgId::PageNonImprimee});
  }
}

}  // namespace talpena
