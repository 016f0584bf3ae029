#include "maps/raster/raster_clicks.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coords/datum.h"
#include "coords/grid_commands.h"
#include "coords/mgrs.h"
#include "coords/snap.h"
#include "maps/clicked_rows.h"
#include "maps/plot.h"
#include "maps/raster/raster_plot.h"
#include "maps/raster/raster_readout.h"
#include "platform/commands.h"
#include "store/edition.h"

namespace talpena {
namespace {

constexpr std::size_t zoneAndBand = 3;  ///< characters of a reference before its square

std::string ReferenceMgrs(PointDegres place) {
  std::int16_t zone = 0;
  double northing = 0, easting = 0;
  std::string mgrs;
  LatLonVersMgrs(SeriesInternational(), EnRadians(place.latitude), EnRadians(place.longitude), zone,
                 northing, easting, mgrs, EllipsoideInternational);
  return mgrs;
}

void Ajuste(std::string& mgrs, std::int16_t maille) {
  std::string reference = mgrs.substr(zoneAndBand);
  if (AjusteGrille(reference, maille)) mgrs.replace(zoneAndBand, std::string::npos, reference);
}

/// As a redraw reads it: coordinates are kept in 32 bits.
double Gardee(const std::string& text) {
  return static_cast<double>(static_cast<float>(Val(text)));
}

/// The points of this opening that are still there.
std::vector<Bookmark> PointsPresents(RasterContext c) {
  std::vector<Bookmark> present;
  if (!c.state.document.Data1.EstLie()) return present;
  const Recordset& rows = c.state.document.Data1.recordset();
  std::copy_if(c.session.ajoutes.begin(), c.session.ajoutes.end(), std::back_inserter(present),
               [&](Bookmark row) { return rows.PositionDe(row) >= 0; });
  return present;
}

void SupprimePoints(RasterContext c, const std::vector<Bookmark>& points) {
  const std::int64_t position = c.state.document.Data1.recordset().AbsolutePosition();
  std::vector<Bookmark> chosen = c.vue.LignesSelectionnees();
  Edition edition(c.state.document, "Take back on the map", Edition::Etendue::Entiere);
  edition.SupprimeLignes(points);
  edition.VaAPosition(position);
  edition.Valide();
  std::erase_if(chosen, [&](Bookmark row) {
    return std::find(points.begin(), points.end(), row) != points.end();
  });
  c.vue.ChoisitLignes(chosen);
}

void EcritPrn(RasterContext c, Grille grid) {
  std::vector<GridLinePoint>& lines = c.session.lignes;
  CreationPrnNational(c.io, c.attente, grid, [&](double latitude, double longitude, bool first) {
    if (latitude == 0 && longitude == 0) return;
    lines.push_back({ProjetteRaster(c.carte, {latitude, longitude}), first});
    TraceLigneDeGrille(c.canvas, lines, lines.size() - 1);
  });
  c.fenetre.MontreCanevas();
}

}  // namespace

PointDegres PlaceSurGrille(PointDegres place, std::int16_t maille) {
  constexpr std::int16_t firstMesh = 1, lastMesh = 7;
  std::string mgrs = ReferenceMgrs(SansTour(place));
  if (EstEchecMgrs(mgrs)) return place;
  if (maille >= firstMesh && maille <= lastMesh) Ajuste(mgrs, maille);
  double latitude = 0, longitude = 0, northing = 0, easting = 0;
  std::int16_t zone = 0;
  int error = 0;
  MgrsVersLatLon(mgrs, EllipsoideInternational, SeriesInternational(), latitude, longitude, zone,
                 northing, easting, error);
  if (error != 0) return place;
  return {EnDegres(latitude), EnDegres(longitude)};
}

std::int16_t PeriodeDeLAnnee(std::string_view txtAnnee, const DistributionHeader& entete) {
  constexpr std::size_t digits = 4;
  const double year = Val(PremiersCaracteres(txtAnnee, digits));
  if (entete.NbPivots <= 0 || year < entete.Pivot1) return 1;
  return entete.NbPivots == 1 || year < entete.Pivot2 ? 2 : 3;
}

void AjoutePointRaster(RasterContext c, const RasterEntry& entry, PointKm point) {
  const PointDegres place = PlaceSurGrille(InverseRaster(c.carte, point), c.state.UtmAjust);
  const ClickedRow row{TexteLatitude(place.latitude), TexteLongitude(place.longitude),
                       entry.ChoixPeriode, entry.txtAnnee};
  c.session.ajoutes.push_back(AjouteLigneCliquee(c.state, c.vue, row));
  TraceLigneRaster(c, row.period, {Gardee(row.latitude), Gardee(row.longitude)});
  c.fenetre.MontreCanevas();
}

void RetirePointRaster(RasterContext c) {
  const auto gone =
      RetireLigneChoisie(c.state, c.io, c.vue, [&c](double latitude, double longitude) {
        const PointKm point = ProjetteRaster(c.carte, {latitude, longitude});
        CacheSymbole(c.canvas, point.X, point.Y, DiametreRaster(c));
        c.fenetre.MontreCanevas();
      });
  if (gone) std::erase(c.session.ajoutes, *gone);
}

void FermeRaster(RasterContext c) {
  const std::vector<Bookmark> points = PointsPresents(c);
  c.session.ajoutes.clear();
  if (points.empty()) return;
  Bip(c.state, c.io);
  const Answer answer =
      c.io.dialogues.Demande({.text = Texte(c.state.Langue, MsgId::GardeNouveauxPoints),
                              .icon = Icon::Question,
                              .buttons = Buttons::YesNo,
                              .closing = Answer::Yes});  // Escape takes no point away
  if (answer == Answer::No) SupprimePoints(c, points);
}

void EcritGrillesPrn(RasterContext c) {
  for (const Grille grid : {Grille::British, Grille::Irish}) {
    try {
      EcritPrn(c, grid);
    } catch (const TalpenaError& e) {
      if (e.number() != ErrorNumber::Cancelled) throw;
    }
  }
}

}  // namespace talpena
