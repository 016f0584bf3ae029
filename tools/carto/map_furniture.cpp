#include "carto/map_furniture.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "carto/graticule.h"
#include "common/free_decimal.h"

namespace talpena {
namespace {

constexpr char credit[] = "Natural Earth; GSHHG";
constexpr double barShare = 0.18;       ///< of the width of the map, the longest bar
constexpr double capHeight = 0.7;       ///< of a letter, in its size
constexpr double margin = 0.5;          ///< between a text and the neat line, in sizes
constexpr double cornerSizes = 4;       ///< no degrees so near a corner
constexpr double originSizes = 9;       ///< the mark of origin at the left of the lower edge
constexpr double panelSizes = 17;       ///< the scale bar and its texts at the right of it
constexpr double betweenAcross = 5;     ///< least distance of two texts along an edge, in sizes
constexpr double betweenUpright = 2.5;  ///< and one over the other

std::string Degres(double value) { return FormeLibre(std::abs(value)).substr(1) + '\xB0'; }

std::string Parallele(double value) {
  if (value == 0) return "the equator";
  return Degres(value) + (value < 0 ? "S" : "N");
}

struct ProjectionText {
  int code;
  const char* name;
  const char* where;  ///< its lengths are true there
};
constexpr ProjectionText projections[] = {
    {2, "Mercator", "at the equator"},
    {3, "Stereographic", "at the centre"},
    {4, "Sinusoidal", "along parallels"},
    {5,
     "Plate carr\xE9"
     "e",
     "at the equator"},
    {6, "Equirectangular", "at 50.5\xB0"},
    {7, "Stereographic cylinder", "at 30\xB0"},
    {8, "Stereographic cylinder", "at 45\xB0"},
    {9, "Stereographic cylinder", ""},
    {10, "The globe from the side", "at the centre"},
    {11, "Orthographic, north pole", "at the centre"},
    {12, "Orthographic, south pole", "at the centre"},
    {13, "Orthographic", "at the centre"},
};

const ProjectionText* TexteDe(int code) {
  const auto* row = std::find_if(std::begin(projections), std::end(projections),
                                 [code](const ProjectionText& p) { return p.code == code; });
  return row == std::end(projections) ? nullptr : row;
}

/// Where the scale bar has the length that it says.
std::string OuVraie(const MapRow& row) {
  if (row.code == 1) return "at " + Parallele(row.parallel1) + " and " + Parallele(row.parallel2);
  if (row.barParallel) return "at " + Parallele(*row.barParallel);
  if (row.code == 9) return "at " + Parallele(row.parallel);
  return TexteDe(row.code)->where;
}

/// The longest of 1, 2 and 5 with zeros behind that is not longer.
double Rond(double value) {
  const double unit = std::pow(10, std::floor(std::log10(value)));
  for (const double factor : {5.0, 2.0}) {
    if (factor * unit <= value) return factor * unit;
  }
  return unit;
}

/// Lays the furniture out along the frame of one map.
class Furnisher {
 public:
  Furnisher(const MapSheet& sheet, double emKm)
      : sheet_(sheet), box_(sheet.Cadre()), em_(emKm), near_((box_.right - box_.left) * 1e-5) {}

  MapFurniture Tout() {
    if (sheet_.Limbe().empty()) {
      for (const GraticuleLine& line : Graticule(sheet_.Description().graticule)) Gradue(line);
    }
    Echelle();
    return std::move(furniture_);
  }

 private:
  /// The degrees of a parallel stand where it meets the sides, those of a meridian above and below.
  void Gradue(const GraticuleLine& line) {
    // The drawn meridians stop short of the poles, which on a cylinder is short of the edge.
    const Line whole = line.parallel ? line.line : Line{{line.degrees, -90}, {line.degrees, 90}};
    for (const Line& part : sheet_.PlaceLignes({whole})) {
      for (const PlanePoint end : {part.front(), part.back()}) {
        if (line.parallel) {
          GradueCote(line, end);
        } else {
          GradueBord(line, end);
          if (EstPolaire()) GradueCote(line, end);
        }
      }
    }
  }

  /// Round a pole as many meridians end on the sides as above and below.
  bool EstPolaire() const {
    const int code = sheet_.Description().code;
    return code == 11 || code == 12;
  }

  void GradueCote(const GraticuleLine& line, PlanePoint end) {
    const bool left = end.x <= box_.left + near_, right = end.x >= box_.right - near_;
    if (!left && !right) return;
    if (end.y > box_.top - em_ * cornerSizes) return;
    if (end.y < box_.bottom + em_ * (right ? cornerSizes + 3 : cornerSizes)) return;
    const double x = left ? box_.left + em_ * margin : box_.right - em_ * margin;
    Ajoute({x, end.y - em_ * capHeight / 2}, right ? 1 : 0, TexteDegres(line));
  }

  void GradueBord(const GraticuleLine& line, PlanePoint end) {
    const bool below = end.y <= box_.bottom + near_, above = end.y >= box_.top - near_;
    if (!below && !above) return;
    if (end.x < box_.left + em_ * (below ? originSizes : cornerSizes)) return;
    if (end.x > box_.right - em_ * (below ? panelSizes : cornerSizes)) return;
    const double y = below ? box_.bottom + em_ * margin : box_.top - em_ * (margin + capHeight);
    Ajoute({end.x, y}, 0.5, TexteDegres(line));
  }

  void Ajoute(PlanePoint at, double across, const std::string& text) {
    const auto crowds = [&](const PlacedText& other) {
      return std::abs(other.at.x - at.x) < em_ * betweenAcross &&
             std::abs(other.at.y - at.y) < em_ * betweenUpright;
    };
    if (std::none_of(furniture_.texts.begin(), furniture_.texts.end(), crowds))
      furniture_.texts.push_back({at, across, text});
  }

  /// In the lower right corner, from below: credit, projection, the bar and its length.
  void Echelle() {
    const double right = box_.right - em_ * margin;
    double y = box_.bottom + em_ * margin;
    for (const std::string& text : {std::string(credit), NomProjection(sheet_.Description())}) {
      furniture_.texts.push_back({{right, y}, 1, text});
      y += em_ * 1.3;
    }
    const double stretch = sheet_.Description().barStretch;
    const double km = Rond((box_.right - box_.left) * barShare / stretch);
    const double left = right - km * stretch;
    const double tick = em_ * 0.4;
    y += em_ * 0.2;
    furniture_.lines.push_back({{left, y + tick}, {left, y}, {right, y}, {right, y + tick}});
    const double middle = (left + right) / 2;
    furniture_.lines.push_back({{middle, y}, {middle, y + tick / 2}});
    const std::string length = FormeLibre(km).substr(1) + " km ";
    furniture_.texts.push_back({{right, y + em_ * 0.9}, 1, length + OuVraie(sheet_.Description())});
  }

  const MapSheet& sheet_;
  Frame box_;
  double em_;
  double near_;
  MapFurniture furniture_;
};

}  // namespace

std::string NomProjection(const MapRow& row) {
  std::string name = row.code == 1 ? "Conformal conic" : TexteDe(row.code)->name;
  if (row.code == 13) return name + ", centre " + Parallele(row.parallel);
  if (row.code == 3) return name + ", centre " + Parallele((row.north - row.south) / 2);
  return name;
}

MapFurniture Garnit(const MapSheet& sheet, double emKm) { return Furnisher(sheet, emKm).Tout(); }

}  // namespace talpena
