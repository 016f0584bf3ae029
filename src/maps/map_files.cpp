#include "maps/map_files.h"

#include <cmath>

#include "common/msg_id_errors.h"
#include "common/numbers.h"
#include "common/paths.h"
#include "common/talpena_error.h"
#include "maps/canvas_sink.h"
#include "maps/grid_overlay.h"
#include "maps/plot.h"
#include "maps/projection.h"
#include "maps/redraw.h"
#include "platform/busy.h"
#include "platform/free_input.h"

namespace talpena {
namespace {

constexpr std::string_view application = "TALPENA";
constexpr std::string_view section = "Carto";
constexpr std::string_view mapFilter = "Fichiers cartes (*.dsw)|*.dsw|Tous les fichiers (*.*)|*.*";

/// A file that a map names: in the map's folder unless it has a folder of its own.
std::string AvecDossier(const MapState& carte, const std::string& path) {
  return DossierDe(path).empty() ? carte.DossierCarte + path : path;
}

void LitEtendues(MapState& carte, FreeInput& input) {
  for (float* extent : {&carte.Gauche, &carte.Droite, &carte.Bas, &carte.Haut}) {
    *extent = input.Simple();
  }
}

void LitGeoreference(MapState& carte, FreeInput& input) {
  carte.ParallelePrincipal = input.Simple();
  input.Chaine();  // a name
  for (float* limit : {&carte.LatNord, &carte.LatSud, &carte.LonEst, &carte.LonOuest}) {
    *limit = input.Simple();
  }
  carte.Parallele1 = input.Simple();
  carte.Parallele2 = input.Simple();
  input.Entier();  // this one and the two below have no meaning
  carte.MeridienCentralDeg = input.Simple();
  input.Entier();
  input.Entier();
  for (std::int16_t& side : carte.CadreEPS) side = input.Entier();
  carte.DecalageLongitude = input.Fini() ? 0 : input.Simple();
}

void LitCarte(MapContext c, FreeInput& input) {
  MapState& carte = c.carte;
  input.Ligne();  // the title
  carte.FichierPS = AvecDossier(carte, input.Ligne());
  carte.FichierImage = AvecDossier(carte, input.Ligne());
  c.canvas.ChargeImage(carte.FichierImage);
  c.fenetre.AjusteMap();
  carte.CodeProjection = input.Entier();
  if (carte.CodeProjection == 0) {
    LitEtendues(carte, input);
  } else {
    LitGeoreference(carte, input);
  }
}

/// A number of the settings; the default when its text is no number that a colour or a diameter
/// can be.
std::int32_t LitEntier(MapContext c, std::string_view key, std::int32_t standard) {
  const std::string text =
      c.io.settings.Lit(application, section, key, Str(std::int64_t{standard}));
  try {
    return EstNumerique(text) ? Arrondi32(Val(text)) : standard;
  } catch (const TalpenaError&) {
    return standard;
  }
}

std::string DossierDesCartes(const StoreState& state) {
  return AvecSeparateur(state.AppDir) + "carto";
}

/// The open command of a view that has no map yet; leaving the dialog leaves it without one.
bool OuvrePremiereCarte(MapContext c) {
  try {
    OuvrirCarte(c);
    return true;
  } catch (const TalpenaError& e) {
    if (e.number() != ErrorNumber::Cancelled) throw;
    return false;
  }
}

}  // namespace

bool ChargeCarte(MapContext c, const std::string& path) {
  const Busy busy(c.attente);
  try {
    c.carte.DossierCarte = DossierDe(path);
    FreeInput input(c.io.files.Ouvre(RendNatif(path)));
    LitCarte(c, input);
    InitProjection(c.carte);
    InitParam(c);
    c.io.settings.Ecrit(application, section, "LastMap", path);
    c.carte.Grille = false;
    return true;
  } catch (const TalpenaError&) {
    return false;  // the view keeps what was read until then
  }
}

void InitParam(MapContext c) {
  MapState& carte = c.carte;
  const bool georeferenced = carte.CodeProjection != 0;
  if (!georeferenced) c.options.Raz();
  c.fenetre.ActiveEps(georeferenced);
  carte.polygone.Oublie();  // its pixels are those of another scale
  InitBoite(carte);
  const double left = georeferenced ? carte.XGauche : carte.Gauche;
  const double right = georeferenced ? carte.XDroite : carte.Droite;
  const double top = georeferenced ? carte.YHaut : carte.Haut;
  const double bottom = georeferenced ? carte.YBas : carte.Bas;
  const UserScale scale{left, top, right - left, bottom - top};
  if (scale.width == 0 || scale.height == 0 || !std::isfinite(scale.width + scale.height)) {
    throw TalpenaError(ErrorNumber::InvalidCall, "A map without width or height has no scale",
                       {.text = MsgId::CarteSansEchelle});
  }
  c.canvas.ChangeEchelle(scale);
}

void OuvrirCarte(MapContext c) {
  const std::string path = c.io.dialogues.OuvreFichier(
      {.filter = std::string(mapFilter),
       .folder = c.io.settings.Lit(application, "Paths", "Carto", DossierDesCartes(c.state))});
  ChargeCarte(c, path);
  if (!path.empty()) c.io.settings.Ecrit(application, "Paths", "Carto", DossierDe(path));
  c.fenetre.QuandPeinte([c] { RedrawMap(c); });
}

void ChargeVue(MapContext c) {
  InitFacteurs(c.carte);
  c.options.SymbolColor = LitEntier(c, "SymbolColor", 255);
  c.options.SymbolDiameter = LitEntier(c, "SymbolDiameter", -1);
  c.fenetre.AjusteMap();
  InitUtm(c.carte);
  c.options.Raz();
  const std::string world = AvecSeparateur(DossierDesCartes(c.state)) + "world.dsw";
  const std::string last = c.io.settings.Lit(application, section, "LastMap", world);
  if (c.io.files.Existe(RendNatif(last))) {
    ChargeCarte(c, last);
  } else if (OuvrePremiereCarte(c)) {
    return;  // with the distribution on it
  }
  c.fenetre.QuandPeinte([c] {
    ScreenSink ecran(c);
    PlotDistri(c, ecran);
    c.fenetre.MontreCanevas();
  });
}

void SauveVue(MapContext c) {
  c.io.settings.Ecrit(application, section, "SymbolColor",
                      Str(std::int64_t{c.options.SymbolColor}));
  c.io.settings.Ecrit(application, section, "SymbolDiameter",
                      Str(std::int64_t{c.options.SymbolDiameter}));
}

}  // namespace talpena
