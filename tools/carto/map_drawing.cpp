#include "carto/map_drawing.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "carto/equator_drawing.h"
#include "carto/graticule.h"

namespace talpena {
namespace {

constexpr int mostPixelsAcross = 1440;
constexpr int mostPixelsDown = 960;
constexpr double thinningPixels = 0.12;  ///< half of it would show at twice the size
constexpr double leastLakePixels = 3;    ///< area
constexpr double leastRiverPixels = 6;   ///< length

struct InkRow {
  Matter matter;
  Ink ink;
};

// Quiet enough that red, black and blue symbols stand out on land and water alike.
// clang-format off
constexpr InkRow inks[] = {
    // matter                  red  green blue  grey  width dash
    {Matter::Water,           {222, 234, 241, 0.93, 0,    0}},
    {Matter::IceShelf,        {240, 246, 250, 0.97, 0,    0}},
    {Matter::Land,            {249, 246, 236, 1.00, 0,    0}},
    {Matter::Graticule,       {186, 203, 212, 0.76, 0.5,  0}},
    {Matter::River,           {160, 192, 214, 0.72, 0.6,  0}},
    {Matter::GreatRiver,      {150, 185, 210, 0.65, 0.95, 0}},
    {Matter::Lake,            {222, 234, 241, 0.93, 0,    0}},
    {Matter::LakeShore,       {150, 180, 200, 0.60, 0.5,  0}},
    {Matter::IceFront,        {160, 182, 198, 0.50, 0.5,  0}},
    {Matter::Province,        {200, 186, 172, 0.66, 0.6,  0}},
    {Matter::Border,          {168, 146, 128, 0.48, 0.9,  0}},
    {Matter::DisputedBorder,  {168, 146, 128, 0.48, 0.9,  3}},
    {Matter::Coast,           {116, 142, 160, 0.30, 0.75, 0}},
    {Matter::Limb,            {150, 168, 180, 0.45, 1.2,  0}},
};
// clang-format on

double PoidsDe(Detail detail) {
  switch (detail) {
    case Detail::World:
      return 0.8;
    case Detail::Continent:
      return 1.0;
    case Detail::Region:
      break;
  }
  return 1.2;
}

double Longueur(const Line& line) {
  double sum = 0;
  for (std::size_t i = 1; i < line.size(); ++i)
    sum += std::hypot(line[i].x - line[i - 1].x, line[i].y - line[i - 1].y);
  return sum;
}

/// Least rank of the rivers that a map leaves out, and of those that it draws thinner.
struct RiverRanks {
  int thin;
  int none;
};
RiverRanks RangsDe(Detail detail) {
  if (detail == Detail::World) return {1, 2};
  if (detail == Detail::Continent) return {1, 3};
  return {1, 6};
}

std::vector<Line> LignesDe(const std::vector<GraticuleLine>& graticule) {
  std::vector<Line> lines;
  for (const GraticuleLine& g : graticule) lines.push_back(g.line);
  return lines;
}

/// Fills a drawing, matter after matter.
class Drawer {
 public:
  Drawer(const MapSheet& sheet, const GeoData& data)
      : sheet_(sheet),
        data_(data),
        kmPerPixel_(static_cast<double>(sheet.Etat().LargeurKm) / TailleImage(sheet.Etat()).width) {
  }

  MapDrawing Tout() {
    AjouteSurface(Matter::Water, sheet_.Terre());
    AjouteSurface(Matter::IceShelf, sheet_.PlaceSurface(SurfaceDe(data_.shelves)));
    AjouteSurface(Matter::Land, sheet_.PlaceSurface(SurfaceDe(data_.land)));
    AjouteLignes(Matter::Graticule,
                 sheet_.PlaceLignes(LignesDe(Graticule(sheet_.Description().graticule))));
    AjouteRivieres();
    AjouteLacs();
    AjouteLignes(Matter::IceFront, sheet_.PlaceLignes(Contours(data_.shelves)));
    AjouteFrontieres();
    AjouteLignes(Matter::Coast, sheet_.PlaceLignes(Contours(data_.land)));
    AjouteLignes(Matter::Limb, sheet_.Limbe());
    return std::move(drawing_);
  }

 private:
  Line Amincie(const Line& line) const { return Simplifie(line, kmPerPixel_ * thinningPixels); }

  void AjouteSurface(Matter matter, const Surface& surface) {
    DrawnLayer layer{matter, {}, {}};
    for (const Ring& ring : surface) {
      Line thin = Amincie(Ferme(ring));
      thin.pop_back();
      if (thin.size() >= 3) layer.surface.push_back(std::move(thin));
    }
    drawing_.push_back(std::move(layer));
  }

  void AjouteLignes(Matter matter, const std::vector<Line>& lines, double leastPixels = 0) {
    DrawnLayer layer{matter, {}, {}};
    for (const Line& line : lines) {
      if (Longueur(line) >= leastPixels * kmPerPixel_) layer.lines.push_back(Amincie(line));
    }
    drawing_.push_back(std::move(layer));
  }

  void AjouteRivieres() {
    const RiverRanks ranks = RangsDe(sheet_.Description().detail);
    AjouteLignes(Matter::River,
                 sheet_.PlaceLignes(LignesDeRang(data_.rivers, ranks.thin, ranks.none)),
                 leastRiverPixels);
    AjouteLignes(Matter::GreatRiver, sheet_.PlaceLignes(LignesDeRang(data_.rivers, 0, ranks.thin)));
  }

  void AjouteLacs() {
    std::vector<GeoFeature> shown;
    for (const GeoFeature& lake : data_.lakes) {
      if (Aire(sheet_.PlaceSurface(lake.parts)) >= leastLakePixels * kmPerPixel_ * kmPerPixel_)
        shown.push_back(lake);
    }
    AjouteSurface(Matter::Lake, sheet_.PlaceSurface(SurfaceDe(shown)));
    AjouteLignes(Matter::LakeShore, sheet_.PlaceLignes(Contours(shown)));
  }

  void AjouteFrontieres() {
    if (sheet_.Description().detail != Detail::World)
      AjouteLignes(Matter::Province, sheet_.PlaceLignes(LignesDeRang(data_.provinces, 0, 1)));
    AjouteLignes(Matter::Border, sheet_.PlaceLignes(LignesDeRang(data_.borders, 0, 1)));
    AjouteLignes(Matter::DisputedBorder, sheet_.PlaceLignes(LignesDeRang(data_.borders, 1, 2)));
  }

  const MapSheet& sheet_;
  const GeoData& data_;
  double kmPerPixel_;
  MapDrawing drawing_;
};

}  // namespace

Ink EncreDe(Matter matter, Detail detail) {
  const auto* row = std::find_if(std::begin(inks), std::end(inks),
                                 [matter](const InkRow& r) { return r.matter == matter; });
  Ink ink = row->ink;
  ink.width *= PoidsDe(detail);
  return ink;
}

PictureSize TailleImage(const MapState& state) {
  const double scale =
      std::min(mostPixelsAcross / state.LargeurKm, mostPixelsDown / state.HauteurKm);
  return {static_cast<int>(std::lround(state.LargeurKm * scale)),
          static_cast<int>(std::lround(state.HauteurKm * scale))};
}

MapDrawing Dessine(const MapSheet& sheet, const GeoData& data) {
  if (sheet.Description().code == 10) return DessineEquateur(sheet, data);
  return Drawer(sheet, data).Tout();
}

}  // namespace talpena
