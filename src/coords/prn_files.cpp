#include "coords/prn_files.h"

#include <charconv>
#include <cmath>
#include <string_view>

#include "common/numbers.h"
#include "coords/datum.h"
#include "coords/ifbl.h"
#include "coords/lambert.h"

namespace talpena {
namespace {

/// What a grid covers, whole metres.
struct Frame {
  int west, south, east, north;
};
constexpr Frame IfblFrame{IfblOuest, IfblSud, IfblEst, IfblNord};

struct Position {
  double latitude, longitude;
};

/// Points from one end of a straight line to the other, both included. `point` takes (x, y, first).
template <typename Point>
void Polyligne(int fromX, int fromY, int toX, int toY, int step, Point&& point) {
  const int length = std::abs(toX - fromX) + std::abs(toY - fromY);  // along one axis
  const int steps = length / step;
  for (int i = 0; i <= steps; ++i) {
    point(fromX + (toX - fromX) / steps * i, fromY + (toY - fromY) / steps * i, i == 0);
  }
}

/// Lines northward, the westernmost first.
template <typename Point>
void Colonnes(const Frame& f, int mesh, int step, Point&& point) {
  for (int x = f.west; x <= f.east; x += mesh) Polyligne(x, f.south, x, f.north, step, point);
}

/// Lines eastward, the southernmost first.
template <typename Point>
void Rangees(const Frame& f, int mesh, int step, Point&& point) {
  for (int y = f.south; y <= f.north; y += mesh) Polyligne(f.west, y, f.east, y, step, point);
}

Position PositionIfbl(const IfblDatums& datums, int x, int y) {
  Position p{};
  LambertBelgeVersLatLon(x, y, p.latitude, p.longitude);
  ConvertitDatum(datums.catalogue, p.latitude, p.longitude, 0, p.latitude, p.longitude,
                 datums.bel72, datums.eurM);
  return p;
}

Position PositionNationale(Grille grid, int easting, int northing) {
  Position p{};
  GrilleVersLatLon(grid, northing, easting, p.latitude, p.longitude);
  p.longitude = LongitudeSignee(p.longitude);
  return p;
}

/// A point whose numbers are already text, with the pen code where a polyline starts.
void EcritPoint(OutputFile& file, bool first, const std::string& latitude,
                const std::string& longitude, std::string_view pen) {
  std::string line = first ? "-1 " : " 0 ";
  line += latitude + " " + longitude + ":";
  if (first) line += pen;
  file.Ecrit(line + "\r\n");
}

}  // namespace

std::string ElementImprime(double value) {
  char buffer[32];
  const auto end =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 15).ptr;
  double rounded = value;
  std::from_chars(buffer, end, rounded);
  std::string digits = Str(std::fabs(rounded));
  if (digits.starts_with("0.")) digits.erase(0, 1);
  return (rounded < 0 ? "-" : " ") + digits + " ";
}

void EcritPrnGrille(OutputFile& file, const IfblDatums& datums) {
  const auto point = [&](int x, int y, bool first) {
    const Position p = PositionIfbl(datums, x, y);
    file.Ecrit(ElementImprime(first ? -1 : 0) + ElementImprime(p.latitude) +
               ElementImprime(p.longitude) + ":\r\n");
  };
  Colonnes(IfblFrame, 32000, 2000, point);
  Rangees(IfblFrame, 20000, 3200, point);
}

void EcritPrnMailles(OutputFile& file, const IfblDatums& datums) {
  const auto writer = [&](std::string_view pen) {
    return [&file, &datums, pen](int x, int y, bool first) {
      const Position p = PositionIfbl(datums, x, y);
      EcritPoint(file, first, Format(p.latitude, "00.00000"), Format(p.longitude, "00.00000"), pen);
    };
  };
  Rangees(IfblFrame, 4000, 1000, writer("G2"));
  Colonnes(IfblFrame, 4000, 1000, writer("G2"));
  Colonnes(IfblFrame, 32000, 2000, writer("G1"));
  Rangees(IfblFrame, 20000, 3200, writer("G1"));
}

void EcritPrnNational(OutputFile& file, Grille grid, const DessinePoint& dessine) {
  const Frame f = grid == Grille::British ? Frame{-100000, 5527063, 900000, 6827063}
                                          : Frame{300000, 5680030, 700000, 6180030};
  const auto write = [&](const Position& p, bool first, std::string_view pen) {
    EcritPoint(file, first, Format(p.latitude, "+##.#####;-##.#####"),
               Format(p.longitude, "+###.#####;-###.#####"), pen);
  };
  constexpr int step = 10000;
  const auto fine = [&](int x, int y, bool first) {
    write(PositionNationale(grid, x, y), first, "G3");
  };
  Rangees(f, 10000, step, fine);
  Colonnes(f, 10000, step, fine);

  const auto drawn = [&](int x, int y, bool first) {
    const Position p = PositionNationale(grid, x, y);
    write(p, first, "G2");
    if (dessine) dessine(p.latitude, p.longitude, first);
  };
  Rangees(f, 100000, step, drawn);
  Colonnes(f, 100000, step, drawn);

  const auto around = [&](int x, int y, bool first) {
    write(PositionNationale(grid, x, y), first, "G1");
  };
  Polyligne(f.west, f.south, f.west, f.north, step, around);
  Polyligne(f.west, f.north, f.east, f.north, step, around);
  Polyligne(f.east, f.north, f.east, f.south, step, around);
  Polyligne(f.east, f.south, f.west, f.south, step, around);
}

}  // namespace talpena
