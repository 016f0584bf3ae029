#include "pictures/gallery.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QLineEdit>
#include <array>
#include <utility>

#include "analysis/windows/frm_graphique.h"
#include "analysis/windows/frm_options_periodes.h"
#include "analysis/windows/frm_resume.h"
#include "analysis/windows/selection_form.h"
#include "analysis/year_charts.h"
#include "common/msg_id.h"
#include "common/paths.h"
#include "common/string_table.h"
#include "coords/windows/ajustement.h"
#include "coords/windows/frm_datum.h"
#include "coords/windows/frm_lmb_ifbl.h"
#include "gazetteer/gazetteer_file.h"
#include "gazetteer/windows/frm_fonts.h"
#include "gazetteer/windows/frm_geo_query.h"
#include "gazetteer/windows/frm_geo_setup.h"
#include "interchange/windows/frm_garmin_options.h"
#include "interchange/windows/frm_import_garmin.h"
#include "interchange/windows/frm_importation.h"
#include "interchange/windows/options_export.h"
#include "interchange/windows/rehearsal_pane.h"
#include "maps/windows/frm_carte.h"
#include "maps/windows/frm_cartes_options.h"
#include "maps/windows/map.h"
#include "maps/windows/options_map.h"
#include "shell/windows/frm_aide.h"
#include "shell/windows/frm_eastern.h"
#include "shell/windows/frm_message.h"
#include "shell/windows/prefer.h"
#include "shell/windows/start.h"
#include "store/windows/edit_form.h"

namespace talpena {
namespace {

std::unique_ptr<QWidget> CreeAttente(const GalleryContext& c) {
  auto message = std::make_unique<frmMessage>(c.state);
  message->Affiche(QString::fromStdString(Texte(c.state.Langue, MsgId::Ouverture) + " " +
                                          c.state.document.Fichier.NomFichier));
  return message;
}

std::unique_ptr<QWidget> CreeAttenteAnnulable(const GalleryContext& c) {
  auto message = std::make_unique<frmMessage>(c.state, nullptr, frmMessage::Bouton::Annuler);
  message->Affiche(QString::fromStdString(Texte(c.state.Langue, MsgId::Patientez)));
  return message;
}

std::unique_ptr<QWidget> CreeAide(const GalleryContext& c) {
  auto help = std::make_unique<frmAide>(c.state, c.io, std::make_shared<HelpPlace>());
  if (help->Ouvre()) help->Montre(QStringLiteral("table.html#erase"));
  return help;
}

/// The phenology by ten-day steps, which has all that a chart may have.
std::unique_ptr<QWidget> CreeGraphique(const GalleryContext& c) {
  struct Kept final : ChartPort {
    ChartPicture picture;
    void MontreGraphique(const ChartPicture& shown) override { picture = shown; }
  } kept;
  mnuDecades_Click(c.Commandes(), kept);
  return std::make_unique<frmGraphique>(c.state, c.io, kept.picture, std::string());
}

std::unique_ptr<QWidget> CreeResume(const GalleryContext& c) {
  return std::make_unique<frmResume>(c.state, c.io, ResumeLignes(c.Commandes()), std::string());
}

/// With X and Y, so that both notices stand in it.
std::unique_ptr<QWidget> CreeOptionsExport(const GalleryContext& c) {
  auto options = std::make_unique<OptionsExport>(c.state, c.io, ExportKind::Text);
  options->findChild<QComboBox*>(QStringLiteral("cmbSystem"))->setCurrentIndex(1);
  return options;
}

/// With the last map or, before the first, with that of the sample's region; as it is without one
/// where no map ships, for which it would ask.
std::unique_ptr<QWidget> CreeCarte(const GalleryContext& c) {
  const std::string carto = AvecSeparateur(AvecSeparateur(c.state.AppDir) + "carto");
  const std::string region = carto + "western_europe.dsw";
  const auto derniere = [&](const std::string& first) {
    return c.io.settings.Lit("TALPENA", "Carto", "LastMap", first);
  };
  if (derniere("").empty() && c.io.files.Existe(region))
    c.io.settings.Ecrit("TALPENA", "Carto", "LastMap", region);
  auto view = std::make_unique<frmCarte>(c.Commandes());
  if (TrouveChemin(derniere(carto + "world.dsw"))) view->Charge();
  return view;
}

/// On one of the raster maps, where they ship.
std::unique_ptr<QWidget> CreeRaster(const GalleryContext& c) {
  auto view = std::make_unique<Map>(c.Commandes(), c.state.raster);
  if (c.io.files.Existe(RasterDe(LigneRaster(CarteRaster::Gaule), c.state.AppDir).FichierCarte))
    view->Charge(CarteRaster::Gaule);
  return view;
}

/// A map of two layers, whose names tell how long ones are shown.
std::unique_ptr<QWidget> CreeOptionsCarte(const GalleryContext& c) {
  MapState map;
  map.CodeProjection = 1;
  MapOption options;
  for (const char* layer : {"/coasts_world.tlp", "/borders_world.tlp"})
    options.Add(c.state.AppDir + "/carto" + layer);
  return std::make_unique<frmCartesOptions>(c.state, c.io, map, options, OngletCartes::Tlp);
}

std::string ListeDExemple(const GalleryContext& c, const char* name) {
  return AvecSeparateur(c.state.AppDir) + "samples/import/" + name;
}

std::string PointsDExemple(const GalleryContext& c) { return ListeDExemple(c, "mapsource.txt"); }

/// What an import would do with a file of the samples is known.
template <typename Window>
std::unique_ptr<Window> Repetee(std::unique_ptr<Window> window) {
  const auto* pane = window->template findChild<RehearsalPane*>();
  while (!pane->EstFinie()) QCoreApplication::processEvents();
  return window;
}

std::unique_ptr<QWidget> CreeImportGarmin(const GalleryContext& c) {
  auto window =
      std::make_unique<frmImportGarmin>(c.Commandes(), c.state.interchange, PointsDExemple(c), 0);
  window->Charge();
  return Repetee(std::move(window));
}

/// The choice that the dialog opens on.
struct ChoixDExemple {
  explicit ChoixDExemple(const GalleryContext& c) {
    choice.FichierImportation = ListeDExemple(c, "deg.txt");
  }
  InterchangeState choice;
};

class ImportationMontree final : private ChoixDExemple, public frmImportation {
 public:
  explicit ImportationMontree(const GalleryContext& c)
      : ChoixDExemple(c), frmImportation(c.state, choice, c.io) {}
};

std::unique_ptr<QWidget> CreeImportation(const GalleryContext& c) {
  return Repetee(std::make_unique<ImportationMontree>(c));
}

/// What the options are looked at with: date and altitude out of columns.
struct ExempleGarmin {
  explicit ExempleGarmin(const GalleryContext& c) {
    RempliLV(c.io.files, PointsDExemple(c), text);
    items = TousLesPoints(text);
    options.DateImport = options.AltitudeImport = 2;
    options.DateField = "Date Modified";
    options.AltitudeField = "Altitude";
  }
  MapSourceText text;
  std::vector<WaypointChoice> items;
  objGraminImport options;
};

class OptionsGarminMontrees final : private ExempleGarmin, public frmGarminOptions {
 public:
  explicit OptionsGarminMontrees(const GalleryContext& c)
      : ExempleGarmin(c), frmGarminOptions(c.state, c.io, options, text, items) {}
};

/// Over the gazetteer that ships, where it is there.
std::unique_ptr<QWidget> CreeGeoSetup(const GalleryContext& c) {
  auto window =
      std::make_unique<frmGeoSetup>(c.Commandes(), c.state.gazetteer, [](const QWidget*) {});
  if (TrouveChemin(FichierGazetier(c.state, c.io))) window->Charge();
  return window;
}

/// A query, and what it stands on.
struct RequeteDExemple : GazetteerDialogs {
  void MontreGeoSetup() override {}
  RecordScreen fiche;
};

class RequeteMontree final : private RequeteDExemple, public frmGeoQuery {
 public:
  explicit RequeteMontree(const GalleryContext& c)
      : frmGeoQuery({c.Commandes(), c.state.gazetteer, static_cast<RequeteDExemple&>(*this)}) {
    Prepare(fiche);
  }
};

/// A name half typed; its places come once the gazetteer that ships is read, where it is there.
std::unique_ptr<QWidget> CreeRequete(const GalleryContext& c) {
  auto window = std::make_unique<RequeteMontree>(c);
  window->resize(720, 420);
  window->findChild<QLineEdit*>(QStringLiteral("txt"))->setText(QStringLiteral("saint-g"));
  return window;
}

std::unique_ptr<QWidget> CreePolices(const GalleryContext& c) {
  return std::make_unique<frmFonts>(c.state, c.io, c.state.gazetteer);
}

using Context = const GalleryContext&;
using Window = std::unique_ptr<QWidget>;

// clang-format off
constexpr std::array windows = {
    GalleryWindow{"about",   [](Context c) -> Window { return std::make_unique<frmEastern>(c.state); }},
    GalleryWindow{"adjust",  [](Context c) -> Window { return std::make_unique<Ajustement>(c.state); }},
    GalleryWindow{"chart",   CreeGraphique},
    GalleryWindow{"datum",   [](Context c) -> Window { return std::make_unique<frmDatum>(c.state); }},
    GalleryWindow{"export",  CreeOptionsExport},
    GalleryWindow{"garmin", CreeImportGarmin},
    GalleryWindow{"garmin-options", [](Context c) -> Window { return std::make_unique<OptionsGarminMontrees>(c); }},
    GalleryWindow{"gazetteer", CreeRequete},
    GalleryWindow{"gazetteer-fonts", CreePolices},
    GalleryWindow{"gazetteer-setup", CreeGeoSetup},
    GalleryWindow{"help",    CreeAide},
    GalleryWindow{"ifbl",    [](Context c) -> Window { return std::make_unique<frmLmbIfbl>(c.state); }},
    GalleryWindow{"import", CreeImportation},
    GalleryWindow{"map", CreeCarte},
    GalleryWindow{"map-options", CreeOptionsCarte},
    GalleryWindow{"raster", CreeRaster},
    GalleryWindow{"raster-options", [](Context c) -> Window { return std::make_unique<OptionsMap>(c.state, c.io); }},
    GalleryWindow{"message", CreeAttente},
    GalleryWindow{"periods", [](Context c) -> Window { return std::make_unique<frmOptionsPeriodes>(c.state, c.io, c.attente); }},
    GalleryWindow{"preferences", [](Context c) -> Window { return std::make_unique<Prefer>(c.Commandes()); }},
    GalleryWindow{"record",  [](Context c) -> Window { return std::make_unique<EditForm>(c.Commandes()); }},
    GalleryWindow{"selection", [](Context c) -> Window { return std::make_unique<Selection>(c.state, c.io, c.attente); }},
    GalleryWindow{"summary", CreeResume},
    GalleryWindow{"wait-cancel", CreeAttenteAnnulable},
    GalleryWindow{"splash",  [](Context c) -> Window { return std::make_unique<Start>(c.state); }},
};
// clang-format on

}  // namespace

std::span<const GalleryWindow> ToutesLesFenetres() { return windows; }

}  // namespace talpena
