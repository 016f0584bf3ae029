#include "shell/menus.h"

#include <array>

#include "common/string_table.h"

namespace talpena {
namespace {

constexpr std::string_view separator = "-";

// clang-format off
constexpr std::array expAscii = {
    MenuEntry{.control = "MnuExpAsciiMode", .index = 0, .base = 10},
    MenuEntry{.control = "MnuExpAsciiMode", .index = 1, .base = 11},
    MenuEntry{.control = "MnuExpAsciiMode", .index = 2, .base = 12},
    MenuEntry{.control = "MnuExpAsciiMode", .index = 3, .base = 13},
};
constexpr std::array exporter = {
    MenuEntry{.control = "MnuExpAscii", .base = 9, .children = expAscii},
    MenuEntry{.control = "MnuExpDB", .index = 0, .base = 14},
    MenuEntry{.control = "MnuExpDB", .index = 1, .base = 15},
    MenuEntry{.control = "MnuExpDB", .index = 2, .base = 16},
    MenuEntry{.control = "MnuExpDB", .index = 3, .base = 17},
    MenuEntry{.control = "MnuExpDB", .index = 4, .caption = "Fichier Excel"},
};
constexpr std::array importGarmin = {
    MenuEntry{.control = "mnuImportGarmin", .index = 0, .caption = "&Waypoints"},
    MenuEntry{.control = "mnuImportGarmin", .index = 1, .caption = "&Tracks"},
};
constexpr std::array importer = {
    MenuEntry{.control = "mnuImport", .index = 0, .caption = "Fichier &Ascii"},
    MenuEntry{.control = "mnuImport", .index = 1, .caption = "Garmin &PCX5 2.07"},
    MenuEntry{.control = "mnuImport", .index = 2, .caption = "&Garmin Mapsource 4",
              .children = importGarmin},
};
constexpr std::array fichier = {
    MenuEntry{.control = "MnuNouveau", .base = 2, .command = MenuCommand::Nouveau,
              .shortcut = "Ctrl+N"},
    MenuEntry{.control = "MnuOuvrir", .base = 3, .command = MenuCommand::Ouvrir,
              .shortcut = "Ctrl+O"},
    MenuEntry{.control = "MnuEnregistrer", .base = 4, .command = MenuCommand::Enregistrer,
              .needsFile = true, .shortcut = "Ctrl+S"},
    MenuEntry{.control = "MnuEnrSous", .base = 5, .command = MenuCommand::EnrSous,
              .needsFile = true, .shortcut = "Ctrl+Shift+S"},
    MenuEntry{.control = "MnuGrouper", .base = 19, .command = MenuCommand::Grouper,
              .needsFile = true},
    MenuEntry{.control = "MnuSepar", .index = 0, .caption = separator},
    MenuEntry{.control = "MnuFusionner", .base = 6, .command = MenuCommand::Fusionner,
              .needsFile = true},
    MenuEntry{.control = "MnuImporter", .base = 7, .needsFile = true, .children = importer},
    MenuEntry{.control = "MnuExporter", .base = 8, .needsFile = true, .children = exporter},
    MenuEntry{.control = "MnuLastFile", .index = 0, .caption = separator},
    MenuEntry{.control = "MnuLastFile", .index = 1, .command = MenuCommand::LastFile},
    MenuEntry{.control = "MnuLastFile", .index = 2, .command = MenuCommand::LastFile},
    MenuEntry{.control = "MnuLastFile", .index = 3, .command = MenuCommand::LastFile},
    MenuEntry{.control = "MnuLastFile", .index = 4, .command = MenuCommand::LastFile},
    MenuEntry{.control = "MnuSepar", .index = 1, .caption = separator},
    MenuEntry{.control = "MnuQuitter", .base = 18, .command = MenuCommand::Quitter,
              .shortcut = "Ctrl+Q"},
};
constexpr std::array remplir = {
    MenuEntry{.control = "MnuRemplirCoo", .index = 0, .base = 36,
              .command = MenuCommand::RemplirCoo},
    MenuEntry{.control = "MnuRemplirCoo", .index = 1, .base = 37,
              .command = MenuCommand::RemplirCoo},
    MenuEntry{.control = "MnuRemplirCoo", .index = 2, .base = 38,
              .command = MenuCommand::RemplirCoo},
    MenuEntry{.control = "MnuRemplirXY", .index = 0, .base = 44,
              .command = MenuCommand::RemplirXY},
    MenuEntry{.control = "MnuRemplirXY", .index = 1, .base = 39,
              .command = MenuCommand::RemplirXY},
    MenuEntry{.control = "MnuRemplirXY", .index = 2, .base = 40,
              .command = MenuCommand::RemplirXY},
    MenuEntry{.control = "MnuRemplirXY", .index = 3, .caption = "&IFBL",
              .command = MenuCommand::RemplirXY},
    MenuEntry{.control = "MnuRemplirXY", .index = 4, .base = 314,
              .command = MenuCommand::RemplirXY},
    MenuEntry{.control = "MnuRemplirXY", .index = 5, .base = 315,
              .command = MenuCommand::RemplirXY},
    MenuEntry{.control = "MnuRemplirTexte", .base = 41,
              .command = MenuCommand::RemplirTexte},
};
constexpr std::array ajustIfbl = {
    MenuEntry{.control = "mnuAjustIFBL", .index = 0, .caption = "32 x 20 km",
              .command = MenuCommand::AjustIFBL},
    MenuEntry{.control = "mnuAjustIFBL", .index = 1, .caption = "4 x 4 km",
              .command = MenuCommand::AjustIFBL},
    MenuEntry{.control = "mnuAjustIFBL", .index = 2, .caption = "1 x 1 km",
              .command = MenuCommand::AjustIFBL},
};
constexpr std::array ajuster = {
    MenuEntry{.control = "mnuAjustGrid", .index = 0,
              .caption = "&UTM - British Grid - Irish Grid...", .command = MenuCommand::AjustGrid},
    MenuEntry{.control = "mnuAjustGrid", .index = 1, .caption = "&Degrés Greenwich...",
              .command = MenuCommand::AjustGrid},
    MenuEntry{.control = "mnuAjustGrid", .index = 2, .caption = "&Grades Paris",
              .command = MenuCommand::AjustGrid},
    MenuEntry{.control = "mnuAjustGrid", .index = 3, .caption = "&IFBL", .children = ajustIfbl},
};
constexpr std::array edition = {
    MenuEntry{.control = "mnuChercher", .index = 0, .base = 31,
              .command = MenuCommand::Chercher, .shortcut = "Ctrl+F"},
    MenuEntry{.control = "mnuChercher", .index = 1, .base = 46,
              .command = MenuCommand::Chercher, .shortcut = "F3"},
    MenuEntry{.control = "MnuSepar", .index = 2, .caption = separator},
    MenuEntry{.control = "MnuAjoutLigne", .base = 32, .command = MenuCommand::AjoutLigne,
              .shortcut = "Ctrl+L"},
    MenuEntry{.control = "mnuDuplic", .base = 45, .command = MenuCommand::Duplic,
              .shortcut = "Ctrl+D"},
    MenuEntry{.control = "MnuEraseCol", .base = 33, .command = MenuCommand::EraseCol,
              .shortcut = "Ctrl+Shift+Del"},
    MenuEntry{.control = "MnuSupprimer", .base = 34, .command = MenuCommand::Supprimer,
              .shortcut = "Ctrl+Del"},
    MenuEntry{.control = "MnuSepar", .index = 3, .caption = separator},
    MenuEntry{.control = "MnuRemplir", .base = 35, .children = remplir},
    MenuEntry{.control = "MnuAjuster", .base = 42, .children = ajuster},
    MenuEntry{.control = "MnuSelection", .caption = "Sélection a&vancée...",
              .command = MenuCommand::Selection},
};
constexpr std::array europe = {
    MenuEntry{.control = "mnuEurope", .index = 0, .base = 52},
    MenuEntry{.control = "mnuEurope", .index = 1, .base = 53},
    MenuEntry{.control = "mnuEurope", .index = 2, .base = 54},
    MenuEntry{.control = "mnuEurope", .index = 3, .base = 55},
    MenuEntry{.control = "mnuEurope", .index = 4, .base = 56},
    MenuEntry{.control = "mnuEurope", .index = 5, .base = 57},
    MenuEntry{.control = "mnuEurope", .index = 6, .base = 58},
    MenuEntry{.control = "mnuEurope", .index = 7, .base = 59},
};
constexpr std::array visualiser = {
    MenuEntry{.control = "MnuVisMonde", .base = 51},
    MenuEntry{.control = "mnuEurope", .base = 52, .children = europe},
    MenuEntry{.control = "MnuVisAsiEur", .base = 60},
    MenuEntry{.control = "MnuVisAfrica", .base = 61},
    MenuEntry{.control = "MnuVisNamer", .base = 62},
    MenuEntry{.control = "MnuVisSamer", .base = 63},
    MenuEntry{.control = "MnuVisAsiocea", .base = 64},
    MenuEntry{.control = "MnuVisAutre", .base = 65, .command = MenuCommand::VisAutre},
};
constexpr std::array couleurs = {
    MenuEntry{.control = "MnuGrille", .base = 73, .command = MenuCommand::Grille},
    MenuEntry{.control = "MnuTxtGrille", .base = 74, .command = MenuCommand::TxtGrille},
};
constexpr std::array langues = {
    MenuEntry{.control = "MnuLang", .index = 0, .base = 77, .command = MenuCommand::Lang},
    MenuEntry{.control = "MnuLang", .index = 1, .base = 78, .command = MenuCommand::Lang},
    MenuEntry{.control = "MnuLang", .index = 2, .base = 79, .command = MenuCommand::Lang},
    MenuEntry{.control = "MnuLang", .index = 3, .base = 80, .command = MenuCommand::Lang},
    MenuEntry{.control = "MnuLang", .index = 4, .base = 81, .command = MenuCommand::Lang},
    MenuEntry{.control = "MnuLang", .index = 5, .base = 82, .command = MenuCommand::Lang},
};
constexpr std::array outils = {
    MenuEntry{.control = "MnuDatumFichier", .base = 964, .command = MenuCommand::DatumFichier},
    MenuEntry{.control = "MnuLmbIfbl", .base = 961, .command = MenuCommand::LmbIfbl},
    MenuEntry{.control = "MnuIFBLGrid", .base = 962, .command = MenuCommand::IFBLGrid},
    MenuEntry{.control = "MnuIFBLGridPolygon", .base = 963,
              .command = MenuCommand::IFBLGridPolygon},
};
constexpr std::array options = {
    MenuEntry{.control = "MnuPreferences", .base = 71, .command = MenuCommand::Preferences,
              .shortcut = "Ctrl+,"},
    MenuEntry{.control = "MnuOptionsPeriodes", .base = 85,
              .command = MenuCommand::OptionsPeriodes, .needsFile = true},
    MenuEntry{.control = "MnuCouleurs", .base = 72, .children = couleurs},
    MenuEntry{.control = "MnuOptionsCartes", .base = 75},
    MenuEntry{.control = "MnuLangue", .base = 76, .children = langues},
    MenuEntry{.control = "MnuOutils", .base = 960, .children = outils},
};
constexpr std::array standardisation = {
    MenuEntry{.control = "mnustd", .index = 0, .caption = "Logarithme"},
    MenuEntry{.control = "mnustd", .index = 1, .caption = "Valeurs normales réduites"},
};
constexpr std::array analyse = {
    MenuEntry{.control = "MnuParametres", .caption = "Paramètres statistiques"},
    MenuEntry{.control = "mnuStandardisation", .caption = "Standardisation des valeurs",
              .children = standardisation},
    MenuEntry{.control = "mnuAnalyse", .index = 0, .caption = "Graphique Chiffre1/OGU"},
    MenuEntry{.control = "mnuAnalyse", .index = 1, .caption = "Graphique Chiffre2/OGU"},
    MenuEntry{.control = "mnuPhenolo", .caption = "P&hénologie"},
};
constexpr std::array aide = {
    MenuEntry{.control = "MnuAideTexte", .base = 90, .command = MenuCommand::AideTexte,
              .shortcut = "F1"},
    MenuEntry{.control = "MnuInfo", .base = 91, .command = MenuCommand::Info},
};
constexpr std::array arbre = {
    MenuEntry{.control = "mnuFichier", .base = 1, .children = fichier},
    MenuEntry{.control = "MnuEdition", .base = 30, .needsFile = true, .children = edition},
    MenuEntry{.control = "MnuVisualiser", .base = 50, .needsFile = true, .children = visualiser},
    MenuEntry{.control = "mnuOptions", .base = 70, .children = options},
    MenuEntry{.control = "mnuAna", .caption = "Anal&yse", .children = analyse},
    MenuEntry{.control = "mnuGrid", .caption = "Grille", .command = MenuCommand::Grid},
    MenuEntry{.control = "MnuAide", .base = 90, .children = aide},
};
// clang-format on

void Parcourt(std::span<const MenuEntry> entries,
              const std::function<void(const MenuEntry&)>& visit) {
  for (const MenuEntry& entry : entries) {
    visit(entry);
    Parcourt(entry.children, visit);
  }
}

}  // namespace

std::span<const MenuEntry> ArbreDesMenus() { return arbre; }

std::string NomObjet(const MenuEntry& entry) {
  std::string name(entry.control);
  if (entry.index >= 0) name += "_" + std::to_string(entry.index);
  return name;
}

std::string LibelleMenu(const MenuEntry& entry, std::int16_t langue) {
  return entry.base == 0 ? std::string(entry.caption) : Texte(langue, entry.base);
}

namespace {

/// Commands over rows need a file, whatever menu they stand in.
bool VaSurLesLignes(MenuCommand command) {
  switch (command) {
    case MenuCommand::Selection:
    case MenuCommand::Chercher:
    case MenuCommand::AjoutLigne:
    case MenuCommand::Duplic:
    case MenuCommand::EraseCol:
    case MenuCommand::Supprimer:
    case MenuCommand::RemplirCoo:
    case MenuCommand::RemplirXY:
    case MenuCommand::RemplirTexte:
    case MenuCommand::AjustGrid:
    case MenuCommand::AjustIFBL:
    case MenuCommand::DatumFichier:
    case MenuCommand::VisAutre:
      return true;
    default:
      return false;
  }
}

}  // namespace

bool EstActif(const MenuEntry& entry, bool fileOpen) {
  if ((entry.needsFile || VaSurLesLignes(entry.command)) && !fileOpen) return false;
  return !entry.children.empty() || entry.command != MenuCommand::None;
}

void ParcourtMenus(const std::function<void(const MenuEntry&)>& visit) {
  Parcourt(ArbreDesMenus(), visit);
}

std::string LibelleDernierFichier(int position, std::string_view path) {
  return "&" + std::to_string(position) + " " + std::string(path);
}

}  // namespace talpena
