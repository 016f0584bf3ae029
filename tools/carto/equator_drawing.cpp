#include "carto/equator_drawing.h"

#include <cmath>
#include <numbers>

namespace talpena {
namespace {

constexpr double halfBand = 0.02;     ///< of the radius
constexpr double halfTick = 0.035;    ///< of the radius
constexpr double stepDegrees = 0.05;  ///< degrees along the equator

Ring Rectangle(double left, double right, double halfHeight) {
  return {{left, -halfHeight}, {right, -halfHeight}, {right, halfHeight}, {left, halfHeight}};
}

Ring Disque(double radius) {
  Ring disc;
  for (int d = 0; d < 360; ++d) {
    const double angle = d * std::numbers::pi / 180;
    disc.push_back({radius * std::sin(angle), radius * std::cos(angle)});
  }
  return disc;
}

/// The stretches of the equator, on the near side, that lie in a surface; as ends in kilometres.
std::vector<Frame> Troncons(const MapSheet& sheet, const Surface& surface) {
  std::vector<Frame> stretches;
  const double meridian = sheet.Description().meridian;
  bool open = false;
  for (double dl = -90; dl <= 90; dl += stepDegrees) {
    const bool inside = EstDedans(surface, {meridian + dl, 0});
    const double x = sheet.Projette({meridian + dl, 0}).x;
    if (inside && !open) stretches.push_back({x, 0, x, 0});
    if (inside) stretches.back().right = x;
    open = inside;
  }
  return stretches;
}

}  // namespace

MapDrawing DessineEquateur(const MapSheet& sheet, const GeoData& data) {
  const double radius = sheet.Cadre().right;
  const double half = radius * halfBand, tick = radius * halfTick;
  MapDrawing drawing{{Matter::Water, {Disque(radius)}, {}}};
  DrawnLayer land{Matter::Land, {}, {}}, lakes{Matter::Lake, {}, {}}, coast{Matter::Coast, {}, {}};
  for (const Frame& f : Troncons(sheet, SurfaceDe(data.land))) {
    land.surface.push_back(Rectangle(f.left, f.right, half));
    coast.lines.push_back(Ferme(land.surface.back()));
  }
  for (const Frame& f : Troncons(sheet, SurfaceDe(data.lakes)))
    lakes.surface.push_back(Rectangle(f.left, f.right, half));
  DrawnLayer ticks{Matter::Limb, {}, {{{-radius, 0}, {radius, 0}}, Ferme(Disque(radius))}};
  const double graticule = sheet.Description().graticule;
  for (double dl = -90 + graticule; dl < 90; dl += graticule) {
    const double x = sheet.Projette({sheet.Description().meridian + dl, 0}).x;
    ticks.lines.push_back({{x, -tick}, {x, tick}});
  }
  drawing.insert(drawing.end(), {land, lakes, coast, ticks});
  return drawing;
}

}  // namespace talpena
