// The printer that the print dialog chose, one picture on a page.
#pragma once
#include <memory>

#include "platform/canvas.h"

namespace talpena {

/// The part of a page that the printer can reach, in points (1/72 inch).
struct PageArea {
  double width = 0;
  double height = 0;
};

/// A place on it, from its left and top.
struct PagePlace {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
};

class Printer {
 public:
  virtual ~Printer() = default;
  virtual void ChangeOrientation(bool paysage) = 0;  ///< lengthwise or not
  virtual PageArea ZoneImprimable() const = 0;
  /// A canvas whose surface ImprimePage takes, with so many dots for a pixel of the screen.
  virtual std::unique_ptr<Canvas> CreeCanevas(double points) = 0;
  /// One page with what a canvas of CreeCanevas shows. DeviceFault (57) when it cannot be printed.
  virtual void ImprimePage(Canvas& canvas, const PagePlace& place) = 0;
};

}  // namespace talpena
