// Clicks on the map: a new row, or the last one taken back.
#include <span>
#include <string>
#include <vector>

#include "common/free_decimal.h"
#include "common/numbers.h"
#include "common/text.h"
#include "coords/faults.h"
#include "maps/map_projection.h"
#include "maps/plot.h"
#include "maps/projection.h"
#include "platform/commands.h"
#include "store/edition.h"
#include "store/row_commands.h"
#include "store/table.h"

namespace talpena {
namespace {

constexpr std::uint32_t White = 0xFFFFFF;

bool EstGeoreferencee(const MapState& carte) { return ProjectionDe(carte) != nullptr; }

void MontrePositionTitre(MapContext c, float x, float y) {
  c.fenetre.ChangeTitre(FormeLibre(x) + FormeLibre(y));
}

/// Coordinates of a new row, as texts.
struct Position {
  std::string latitude;
  std::string longitude;
};

std::string EnTexte(float radians, std::string_view mask) {
  return Remplace(Format(Fini(Degre(radians)), mask), ",", ".");
}

Position PositionDe(const MapState& carte, float x, float y) {
  float lat = 0, lon = 0;
  ProjectionInverse(carte, x, y, lat, lon);
  return {EnTexte(lat, "+##.#####;-##.#####"), EnTexte(lon, "+###.#####;-###.#####")};
}

Bookmark AjouteLigne(Edition& edition, const Position& position) {
  return edition.AjouteLigne([&](Recordset& row) {
    row.Set(Column::PERIOD, Cell::Of(std::int64_t{1}));
    row.Set(Column::LATITUDE, Cell::Of(Val(position.latitude)));
    row.Set(Column::LONGITUDE, Cell::Of(Val(position.longitude)));
    row.Set(Column::N1, Cell::Of(std::int64_t{1}));
    row.Set(Column::N2, Cell::Of(std::int64_t{1}));
    row.Set(Column::DATUM, Cell::Of(std::string_view("EUR-M")));
    const std::string original = "deg " + position.latitude + " " + position.longitude;
    row.Set(Column::ORIGINAL, Cell::Of(std::string_view(original)));
  });
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

/// A white spot hides the middle of the symbol.
void EffaceSymbole(MapContext c, MapPoint point) {
  const DrawAttributes before = c.canvas.Attributs;
  c.canvas.Attributs.ForeColor = White;
  c.canvas.Attributs.FillColor = White;
  c.canvas.Attributs.fillStyle = FillStyle::Solid;
  c.canvas.Attributs.RingWidth = 0;
  c.canvas.Circle(point.X, point.Y, DiametreSymbole(c.carte, c.options) / 4.0);
  c.canvas.Attributs.ForeColor = before.ForeColor;
  c.canvas.Attributs.RingWidth = before.RingWidth;
  c.fenetre.MontreCanevas();
}

void EffaceLigne(MapContext c, Recordset& row) {
  const Cell latitude = row.Get(Column::LATITUDE), longitude = row.Get(Column::LONGITUDE);
  if (latitude.EstNull() || longitude.EstNull() || !EstGeoreferencee(c.carte)) return;
  if (latitude.real == 0 && longitude.real == 0) return;
  EffaceSymbole(c, PointDe(c.carte, latitude.real, longitude.real));
}

}  // namespace

void AjouteLigneCarte(MapContext c, float x, float y) {
  MontrePositionTitre(c, x, y);
  if (!EstGeoreferencee(c.carte)) return;
  const Position position = PositionDe(c.carte, x, y);
  LieTable(c.state.document);
  std::vector<Bookmark> chosen = c.vue.LignesSelectionnees();
  Edition edition(c.state.document, "Add on the map");
  chosen.push_back(AjouteLigne(edition, position));
  edition.VaA(chosen.back());
  edition.Valide();
  c.vue.ChoisitLignes(chosen);
  const MapPoint point = PointDe(c.carte, Val(position.latitude), Val(position.longitude));
  PrepareSymboles(c.canvas);
  PlotSymbol(c.canvas, point.X, point.Y, 1, DiametreSymbole(c.carte, c.options),
             static_cast<std::uint32_t>(c.options.SymbolColor), FillStyle::Solid);
  c.fenetre.MontreCanevas();
}

void RetireLigneCarte(MapContext c, float x, float y) {
  MontrePositionTitre(c, x, y);
  std::vector<Bookmark> chosen = c.vue.LignesSelectionnees();
  DataControl& data = c.state.document.Data1;
  if (chosen.empty() || !data.EstLie() || data.recordset().RecordCount() == 0) {
    Bip(c.state, c.io);
    return;
  }
  const std::int64_t position = data.recordset().AbsolutePosition();
  const auto row = data.Clone();
  row->SetBookmark(chosen.back());
  EffaceLigne(c, *row);
  Edition edition(c.state.document, "Take back on the map");
  edition.SupprimeLignes(std::span(&chosen.back(), 1));
  edition.VaAPosition(position);
  edition.Valide();
  chosen.pop_back();
  c.vue.ChoisitLignes(chosen);
}

}  // namespace talpena
