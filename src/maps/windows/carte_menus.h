// The commands of the map window: where each stands, under which key and icon.
#pragma once
#include <array>
#include <cstdint>
#include <string_view>

namespace talpena {

enum class CarteCommande : std::uint8_t {
  Ouvre,
  SauveImage,
  Apercu,
  Imprime,
  Retour,
  Redessine,
  Grille,
  Couches,
  Symboles,
  EpsCouleur,
  EpsNoir,
  MenuEps,  ///< the pop-up of both
};

/// An entry of a menu; one without a caption is a line between entries.
struct CarteEntree {
  std::string_view menu;
  int index = 0;
  CarteCommande commande = CarteCommande::Retour;
  int base = 0;                   ///< base id of the caption
  std::string_view caption = {};  ///< fixed caption, the same in every language
  std::string_view touche = {};   ///< portable key text
  std::string_view icone = {};

  bool EstTrait() const { return base == 0 && caption.empty(); }
};

// clang-format off
inline constexpr std::array carteEntrees = {
    CarteEntree{"mnuFichier", 0, CarteCommande::Ouvre, 410, {}, "Ctrl+O", "open"},
    CarteEntree{"mnuFichier", 1, CarteCommande::SauveImage, 411, {}, "Ctrl+S", "save"},
    CarteEntree{"mnuFichier", 2},
    CarteEntree{"mnuFichier", 3, CarteCommande::Apercu, 412, {}, "Ctrl+Shift+P"},
    CarteEntree{"mnuFichier", 4, CarteCommande::Imprime, 413, {}, "Ctrl+P", "print"},
    CarteEntree{"mnuFichier", 5},
    CarteEntree{"mnuFichier", 6, CarteCommande::Retour, 414, {}, "Ctrl+M", "table"},
    CarteEntree{"mnuAffichage", 0, CarteCommande::Redessine, 415, {}, "F5"},
    CarteEntree{"mnuAffichage", 1, CarteCommande::Grille, 416, {}, "Ctrl+G", "grid"},
    CarteEntree{"mnuOptions", 0, CarteCommande::Couches, 417, {}, "Ctrl+L"},
    CarteEntree{"mnuOptions", 1, CarteCommande::Symboles, 418, {}, "Ctrl+,", "properties"},
    CarteEntree{"mnuEPS", 0, CarteCommande::EpsCouleur, 0, "&Couleur", "Ctrl+E"},
    CarteEntree{"mnuEPS", 1, CarteCommande::EpsNoir, 0, "&Noir et blanc", "Ctrl+Shift+E"},
    CarteEntree{"mnuCache", 0, CarteCommande::Redessine, 415},
    CarteEntree{"mnuCache", 1, CarteCommande::Symboles, 419, {}, {}, "properties"},
};

/// The menus in order; mnuCache pops up on the map.
struct CarteMenu {
  std::string_view control;
  int base = 0;
  std::string_view caption = {};
};
inline constexpr std::array carteMenus = {
    CarteMenu{"mnuFichier", 1}, CarteMenu{"mnuAffichage", 50}, CarteMenu{"mnuOptions", 70},
    CarteMenu{"mnuEPS", 0, "E&PS"}, CarteMenu{"mnuCache", 70},
};

/// Buttons of the toolbar, by their keys.
struct CarteOutil {
  std::string_view key;
  CarteCommande commande;
  int base = 0;                   ///< base id of the caption on the button
  std::string_view caption = {};  ///< fixed caption
  int aide = 0;                   ///< base id of what it does, for the tool tip and screen readers
  std::string_view icone = {};
};
inline constexpr std::array carteOutils = {
    CarteOutil{"open", CarteCommande::Ouvre, 751, {}, 410, "open"},
    CarteOutil{"save", CarteCommande::SauveImage, 752, {}, 411, "save"},
    CarteOutil{"print", CarteCommande::Imprime, 421, {}, 413, "print"},
    CarteOutil{"eps", CarteCommande::MenuEps, 0, "EPS", 425, "eps"},
    CarteOutil{"properties", CarteCommande::Symboles, 420, {}, 430, "properties"},
    CarteOutil{"grid", CarteCommande::Grille, 423, {}, 416, "grid"},
    CarteOutil{"distri", CarteCommande::Retour, 422, {}, 414, "table"},
    CarteOutil{"stop", CarteCommande::Retour, 424, {}, 426, "close"},
};
// clang-format on

}  // namespace talpena
