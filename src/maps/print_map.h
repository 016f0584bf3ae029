// The map on paper.
#pragma once
#include "maps/map_context.h"
#include "platform/printer.h"

namespace talpena {

/// Whether a picture stands better across the page: it is wider than high.
bool EstPaysage(int width, int height);

/// Where a picture stands in an area: as large as its proportions allow, in the middle.
PagePlace PlaceSurLaPage(PageArea area, int width, int height);

/// Dots for each pixel of a picture so that it has 300 of them in an inch of the page; at least 1,
/// fewer where the surface would grow past 40 million.
double FinesseImpression(const PagePlace& place, int widthPixels, int heightPixels);

/// The map drawn anew, as it is on show, on a page of the printer. Nothing without a picture.
void PrintMap(MapContext c, Printer& printer);

/// Print dialog, PrintMap.
void ImprimeSurPapier(MapContext c);

/// Print preview.
void MontreApercu(MapContext c);

}  // namespace talpena
