// small_png INPUT OUTPUT: a picture of a window with at most 256 colours. Those used most stay as
// they are; the others, shades at the edges of letters, become the nearest of them.
#include <QColor>
#include <QImage>
#include <algorithm>
#include <cstdio>
#include <limits>
#include <map>
#include <span>
#include <vector>

namespace {

constexpr std::size_t tableSize = 256;

std::vector<QRgb> CouleursParNombre(const QImage& image) {
  std::map<QRgb, int> counts;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) ++counts[image.pixel(x, y)];
  }
  std::vector<QRgb> colours;
  colours.reserve(counts.size());
  for (const auto& [colour, count] : counts) colours.push_back(colour);
  std::stable_sort(colours.begin(), colours.end(),
                   [&](QRgb a, QRgb b) { return counts[a] > counts[b]; });
  return colours;
}

int Ecart(QRgb a, QRgb b) {
  const int red = qRed(a) - qRed(b), green = qGreen(a) - qGreen(b), blue = qBlue(a) - qBlue(b);
  return red * red + green * green + blue * blue;
}

uchar PlusProche(QRgb colour, const QList<QRgb>& table) {
  qsizetype best = 0;
  int least = std::numeric_limits<int>::max();
  for (qsizetype i = 0; i < table.size() && least > 0; ++i) {
    if (const int distance = Ecart(colour, table[i]); distance < least) best = i, least = distance;
  }
  return static_cast<uchar>(best);
}

QImage Indexe(const QImage& image) {
  const std::vector<QRgb> colours = CouleursParNombre(image);
  QList<QRgb> table(colours.begin(), colours.begin() + static_cast<std::ptrdiff_t>(
                                                           std::min(colours.size(), tableSize)));
  std::map<QRgb, uchar> places;
  for (const QRgb colour : colours) places[colour] = PlusProche(colour, table);
  QImage small(image.size(), QImage::Format_Indexed8);
  small.setColorTable(table);
  for (int y = 0; y < image.height(); ++y) {
    uchar* line = small.scanLine(y);
    for (int x = 0; x < image.width(); ++x) line[x] = places[image.pixel(x, y)];
  }
  return small;
}

}  // namespace

int main(int argc, char** argv) {
  const std::span<char* const> arguments(argv, static_cast<std::size_t>(argc));
  if (argc != 3) {
    std::fputs("usage: small_png INPUT OUTPUT\n", stderr);
    return 2;
  }
  const QImage image =
      QImage(QString::fromLocal8Bit(arguments[1])).convertToFormat(QImage::Format_RGB32);
  constexpr int smallest = 0;  // quality of the writer: the strongest compression
  if (!image.isNull() &&
      Indexe(image).save(QString::fromLocal8Bit(arguments[2]), "PNG", smallest)) {
    return 0;
  }
  std::fprintf(stderr, "small_png: %s cannot be read or %s not written\n", arguments[1],
               arguments[2]);
  return 1;
}
