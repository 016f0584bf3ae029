#include "maps/redraw.h"

#include <array>

#include "common/free_decimal.h"
#include "common/numbers.h"
#include "common/paths.h"
#include "common/talpena_error.h"
#include "maps/grid_overlay.h"
#include "maps/layer_plot.h"
#include "maps/plot.h"
#include "maps/projection.h"
#include "platform/busy.h"

namespace talpena {
namespace {

using Panels = std::array<std::string, 3>;

Panels PanneauxGeographiques(const MapState& carte, float x, float y) {
  float lat = 0, lon = 0;
  ProjectionInverse(carte, x, y, lat, lon);
  lat = Degre(lat);
  lon = Degre(lon);
  float north = 0, east = 0;
  std::string reference;
  UTM(carte, lat, lon, north, east, reference);
  return {"lat=" + Format(lat, "00.000"), "lon=" + Format(lon, "00.000"), reference};
}

Panels PanneauxDe(const MapState& carte, float x, float y) {
  if (carte.CodeProjection == 0) return {"X:" + FormeLibre(x), "Y:" + FormeLibre(y), ""};
  try {
    return PanneauxGeographiques(carte, x, y);
  } catch (const TalpenaError&) {
    return {};
  }
}

void AfficheCouches(MapContext c, CanvasSink& surface) {
  if (c.options.LayerCount() == 0) return;
  const Busy busy(c.attente);
  for (int layer = 1; layer <= c.options.LayerCount(); ++layer) {
    AfficheTLP(c, surface, c.options.Couche(layer));
  }
}

}  // namespace

void TraceLignes(MapContext c, CanvasSink& surface) {
  DrawAttributes& attributs = surface.Canevas().Attributs;
  attributs = {};  // a closed line is not filled as the symbols of the last time were
  AfficheCouches(c, surface);
  attributs = {};  // nor has the grid the colour of the last layer
  if (c.carte.Grille) DisplayGrid(c, surface, false);
}

void RedrawMap(MapContext c) {
  const Busy busy(c.attente);
  ScreenSink ecran(c);
  c.canvas.Cls();
  TraceLignes(c, ecran);
  PlotDistri(c, ecran);
  c.fenetre.MontreCanevas();
}

void AfficheTLP(MapContext c, CanvasSink& surface, const std::string& path) {
  const std::string found = RendNatif(path);
  if (!c.io.files.Existe(found)) return;
  LayerPlot plot(c.carte, surface);
  LayerFile file(c.io.files.Ouvre(found));
  for (LayerRecord record; file.Suivant(record);) {
    if (!plot.Garde(record)) continue;
    for (auto points = file.Points(); !points.empty(); points = file.Points()) {
      plot.Trace(record, points);
      c.attente.Bat();
    }
  }
}

void MontrePosition(MapContext c, float x, float y) {
  const Panels panels = PanneauxDe(c.carte, x, y);
  for (std::size_t i = 0; i < panels.size(); ++i) {
    c.fenetre.MontrePanneau(static_cast<int>(i) + 1, panels[i]);
  }
}

void SauveImage(MapContext c) {
  const std::string path = c.io.dialogues.EnregistreFichier(
      {.filter = "Fichiers bitmap (*.bmp)|*.bmp|Tous les fichiers (*.*)|*.*",
       .folder = c.io.settings.Lit("TALPENA", "Paths", "Data", ""),
       .confirmReplace = true});
  c.canvas.SauveBmp(path);
}

}  // namespace talpena
