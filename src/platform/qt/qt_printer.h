// The printer by Qt; also that of the preview, and of a PDF file.
#pragma once
#include <QPrinter>

#include "platform/printer.h"

namespace talpena {

class QtPrinter : public Printer {
 public:
  void ChangeOrientation(bool paysage) override;
  PageArea ZoneImprimable() const override;
  std::unique_ptr<Canvas> CreeCanevas(double points) override;
  void ImprimePage(Canvas& canvas, const PagePlace& place) override;

  QPrinter& Natif() { return printer_; }

 private:
  QPrinter printer_{QPrinter::HighResolution};
};

}  // namespace talpena
