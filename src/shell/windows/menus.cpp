// The table of commands. Most rows run a procedure of the logic, under the handler of all commands.
#include "shell/windows/menus.h"

#include <array>
#include <type_traits>

#include "analysis/charts.h"
#include "analysis/statistics.h"
#include "analysis/year_charts.h"
#include "common/msg_id.h"
#include "common/msg_id_analysis.h"
#include "common/msg_id_export.h"
#include "common/msg_id_menus.h"
#include "coord_commands/adjust.h"
#include "coord_commands/fill.h"
#include "coords/grid_commands.h"
#include "interchange/database_export.h"
#include "interchange/text_export.h"
#include "interchange/text_import.h"
#include "interchange/waypoint_commands.h"
#include "shell/windows/form1.h"
#include "store/erase_column.h"
#include "store/file_commands.h"
#include "store/find.h"
#include "store/row_commands.h"

namespace talpena {
namespace {

constexpr std::string_view menuSeparator = "-";

/// Calls a procedure with what it takes: the window itself, the context of the shell's commands or
/// of the store's, this with the dialogs of a subsystem, that of the imports, or state and machine;
/// and the index behind these if it wants to know.
template <auto Procedure>
void Appelle(Form1& form, int index) {
  using P = decltype(Procedure);
  if constexpr (std::is_invocable_v<P, Form1&, int>) {
    (form.*Procedure)(index);
  } else if constexpr (std::is_invocable_v<P, Form1&>) {
    (form.*Procedure)();
  } else if constexpr (std::is_invocable_v<P, CommandContext, int>) {
    Procedure(form.Commandes(), index);
  } else if constexpr (std::is_invocable_v<P, CommandContext, Form1&, int>) {
    Procedure(form.Commandes(), form, index);
  } else if constexpr (std::is_invocable_v<P, CommandContext, Form1&>) {
    Procedure(form.Commandes(), form);
  } else if constexpr (std::is_invocable_v<P, ImportContext, int>) {
    Procedure(form.Importations(), index);
  } else if constexpr (std::is_invocable_v<P, CommandContext>) {
    Procedure(form.Commandes());
  } else if constexpr (std::is_invocable_v<P, ShellContext>) {
    Procedure(form.Contexte());
  } else {
    const ShellContext c = form.Contexte();
    Procedure(c.state, c.io);
  }
}

/// A command as nearly all are: one at a time, its failure shown.
template <auto Procedure>
void Lance(Form1& form, int index) {
  form.Commande([&] { Appelle<Procedure>(form, index); });
}

/// One that makes a chart.
template <auto Procedure>
void Trace(Form1& form, int index) {
  form.CommandeGraphique([&] { Appelle<Procedure>(form, index); });
}

/// One that sees to that itself.
template <auto Procedure>
void Directement(Form1& form, int index) {
  Appelle<Procedure>(form, index);
}

/// A raster map by the entry of its own.
template <CarteRaster choisie>
void OuvreRaster(Form1& form, int /*index*/) {
  form.MontreCarteRaster(choisie);
}

/// mnuEurope: the entries are the first rows of the table of raster maps.
void OuvreEurope(Form1& form, int index) {
  form.MontreCarteRaster(static_cast<CarteRaster>(index));
}

/// The entries count from 1, behind their separator.
void OuvreDernierFichier(CommandContext c, int index) { MnuLastFile_Click(c, index - 1); }

// clang-format off
constexpr std::array menuExpAscii = {
    MenuEntry{.control = "MnuExpAsciiMode", .index = 0, .base = MsgId::MenuExpFixe,
              .condition = MenuCondition::Rows, .run = Lance<MnuExpAsciiMode>},
    MenuEntry{.control = "MnuExpAsciiMode", .index = 1, .base = MsgId::MenuExpVirgules,
              .condition = MenuCondition::Rows, .run = Lance<MnuExpAsciiMode>},
    MenuEntry{.control = "MnuExpAsciiMode", .index = 2, .base = MsgId::MenuExpTabulations,
              .condition = MenuCondition::Rows, .run = Lance<MnuExpAsciiMode>},
    MenuEntry{.control = "MnuExpAsciiMode", .index = 3, .base = MsgId::MenuExpEspaces,
              .condition = MenuCondition::Rows, .run = Lance<MnuExpAsciiMode>},
};
constexpr std::array menuExporter = {
    MenuEntry{.control = "MnuExpAscii", .base = MsgId::MenuExpAscii, .children = menuExpAscii},
    MenuEntry{.control = "MnuExpDB", .index = 0, .base = MsgId::MenuExpAccess,
              .condition = MenuCondition::Rows, .run = Lance<MnuExpDB>},
    MenuEntry{.control = "MnuExpDB", .index = 1, .base = MsgId::MenuExpFoxPro,
              .condition = MenuCondition::Rows, .run = Lance<MnuExpDB>},
    MenuEntry{.control = "MnuExpDB", .index = 2, .base = MsgId::MenuExpDBase,
              .condition = MenuCondition::Rows, .run = Lance<MnuExpDB>},
    MenuEntry{.control = "MnuExpDB", .index = 3, .base = MsgId::MenuExpParadox,
              .condition = MenuCondition::Rows, .run = Lance<MnuExpDB>},
    MenuEntry{.control = "MnuExpDB", .index = 4, .caption = "Fichier Excel",
              .condition = MenuCondition::Rows, .run = Lance<MnuExpDB>},
    MenuEntry{.control = "MnuExpDB", .index = 5, .caption = "GeoPackage",
              .condition = MenuCondition::Rows, .run = Lance<MnuExpDB>},
    MenuEntry{.control = "MnuExpDB", .index = 6, .base = MsgId::MenuExpXlsx,
              .condition = MenuCondition::Rows, .run = Lance<MnuExpDB>},
};
constexpr std::array menuImportGarmin = {
    MenuEntry{.control = "mnuImportGarmin", .index = 0, .caption = "&Waypoints",
              .condition = MenuCondition::Rows, .run = Lance<mnuImportGarmin_Click>},
    MenuEntry{.control = "mnuImportGarmin", .index = 1, .caption = "&Tracks"},
};
constexpr std::array menuImporter = {
    MenuEntry{.control = "mnuImport", .index = 0, .caption = "Fichier &Ascii",
              .condition = MenuCondition::Rows, .run = Lance<mnuImport_Click>},
    MenuEntry{.control = "mnuImport", .index = 1, .caption = "Garmin &PCX5 2.07",
              .condition = MenuCondition::Rows, .run = Lance<mnuImport_Click>},
    MenuEntry{.control = "mnuImport", .index = 2, .caption = "&Garmin Mapsource 4",
              .children = menuImportGarmin},
};
constexpr std::array menuFichier = {
    MenuEntry{.control = "MnuNouveau", .base = MsgId::MenuNouveau, .key = "Ctrl+N",
              .run = Lance<MnuNouveau_Click>},
    MenuEntry{.control = "MnuOuvrir", .base = MsgId::MenuOuvrir, .key = "Ctrl+O",
              .run = Lance<MnuOuvrir_Click>},
    MenuEntry{.control = "MnuEnregistrer", .base = MsgId::MenuEnregistrer, .key = "Ctrl+S",
              .condition = MenuCondition::File, .run = Lance<MnuEnregistrer_Click>},
    MenuEntry{.control = "MnuEnrSous", .base = MsgId::MenuEnrSous, .key = "Ctrl+Shift+S",
              .condition = MenuCondition::File, .run = Lance<MnuEnrSous_Click>},
    MenuEntry{.control = "MnuGrouper", .base = MsgId::MenuGrouper, .condition = MenuCondition::File,
              .run = Lance<MnuGrouper_Click>},
    MenuEntry{.control = "MnuSepar", .index = 0, .caption = menuSeparator},
    MenuEntry{.control = "MnuFusionner", .base = MsgId::MenuFusionner,
              .condition = MenuCondition::File, .run = Lance<MnuFusionner_Click>},
    MenuEntry{.control = "MnuImporter", .base = MsgId::MenuImporter,
              .condition = MenuCondition::File, .children = menuImporter},
    MenuEntry{.control = "MnuExporter", .base = MsgId::MenuExporter,
              .condition = MenuCondition::File, .children = menuExporter},
    MenuEntry{.control = "MnuLastFile", .index = 0, .caption = menuSeparator},
    MenuEntry{.control = "MnuLastFile", .index = 1, .run = Lance<OuvreDernierFichier>},
    MenuEntry{.control = "MnuLastFile", .index = 2, .run = Lance<OuvreDernierFichier>},
    MenuEntry{.control = "MnuLastFile", .index = 3, .run = Lance<OuvreDernierFichier>},
    MenuEntry{.control = "MnuLastFile", .index = 4, .run = Lance<OuvreDernierFichier>},
    MenuEntry{.control = "MnuSepar", .index = 1, .caption = menuSeparator},
    MenuEntry{.control = "MnuQuitter", .base = MsgId::MenuQuitter, .key = "Ctrl+Q",
              .run = Lance<MnuQuitter_Click>},
};
constexpr std::array menuRemplir = {
    MenuEntry{.control = "MnuRemplirCoo", .index = 0, .base = MsgId::MenuRemplirUtm,
              .condition = MenuCondition::Rows, .run = Lance<MnuRemplirCoo_Click>},
    MenuEntry{.control = "MnuRemplirCoo", .index = 1, .base = MsgId::MenuRemplirBritannique,
              .condition = MenuCondition::Rows, .run = Lance<MnuRemplirCoo_Click>},
    MenuEntry{.control = "MnuRemplirCoo", .index = 2, .base = MsgId::MenuRemplirIrlandaise,
              .condition = MenuCondition::Rows, .run = Lance<MnuRemplirCoo_Click>},
    MenuEntry{.control = "MnuRemplirXY", .index = 0, .base = MsgId::MenuRemplirDms,
              .condition = MenuCondition::Rows, .run = Lance<MnuRemplirXY_Click>},
    MenuEntry{.control = "MnuRemplirXY", .index = 1, .base = MsgId::MenuRemplirGrades,
              .condition = MenuCondition::Rows, .run = Lance<MnuRemplirXY_Click>},
    MenuEntry{.control = "MnuRemplirXY", .index = 2, .base = MsgId::MenuRemplirLambert72,
              .condition = MenuCondition::Rows, .run = Lance<MnuRemplirXY_Click>},
    MenuEntry{.control = "MnuRemplirXY", .index = 3, .caption = "&IFBL",
              .condition = MenuCondition::Rows, .run = Lance<MnuRemplirXY_Click>},
    MenuEntry{.control = "MnuRemplirXY", .index = 4, .base = MsgId::LambertNordMaroc,
              .condition = MenuCondition::Rows, .run = Lance<MnuRemplirXY_Click>},
    MenuEntry{.control = "MnuRemplirXY", .index = 5, .base = MsgId::LambertSudMaroc,
              .condition = MenuCondition::Rows, .run = Lance<MnuRemplirXY_Click>},
    MenuEntry{.control = "MnuRemplirTexte", .base = MsgId::MenuRemplirTexte,
              .condition = MenuCondition::Rows, .run = Lance<MnuRemplirTexte_Click>},
};
constexpr std::array menuAjustIfbl = {
    MenuEntry{.control = "mnuAjustIFBL", .index = 0, .caption = "32 x 20 km",
              .condition = MenuCondition::Rows, .run = Lance<mnuAjustIFBL_Click>},
    MenuEntry{.control = "mnuAjustIFBL", .index = 1, .caption = "4 x 4 km",
              .condition = MenuCondition::Rows, .run = Lance<mnuAjustIFBL_Click>},
    MenuEntry{.control = "mnuAjustIFBL", .index = 2, .caption = "1 x 1 km",
              .condition = MenuCondition::Rows, .run = Lance<mnuAjustIFBL_Click>},
};
constexpr std::array menuAjuster = {
    MenuEntry{.control = "mnuAjustGrid", .index = 0,
              .caption = "&UTM - British Grid - Irish Grid...", .condition = MenuCondition::Rows,
              .run = Lance<mnuAjustGrid_Click>},
    MenuEntry{.control = "mnuAjustGrid", .index = 1, .caption = "&Degrés Greenwich...",
              .condition = MenuCondition::Rows, .run = Lance<mnuAjustGrid_Click>},
    MenuEntry{.control = "mnuAjustGrid", .index = 2, .caption = "&Grades Paris",
              .condition = MenuCondition::Rows, .run = Lance<mnuAjustGrid_Click>},
    MenuEntry{.control = "mnuAjustGrid", .index = 3, .caption = "&IFBL", .children = menuAjustIfbl},
};
constexpr std::array menuEdition = {
    MenuEntry{.control = "mnuChercher", .index = 0, .base = MsgId::MenuChercher, .key = "Ctrl+F",
              .condition = MenuCondition::Rows, .run = Lance<mnuChercher_Click>},
    MenuEntry{.control = "mnuChercher", .index = 1, .base = MsgId::MenuSuivant, .key = "F3",
              .condition = MenuCondition::Search, .run = Lance<mnuChercher_Click>},
    MenuEntry{.control = "MnuSepar", .index = 2, .caption = menuSeparator},
    MenuEntry{.control = "MnuAjoutLigne", .base = MsgId::MenuAjoutLigne, .key = "Ctrl+L",
              .condition = MenuCondition::Rows, .run = Lance<MnuAjoutLigne_Click>},
    MenuEntry{.control = "mnuDuplic", .base = MsgId::MenuDupliquer, .key = "Ctrl+D",
              .condition = MenuCondition::Rows, .run = Lance<mnuDuplic_Click>},
    MenuEntry{.control = "MnuEraseCol", .base = MsgId::MenuEraseCol, .key = "Ctrl+Shift+Del",
              .condition = MenuCondition::Rows, .run = Lance<MnuEraseCol_Click>},
    MenuEntry{.control = "MnuSupprimer", .base = MsgId::MenuSupprimer, .key = "Ctrl+Del",
              .condition = MenuCondition::Rows, .run = Lance<MnuSupprimer_Click>},
    MenuEntry{.control = "MnuSepar", .index = 3, .caption = menuSeparator},
    MenuEntry{.control = "MnuRemplir", .base = MsgId::MenuRemplir, .children = menuRemplir},
    MenuEntry{.control = "MnuAjuster", .base = MsgId::MenuAjuster, .children = menuAjuster},
    MenuEntry{.control = "MnuSelection", .caption = "Sélection a&vancée...",
              .condition = MenuCondition::Rows, .run = Lance<&Form1::MnuSelection_Click>},
};
constexpr std::array menuEurope = {
    MenuEntry{.control = "mnuEurope", .index = 0, .base = MsgId::MenuEurope,
              .condition = MenuCondition::Rows, .run = OuvreEurope},
    MenuEntry{.control = "mnuEurope", .index = 1, .base = MsgId::MenuEuropeCentrale,
              .condition = MenuCondition::Rows, .run = OuvreEurope},
    MenuEntry{.control = "mnuEurope", .index = 2, .base = MsgId::MenuGaule,
              .condition = MenuCondition::Rows, .run = OuvreEurope},
    MenuEntry{.control = "mnuEurope", .index = 3, .base = MsgId::MenuBelgique,
              .condition = MenuCondition::Rows, .run = OuvreEurope},
    MenuEntry{.control = "mnuEurope", .index = 4, .base = MsgId::MenuPaysBas,
              .condition = MenuCondition::Rows, .run = OuvreEurope},
    MenuEntry{.control = "mnuEurope", .index = 5, .base = MsgId::MenuIlesBritanniques,
              .condition = MenuCondition::Rows, .run = OuvreEurope},
    MenuEntry{.control = "mnuEurope", .index = 6, .base = MsgId::MenuIberie,
              .condition = MenuCondition::Rows, .run = OuvreEurope},
    MenuEntry{.control = "mnuEurope", .index = 7, .base = MsgId::MenuTurquie,
              .condition = MenuCondition::Rows, .run = OuvreEurope},
};
constexpr std::array menuVisualiser = {
    MenuEntry{.control = "MnuVisMonde", .base = MsgId::MenuMonde,
              .condition = MenuCondition::Rows, .run = OuvreRaster<CarteRaster::Monde>},
    MenuEntry{.control = "mnuEurope", .base = MsgId::MenuEurope, .children = menuEurope},
    MenuEntry{.control = "MnuVisAsiEur", .base = MsgId::MenuAsieEurope,
              .condition = MenuCondition::Rows, .run = OuvreRaster<CarteRaster::AsieEurope>},
    MenuEntry{.control = "MnuVisAfrica", .base = MsgId::MenuAfrique,
              .condition = MenuCondition::Rows, .run = OuvreRaster<CarteRaster::Afrique>},
    MenuEntry{.control = "MnuVisNamer", .base = MsgId::MenuAmeriqueNord,
              .condition = MenuCondition::Rows, .run = OuvreRaster<CarteRaster::AmeriqueNord>},
    MenuEntry{.control = "MnuVisSamer", .base = MsgId::MenuAmeriqueSud,
              .condition = MenuCondition::Rows, .run = OuvreRaster<CarteRaster::AmeriqueSud>},
    MenuEntry{.control = "MnuVisAsiocea", .base = MsgId::MenuAsieOceanie,
              .condition = MenuCondition::Rows, .run = OuvreRaster<CarteRaster::AsieOceanie>},
    MenuEntry{.control = "MnuVisAutre", .base = MsgId::MenuAutreCarte,
              .condition = MenuCondition::Rows, .run = Directement<&Form1::MnuVisAutre_Click>},
    MenuEntry{.control = "MnuSepar", .index = 4, .caption = menuSeparator},
    MenuEntry{.control = "MnuVisCarte", .base = MsgId::MenuCarteVectorielle, .key = "Ctrl+M",
              .condition = MenuCondition::Rows, .run = Directement<&Form1::cmdMap_Click>},
};
constexpr std::array menuCouleurs = {
    MenuEntry{.control = "MnuGrille", .base = MsgId::MenuFondGrille,
              .run = Lance<&Form1::MnuGrille_Click>},
    MenuEntry{.control = "MnuTxtGrille", .base = MsgId::MenuTexteGrille,
              .run = Lance<&Form1::MnuTxtGrille_Click>},
};
constexpr std::array menuLangues = {
    MenuEntry{.control = "MnuLang", .index = 0, .base = MsgId::MenuFrancais,
              .run = Directement<&Form1::MnuLang_Click>},
    MenuEntry{.control = "MnuLang", .index = 1, .base = MsgId::MenuAnglais,
              .run = Directement<&Form1::MnuLang_Click>},
    MenuEntry{.control = "MnuLang", .index = 2, .base = MsgId::MenuEspagnol,
              .run = Directement<&Form1::MnuLang_Click>},
    MenuEntry{.control = "MnuLang", .index = 3, .base = MsgId::MenuAllemand,
              .run = Directement<&Form1::MnuLang_Click>},
    MenuEntry{.control = "MnuLang", .index = 4, .base = MsgId::MenuItalien,
              .run = Directement<&Form1::MnuLang_Click>},
    MenuEntry{.control = "MnuLang", .index = 5, .base = MsgId::MenuNeerlandais,
              .run = Directement<&Form1::MnuLang_Click>},
};
constexpr std::array menuOutils = {
    MenuEntry{.control = "MnuDatumFichier", .base = MsgId::MenuDatumFichier,
              .condition = MenuCondition::Rows, .run = Lance<&Form1::MnuDatumFichier_Click>},
    MenuEntry{.control = "MnuLmbIfbl", .base = MsgId::MenuLmbIfbl,
              .run = Lance<&Form1::MnuLmbIfbl_Click>},
    MenuEntry{.control = "MnuIFBLGrid", .base = MsgId::MenuIfblLignes,
              .run = Lance<CreationIFBLGrid>},
    MenuEntry{.control = "MnuIFBLGridPolygon", .base = MsgId::MenuIfblCarres,
              .run = Lance<CreationIFBLGridPolygon>},
};
constexpr std::array menuOptions = {
    MenuEntry{.control = "MnuPreferences", .base = MsgId::MenuPreferences, .key = "Ctrl+,",
              .run = Lance<&Form1::MnuPreferences_Click>},
    MenuEntry{.control = "MnuOptionsPeriodes", .base = MsgId::MenuPeriodes,
              .condition = MenuCondition::File, .run = Lance<&Form1::MontreOptionsPeriodes>},
    MenuEntry{.control = "MnuCouleurs", .base = MsgId::MenuCouleurs, .children = menuCouleurs},
    MenuEntry{.control = "MnuOptionsCartes", .base = MsgId::MenuOptionsCartes,
              .run = Lance<&Form1::MnuOptionsCartes_Click>},
    MenuEntry{.control = "MnuLangue", .base = MsgId::MenuLangue, .children = menuLangues},
    MenuEntry{.control = "MnuOutils", .base = MsgId::MenuOutils, .children = menuOutils},
};
constexpr std::array menuStandardisation = {
    MenuEntry{.control = "mnustd", .index = 0, .caption = "Logarithme",
              .condition = MenuCondition::Rows, .run = Lance<mnustd_Click>},
    MenuEntry{.control = "mnustd", .index = 1, .caption = "Valeurs normales réduites",
              .condition = MenuCondition::Rows, .run = Lance<mnustd_Click>},
};
constexpr std::array menuAnalyse = {
    MenuEntry{.control = "MnuParametres", .caption = "Paramètres statistiques",
              .condition = MenuCondition::Rows, .run = Lance<MnuParametres_Click>},
    MenuEntry{.control = "mnuStandardisation", .caption = "Standardisation des valeurs",
              .children = menuStandardisation},
    MenuEntry{.control = "mnuAnalyse", .index = 0, .caption = "Graphique Chiffre1/OGU",
              .condition = MenuCondition::Rows, .run = Trace<mnuAnalyse_Click>},
    MenuEntry{.control = "mnuAnalyse", .index = 1, .caption = "Graphique Chiffre2/OGU",
              .condition = MenuCondition::Rows, .run = Trace<mnuAnalyse_Click>},
    MenuEntry{.control = "mnuPhenolo", .caption = "P&hénologie",
              .condition = MenuCondition::Rows, .run = Trace<mnuPhenolo_Click>},
    MenuEntry{.control = "MnuSepar", .index = 5, .caption = menuSeparator},
    MenuEntry{.control = "mnuResume", .base = MsgId::MenuResume,
              .condition = MenuCondition::Rows, .run = Directement<&Form1::mnuResume_Click>},
    MenuEntry{.control = "mnuDecades", .base = MsgId::MenuDecades,
              .condition = MenuCondition::Rows, .run = Trace<mnuDecades_Click>},
    MenuEntry{.control = "mnuAnnees", .base = MsgId::MenuAnnees,
              .condition = MenuCondition::Rows, .run = Trace<mnuAnnees_Click>},
};
constexpr std::array menuAide = {
    MenuEntry{.control = "MnuAideTexte", .base = MsgId::MenuAide, .key = "F1",
              .run = Directement<&Form1::MnuAideTexte_Click>},
    MenuEntry{.control = "MnuInfo", .base = MsgId::MenuInfo, .run = Lance<&Form1::MnuInfo_Click>},
};
constexpr std::array arbreDesMenus = {
    MenuEntry{.control = "mnuFichier", .base = MsgId::MenuFichier, .children = menuFichier},
    MenuEntry{.control = "MnuEdition", .base = MsgId::MenuEdition, .condition = MenuCondition::File,
              .children = menuEdition},
    MenuEntry{.control = "MnuVisualiser", .base = MsgId::MenuVisualiser,
              .condition = MenuCondition::File, .children = menuVisualiser},
    MenuEntry{.control = "mnuOptions", .base = MsgId::MenuOptions, .children = menuOptions},
    MenuEntry{.control = "mnuAna", .caption = "Anal&yse", .children = menuAnalyse},
    MenuEntry{.control = "mnuGrid", .caption = "Grille", .run = Lance<mnuGrid_Click>},
    MenuEntry{.control = "MnuAide", .base = MsgId::MenuAide, .children = menuAide},
};
constexpr std::array outilsForm1 = {
    MenuEntry{.control = "cmd", .index = 0, .base = MsgId::CmdOuvrir, .icon = "open",
              .same = "MnuOuvrir"},
    MenuEntry{.control = "cmd", .index = 1, .base = MsgId::CmdSauver, .icon = "save",
              .same = "MnuEnregistrer"},
    MenuEntry{.control = "cmd", .index = 2, .base = MsgId::CmdNouveau, .icon = "new",
              .same = "MnuNouveau"},
    MenuEntry{.control = "cmd", .index = 3, .base = MsgId::CmdEdition,
              .key = "Ctrl+Return; Ctrl+Enter", .icon = "edit", .condition = MenuCondition::Row,
              .run = Directement<&Form1::MontreEdition>, .help = MsgId::Editer},
    MenuEntry{.control = "cmd", .index = 4, .base = MsgId::CmdChercher, .icon = "find",
              .same = "mnuChercher_0"},
    MenuEntry{.control = "cmd", .index = 5, .base = MsgId::CmdSupprimer, .icon = "delete",
              .same = "MnuSupprimer"},
    MenuEntry{.control = "cmdMap", .base = MsgId::Carte, .icon = "map", .same = "MnuVisCarte"},
};
// clang-format on

}  // namespace

std::span<const MenuEntry> ArbreDesMenus() { return arbreDesMenus; }

std::span<const MenuEntry> OutilsForm1() { return outilsForm1; }

bool EstActif(const MenuEntry& entry, const MenuState& state) {
  const auto holds = [&state](MenuCondition condition) {
    switch (condition) {
      case MenuCondition::File:
      case MenuCondition::Rows:
        return state.fileOpen;
      case MenuCondition::Row:
        return state.fileOpen && state.hasRow;
      case MenuCondition::Search:
        return state.fileOpen && state.searched;
      case MenuCondition::Always:
        break;
    }
    return true;
  };
  const MenuEntry& runs = RangeeDe(ArbreDesMenus(), entry);
  return AUneCommande(runs) && holds(runs.condition);
}

std::string LibelleDernierFichier(int position, std::string_view path) {
  return "&" + std::to_string(position) + " " + std::string(path);
}

}  // namespace talpena
