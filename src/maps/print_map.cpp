#include "maps/print_map.h"

#include <algorithm>
#include <cmath>

#include "maps/canvas_sink.h"
#include "maps/plot.h"
#include "maps/redraw.h"

namespace talpena {
namespace {

constexpr double pointsPerInch = 72;
constexpr double dotsPerInch = 300;
constexpr double mostDots = 40e6;
constexpr int twipsPerPixel = 15;  // of a screen of 96 dots per inch

bool SansImage(const Canvas& canvas) {
  return canvas.LargeurTwips() <= 0 || canvas.HauteurTwips() <= 0;
}

void Oriente(MapContext c) {
  c.io.dialogues.Imprimante().ChangeOrientation(
      EstPaysage(c.canvas.LargeurTwips(), c.canvas.HauteurTwips()));
}

/// What is on show, over the picture. A map that has no place for the distribution says so on the
/// screen; a page is no place for that.
void Dessine(MapContext c, CanvasSink& page) {
  TraceLignes(c, page);
  if (c.carte.CodeProjection != 0) PlotDistri(c, page);
}

}  // namespace

bool EstPaysage(int width, int height) { return width > height; }

PagePlace PlaceSurLaPage(PageArea area, int width, int height) {
  const double scale = std::min(area.width / width, area.height / height);
  const double placeWidth = width * scale;
  const double placeHeight = height * scale;
  return {(area.width - placeWidth) / 2, (area.height - placeHeight) / 2, placeWidth, placeHeight};
}

double FinesseImpression(const PagePlace& place, int widthPixels, int heightPixels) {
  const double wanted = place.width / pointsPerInch * dotsPerInch / widthPixels;
  const double most = std::sqrt(mostDots / (double{1} * widthPixels * heightPixels));
  return std::max(1.0, std::min(wanted, most));
}

void PrintMap(MapContext c, Printer& printer) {
  if (SansImage(c.canvas)) return;
  const int width = c.canvas.LargeurTwips() / twipsPerPixel;
  const int height = c.canvas.HauteurTwips() / twipsPerPixel;
  const PagePlace place = PlaceSurLaPage(printer.ZoneImprimable(), width, height);
  const auto page = printer.CreeCanevas(FinesseImpression(place, width, height));
  page->ChargeImage(c.carte.FichierImage);
  page->ChangeEchelle(c.canvas.Echelle());
  PageSink sink(*page);
  Dessine(c, sink);
  printer.ImprimePage(*page, place);
}

void ImprimeSurPapier(MapContext c) {
  if (SansImage(c.canvas)) return;
  Oriente(c);
  c.io.dialogues.Imprime();
  PrintMap(c, c.io.dialogues.Imprimante());
}

void MontreApercu(MapContext c) {
  if (SansImage(c.canvas)) return;
  Oriente(c);
  c.io.dialogues.Apercu([c](Printer& printer) { PrintMap(c, printer); });
}

}  // namespace talpena
