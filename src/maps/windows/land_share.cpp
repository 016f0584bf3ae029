#include "maps/windows/land_share.h"

#include <QImage>

namespace talpena {
namespace {

constexpr QRgb landColour =
    qRgb(249, 246, 236);      // held by EncreDe.GivesLandTheColourThatIsMeasured
constexpr int pixelStep = 2;  ///< along both sides: a sample is enough

}  // namespace

double PartDeTerre(const QString& path) {
  const QImage image = QImage(path).convertToFormat(QImage::Format_RGB32);
  long land = 0, all = 0;
  for (int y = 0; y < image.height(); y += pixelStep) {
    for (int x = 0; x < image.width(); x += pixelStep) {
      land += image.pixel(x, y) == landColour ? 1 : 0;
      ++all;
    }
  }
  return land == 0 ? 1 : static_cast<double>(land) / static_cast<double>(all);
}

}  // namespace talpena
