// Clicks on the map: a new row, or the last one taken back.
#include "common/free_decimal.h"
#include "common/numbers.h"
#include "coords/faults.h"
#include "maps/clicked_rows.h"
#include "maps/map_projection.h"
#include "maps/plot.h"
#include "maps/projection.h"

namespace talpena {
namespace {

bool EstGeoreferencee(const MapState& carte) { return ProjectionDe(carte) != nullptr; }

void MontrePositionTitre(MapContext c, float x, float y) {
  c.fenetre.ChangeTitre(FormeLibre(x) + FormeLibre(y));
}

/// Coordinates of a new row, as texts.
ClickedRow LigneEn(const MapState& carte, float x, float y) {
  float lat = 0, lon = 0;
  ProjectionInverse(carte, x, y, lat, lon);
  return {TexteLatitude(Fini(Degre(lat))), TexteLongitude(Fini(Degre(lon)))};
}

/// Where the row lies on the map: as a redraw would put it, from the values that it keeps.
struct MapPoint {
  float X = 0;
  float Y = 0;
};
MapPoint PointDe(const MapState& carte, double latitude, double longitude) {
  MapPoint point;
  Project(carte, radian(static_cast<float>(latitude)), radian(static_cast<float>(longitude)),
          point.X, point.Y);
  return point;
}

void EffaceSymbole(MapContext c, MapPoint point) {
  CacheSymbole(c.canvas, point.X, point.Y, DiametreSymbole(c.carte, c.options));
  c.fenetre.MontreCanevas();
}

}  // namespace

void AjouteLigneCarte(MapContext c, float x, float y) {
  MontrePositionTitre(c, x, y);
  if (!EstGeoreferencee(c.carte)) return;
  const ClickedRow row = LigneEn(c.carte, x, y);
  AjouteLigneCliquee(c.state, c.vue, row);
  const MapPoint point = PointDe(c.carte, Val(row.latitude), Val(row.longitude));
  PrepareSymboles(c.canvas);
  PlotSymbol(c.canvas, point.X, point.Y, 1, DiametreSymbole(c.carte, c.options),
             static_cast<std::uint32_t>(c.options.SymbolColor), FillStyle::Solid);
  c.fenetre.MontreCanevas();
}

void RetireLigneCarte(MapContext c, float x, float y) {
  MontrePositionTitre(c, x, y);
  RetireLigneChoisie(c.state, c.io, c.vue, [&c](double latitude, double longitude) {
    if (EstGeoreferencee(c.carte)) EffaceSymbole(c, PointDe(c.carte, latitude, longitude));
  });
}

}  // namespace talpena
