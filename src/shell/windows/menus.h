// The menu tree of the main window, as data.
#pragma once
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace talpena {

/// What an entry does. Entries without a command are shown and stay disabled.
enum class MenuCommand : std::uint8_t {
  None,
  Nouveau,
  Ouvrir,
  Enregistrer,
  EnrSous,
  Grouper,
  Fusionner,
  LastFile,  ///< by index, 1 to 4
  Quitter,
  Preferences,
  OptionsPeriodes,
  Chercher,  ///< by index, 0 and 1
  AjoutLigne,
  Duplic,
  EraseCol,
  Supprimer,
  Grille,     ///< background of the grid
  TxtGrille,  ///< text of the grid
  Selection,
  RemplirCoo,  ///< by index, 0 to 2
  RemplirXY,   ///< by index, 0 to 5
  RemplirTexte,
  AjustGrid,     ///< by index, 0 to 2
  AjustIFBL,     ///< by index, 0 to 2
  Lang,          ///< by index, 0 to 5
  DatumFichier,  ///< another datum for the open file
  LmbIfbl,       ///< the converter of single points
  IFBLGrid,      ///< grid lines of 4 and 1 km
  IFBLGridPolygon,
  Grid,      ///< grid lines of 32 by 20 km
  VisAutre,  ///< the map view, over a map that the user opens
  AideTexte,
  Info
};

struct MenuEntry {
  std::string_view control;
  int index = -1;                 ///< place in an array of controls; -1 for a single one
  int base = 0;                   ///< base id of the caption; 0 for a fixed one
  std::string_view caption = {};  ///< fixed caption, the same in every language
  MenuCommand command = MenuCommand::None;
  bool needsFile = false;          ///< one of the nine of ActiveMenus
  std::string_view shortcut = {};  ///< portable key text, "Ctrl+S"
  std::span<const MenuEntry> children = {};

  bool EstSeparateur() const { return caption == "-"; }
};

/// The top-level menus in order.
std::span<const MenuEntry> ArbreDesMenus();

/// "MnuLang_2" for an element of an array, else the control's own name.
std::string NomObjet(const MenuEntry& entry);

/// Caption in a language, with its mnemonic mark.
std::string LibelleMenu(const MenuEntry& entry, std::int16_t langue);

/// Whether an entry can be chosen. A menu can as long as its file condition holds; its entries
/// each for themselves.
bool EstActif(const MenuEntry& entry, bool fileOpen);

/// Every entry of the tree, parents before children.
void ParcourtMenus(const std::function<void(const MenuEntry&)>& visit);

/// Caption of a recent file, `position` from 1: "&1 /path/file.deg".
std::string LibelleDernierFichier(int position, std::string_view path);

}  // namespace talpena
