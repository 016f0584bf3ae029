#include "coords/mif_files.h"

#include <cstdint>
#include <string>

#include "common/numbers.h"
#include "coords/ifbl.h"

namespace talpena {
namespace {

// clang-format off
constexpr IfblPolygons Fichiers[] = {
    {"ifbl01x01", 6, 1000, 1000, 322012, 258180, "Pen (1,3,0)", "Brush (1,16777215)"},
    {"ifbl04x04", 4, 4000, 4000, 318012, 254180, "Pen (1,2,0)", "Brush (1,16777215)"},
    {"ifbl32x20", 2, 32000, 20000, 290012, 238180,
     "   Pen (4,2,16711680)", "   Brush (1,16777215)"},
};
// clang-format on

constexpr std::string_view Entete =
    "Version 300\r\n"
    "Charset \"WindowsLatin1\"\r\n"
    "Delimiter \",\"\r\n"
    "CoordSys Earth Projection 19, 110, \"m\", 4.3569397222, 90, 49.8333333333, 51.1666666667, "
    "150000.01256, 5400088.4378000004 "
    "Bounds (-128761662.607, -123511574.182) (129061662.632, 134311751.057)\r\n"
    "Columns 1\r\n"
    "   IFBL Char(10)\r\n"
    "Data\r\n";

std::string Nombre(int value) { return Str(std::int64_t{value}); }

/// Calls `square` with the south-west corner of every square.
template <typename Square>
void ParcourtCarres(const IfblPolygons& p, Square&& square) {
  for (int y = IfblSud; y <= p.lastY; y += p.height) {
    for (int x = IfblOuest; x <= p.lastX; x += p.width) square(x, y);
  }
}

}  // namespace

std::span<const IfblPolygons> PairesDeFichiers() { return Fichiers; }

void EcritMif(OutputFile& file, const IfblPolygons& polygons) {
  file.Ecrit(Entete);
  const std::string style =
      "\r\n" + std::string(polygons.pen) + "\r\n" + std::string(polygons.brush) + "\r\n";
  ParcourtCarres(polygons, [&](int x, int y) {
    file.Ecrit("Rect " + Nombre(x) + " " + Nombre(y) + " " + Nombre(x + polygons.width) + " " +
               Nombre(y + polygons.height) + style);
  });
}

void EcritMid(OutputFile& file, const IfblPolygons& polygons) {
  std::string code;
  ParcourtCarres(polygons, [&](int x, int y) {
    std::int16_t error = 0;
    LambertVersIfbl(x + polygons.width / 2.0, y + polygons.height / 2.0, code, error,
                    polygons.level);
    file.Ecrit("\"" + code + "\"\r\n");
  });
}

}  // namespace talpena
