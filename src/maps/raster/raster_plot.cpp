#include "maps/raster/raster_plot.h"

#include <array>
#include <cmath>
#include <utility>
#include <vector>

#include "maps/plot.h"
#include "platform/busy.h"
#include "store/table.h"

namespace talpena {
namespace {

constexpr std::array columnsShown{Column::PERIOD, Column::LATITUDE, Column::LONGITUDE};

/// Circles until something else is drawn: only their colour changes from row to row. The ring
/// keeps those that overlap apart.
void PrepareCercles(RasterContext c) {
  c.canvas.Attributs = {
      .ForeColor = c.state.StrokeColor, .fillStyle = FillStyle::Solid, .RingWidth = 1};
}

CirclePlace CercleDe(const RasterContext& c, double period, PointDegres place) {
  const PointKm point = ProjetteRaster(c.carte, place);
  return {point.X, point.Y, CouleurDePeriode(c.state, period)};
}

/// NaN stands for Null.
bool EstPlace(PointDegres place) {
  if (std::isnan(place.latitude) || std::isnan(place.longitude)) return false;
  return place.latitude != 0 || place.longitude != 0;
}

/// The rows that the map shows; empty for all.
std::vector<Bookmark> LignesMontrees(const RasterSession& session) {
  std::vector<Bookmark> rows = session.choisies;
  if (!rows.empty()) rows.insert(rows.end(), session.ajoutes.begin(), session.ajoutes.end());
  return rows;
}

void DessineDistribution(RasterContext c) {
  const std::vector<Bookmark> chosen = LignesMontrees(c.session);
  if (!c.state.document.Data1.EstLie()) return;
  Recordset& rows = c.state.document.Data1.recordset();
  const std::int64_t total =
      chosen.empty() ? rows.RecordCount() : static_cast<std::int64_t>(chosen.size());
  if (total == 0) return;
  Busy busy(c.attente);
  AnnonceAttente(busy, c.state, total);
  busy.Barre();
  PrepareCercles(c);
  const double radius = DiametreRaster(c) / 2;
  std::int64_t done = 0;
  std::vector<CirclePlace> circles;
  rows.LitNombres(columnsShown, chosen.empty() ? nullptr : &chosen, [&](const NumberBlock& block) {
    circles.clear();
    for (std::size_t row = 0; row < block.rows; ++row) {
      const PointDegres place{block.Valeur(row, 1), block.Valeur(row, 2)};
      if (EstPlace(place)) circles.push_back(CercleDe(c, block.Valeur(row, 0), place));
    }
    c.canvas.Circles(circles, radius);
    done += static_cast<std::int64_t>(block.rows);
    busy.Avance(done, total);
  });
}

void DessineGrilles(RasterContext c) {
  for (std::size_t i = 0; i < c.session.lignes.size(); ++i) {
    TraceLigneDeGrille(c.canvas, c.session.lignes, i);
  }
}

}  // namespace

void ChargeCarteRaster(RasterContext c, CarteRaster choisie) {
  const RasterRow& row = LigneRaster(choisie);
  RasterMap carte = RasterDe(row, c.state.AppDir);
  c.canvas.ChargeImage(carte.FichierCarte);
  c.canvas.ChangeEchelle(EchelleRaster(carte, row));
  c.carte = std::move(carte);
  c.session = {c.vue.LignesSelectionnees(), {}, {}};
}

void RedessineRaster(RasterContext c) {
  const Busy busy(c.attente);
  c.canvas.Cls();
  DessineGrilles(c);
  DessineDistribution(c);
  c.fenetre.MontreCanevas();
}

void TraceLigneRaster(RasterContext c, double period, PointDegres place) {
  PrepareCercles(c);
  c.canvas.Circles(std::array{CercleDe(c, period, place)}, DiametreRaster(c) / 2);
}

std::uint32_t CouleurDePeriode(const SettingsState& state, double period) {
  constexpr std::uint32_t black = 0;
  if (!(period >= 2)) return state.SymbolColor[0];
  if (period < 3) return state.SymbolColor[1];
  return period < 4 ? state.SymbolColor[2] : black;
}

double DiametreRaster(RasterContext c) {
  const double set = static_cast<double>(c.state.DiamPoints);
  return set < 0 ? std::abs(c.canvas.Echelle().width) / 50 : set;
}

void TraceLigneDeGrille(Canvas& canvas, const std::vector<GridLinePoint>& lignes, std::size_t at) {
  const GridLinePoint& to = lignes[at];
  canvas.Attributs = {};
  if (to.first || at == 0) return canvas.PSet(to.point.X, to.point.Y);
  const PointKm from = lignes[at - 1].point;
  canvas.Line(from.X, from.Y, to.point.X, to.point.Y);
}

}  // namespace talpena
