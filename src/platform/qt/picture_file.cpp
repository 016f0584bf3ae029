#include "platform/qt/picture_file.h"

#include <QFile>
#include <QImageReader>
#include <QtEndian>
#include <cstdlib>

namespace talpena {
namespace {

/// Where the pixels of a bitmap end by what its headers say, bytes; 0 for another kind of file, and
/// where the headers do not tell.
/// Source: the layout of BITMAPFILEHEADER, BITMAPCOREHEADER and BITMAPINFOHEADER.
double FinDesPixels(const QByteArray& head) {
  constexpr qsizetype headers = 38;
  if (head.size() < headers || !head.startsWith("BM")) return 0;
  const auto number = [&head](int at) { return qFromLittleEndian<qint32>(head.constData() + at); };
  const auto small = [&head](int at) { return qFromLittleEndian<quint16>(head.constData() + at); };
  const double pixels = number(10);
  const bool core = number(14) == 12;
  const qint64 width = core ? small(18) : number(18);
  const qint64 height = core ? small(20) : std::llabs(qint64{number(22)});
  const qint64 bits = small(core ? 24 : 28);
  const qint32 compression = core ? 0 : number(30);
  if (compression == 1 || compression == 2) return number(34) > 0 ? pixels + number(34) : 0;
  const qint64 row = (width * bits + 31) / 32 * 4;
  // Wild numbers have no room in an integer.
  return pixels + static_cast<double>(row) * static_cast<double>(height);
}

}  // namespace

QImage LitImage(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  if (static_cast<double>(file.size()) < FinDesPixels(file.peek(64))) return {};
  QImageReader reader(&file);
  reader.setAutoTransform(true);
  reader.setDecideFormatFromContent(true);
  return reader.read();
}

}  // namespace talpena
