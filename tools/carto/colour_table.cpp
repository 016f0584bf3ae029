#include "carto/colour_table.h"

#include <QList>
#include <algorithm>
#include <cstdint>
#include <unordered_map>
#include <utility>
#include <vector>

namespace talpena {
namespace {

constexpr std::size_t most = 256;

using Counts = std::unordered_map<QRgb, std::int64_t>;

QRgb Pixel(const QImage& picture, int x, int y) {
  return reinterpret_cast<const QRgb*>(picture.constScanLine(y))[x] | 0xFF000000U;
}

Counts Compte(const QImage& picture) {
  Counts counts;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) ++counts[Pixel(picture, x, y)];
  }
  return counts;
}

QList<QRgb> PlusFrequentes(const Counts& counts) {
  std::vector<std::pair<std::int64_t, QRgb>> byCount;
  for (const auto& [colour, count] : counts) byCount.emplace_back(-count, colour);
  std::sort(byCount.begin(), byCount.end());
  byCount.resize(std::min(byCount.size(), most));
  QList<QRgb> table;
  for (const auto& entry : byCount) table.append(entry.second);
  return table;
}

int Distance(QRgb a, QRgb b) {
  const int red = qRed(a) - qRed(b), green = qGreen(a) - qGreen(b), blue = qBlue(a) - qBlue(b);
  return red * red + green * green + blue * blue;
}

uchar PlusProche(const QList<QRgb>& table, QRgb colour) {
  const auto nearer = [colour](QRgb a, QRgb b) {
    return Distance(a, colour) < Distance(b, colour);
  };
  return static_cast<uchar>(std::min_element(table.begin(), table.end(), nearer) - table.begin());
}

}  // namespace

QImage AvecTable(const QImage& picture) {
  const QImage source = picture.convertToFormat(QImage::Format_RGB32);
  const Counts counts = Compte(source);
  const QList<QRgb> table = PlusFrequentes(counts);
  std::unordered_map<QRgb, uchar> entries;
  for (const auto& colour : counts) entries[colour.first] = PlusProche(table, colour.first);
  QImage indexed(source.size(), QImage::Format_Indexed8);
  indexed.setColorTable(table);
  for (int y = 0; y < source.height(); ++y) {
    uchar* line = indexed.scanLine(y);
    for (int x = 0; x < source.width(); ++x) line[x] = entries[Pixel(source, x, y)];
  }
  return indexed;
}

}  // namespace talpena
