#include "maps/windows/land_share.h"

#include <QImage>

namespace talpena {
namespace {

constexpr QRgb landColour =
    qRgb(249, 246, 236);             // held by EncreDe.GivesLandTheColourThatIsMeasured
constexpr int pixelStep = 2;         ///< along both sides: a sample is enough
constexpr double leastShare = 0.01;  ///< a picture may have pixels of that colour by chance

}  // namespace

std::optional<double> PartDeTerre(const QString& path) {
  const QImage image = QImage(path).convertToFormat(QImage::Format_RGB32);
  long land = 0, all = 0;
  for (int y = 0; y < image.height(); y += pixelStep) {
    for (int x = 0; x < image.width(); x += pixelStep) {
      land += image.pixel(x, y) == landColour ? 1 : 0;
      ++all;
    }
  }
  if (static_cast<double>(land) < leastShare * static_cast<double>(all) || land == 0) return {};
  return static_cast<double>(land) / static_cast<double>(all);
}

}  // namespace talpena
