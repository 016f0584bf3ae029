#include "carto/geo_source.h"

#include <QByteArray>
#include <QFile>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string_view>

namespace talpena {
namespace {

constexpr std::string_view magic = "TLPGEO1\n";

/// Reads the numbers of an unpacked file one after the other.
class NumberReader {
 public:
  NumberReader(QByteArray bytes, std::string path)
      : bytes_(std::move(bytes)), path_(std::move(path)) {}

  std::uint32_t Octet() {
    if (at_ >= bytes_.size()) throw std::runtime_error(path_ + " ends too early");
    return static_cast<unsigned char>(bytes_.at(at_++));
  }
  std::uint32_t Fixe() {
    std::uint32_t value = 0;
    for (int shift = 0; shift < 32; shift += 8) value |= Octet() << shift;
    return value;
  }
  std::uint32_t Nombre() {
    std::uint32_t value = 0;
    for (int shift = 0; shift < 32; shift += 7) {
      const std::uint32_t octet = Octet();
      value |= (octet & 0x7FU) << shift;
      if (octet < 0x80U) return value;
    }
    throw std::runtime_error(path_ + " holds a number that is too long");
  }
  std::int32_t Signe() {
    const std::uint32_t value = Nombre();
    const auto half = static_cast<std::int32_t>(value >> 1U);
    return (value & 1U) != 0 ? -half - 1 : half;
  }
  std::string Texte() {
    std::string text;
    while (const std::uint32_t octet = Octet()) text += static_cast<char>(octet);
    return text;
  }

 private:
  QByteArray bytes_;
  std::string path_;
  qsizetype at_ = 0;
};

Line LitPoints(NumberReader& in, double units) {
  Line points(in.Nombre());
  std::int32_t x = 0, y = 0;
  for (PlanePoint& p : points) {
    x += in.Signe();
    y += in.Signe();
    p = {x / units, y / units};
  }
  return points;
}

std::vector<GeoFeature> LitCouche(NumberReader& in, double units) {
  std::vector<GeoFeature> features(in.Nombre());
  for (GeoFeature& feature : features) {
    feature.rank = static_cast<int>(in.Nombre());
    const std::uint32_t parts = in.Nombre();
    for (std::uint32_t i = 0; i < parts; ++i) feature.parts.push_back(LitPoints(in, units));
  }
  return features;
}

std::vector<GeoFeature>& CoucheNommee(GeoData& data, const std::string& name) {
  if (name == "land") return data.land;
  if (name == "shelves") return data.shelves;
  if (name == "lakes") return data.lakes;
  if (name == "borders") return data.borders;
  if (name == "provinces") return data.provinces;
  if (name == "rivers") return data.rivers;
  throw std::runtime_error("no layer of map data is called " + name);
}

/// Whether the data were cut along this edge.
bool EstCoupe(PlanePoint a, PlanePoint b) {
  const bool antimeridian = a.x == b.x && std::abs(a.x) == 180;
  const bool pole = a.y <= -90 && b.y <= -90;
  return antimeridian || pole;
}

void AjouteContour(const Ring& ring, std::vector<Line>& lines) {
  std::size_t start = 0;
  const auto next = [&](std::size_t i) { return i + 1 == ring.size() ? 0 : i + 1; };
  while (start < ring.size() && !EstCoupe(ring[start], ring[next(start)])) ++start;
  if (start == ring.size()) {
    lines.push_back(Ferme(ring));
    return;
  }
  Line line;
  for (std::size_t step = 0, i = next(start); step < ring.size(); ++step, i = next(i)) {
    line.push_back(ring[i]);
    if (!EstCoupe(ring[i], ring[next(i)])) continue;
    if (line.size() > 1) lines.push_back(line);
    line.clear();
  }
}

}  // namespace

GeoData LitDonnees(const std::string& path) {
  QFile file(QString::fromStdString(path));
  if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("cannot read " + path);
  const QByteArray bytes = file.readAll();
  if (!bytes.startsWith(magic.data())) throw std::runtime_error(path + " holds no map data");
  NumberReader in(qUncompress(bytes.mid(static_cast<qsizetype>(magic.size()))), path);
  GeoData data;
  const double units = in.Fixe();
  const std::uint32_t layers = in.Nombre();
  for (std::uint32_t i = 0; i < layers; ++i) {
    const std::string name = in.Texte();
    in.Octet();  // areas or lines: the name says it
    CoucheNommee(data, name) = LitCouche(in, units);
  }
  return data;
}

Surface SurfaceDe(const std::vector<GeoFeature>& areas) {
  Surface surface;
  for (const GeoFeature& area : areas)
    surface.insert(surface.end(), area.parts.begin(), area.parts.end());
  return surface;
}

std::vector<Line> LignesDeRang(const std::vector<GeoFeature>& features, int from, int to) {
  std::vector<Line> lines;
  for (const GeoFeature& feature : features) {
    if (feature.rank >= from && feature.rank < to)
      lines.insert(lines.end(), feature.parts.begin(), feature.parts.end());
  }
  return lines;
}

std::vector<Line> Contours(const std::vector<GeoFeature>& areas) {
  std::vector<Line> lines;
  for (const GeoFeature& area : areas) {
    for (const Ring& ring : area.parts) AjouteContour(ring, lines);
  }
  return lines;
}

}  // namespace talpena
