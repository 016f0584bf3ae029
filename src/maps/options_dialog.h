// The options dialog of the map view: line layers and symbols, over the contents of its controls.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "maps/map_option.h"
#include "maps/map_state.h"
#include "platform/platform.h"
#include "platform/settings_state.h"

namespace talpena {

/// What the dialog shows. Nothing reaches the map's options before ValideOptions.
struct OptionsCarte {
  std::vector<std::string> couches;  ///< lstTLP, in the order of drawing
  int choisie = -1;                  ///< selected row of lstTLP, from 0; -1 for none
  bool couchesPossibles = true;      ///< cmdTLP is enabled: the map is georeferenced
  std::string diametre;              ///< text of cmbDiametre
  std::uint32_t couleur = 0;         ///< lblColor, 0xBBGGRR
};

/// What cmbDiametre offers.
inline constexpr std::string_view DiametreAutomatique = "Auto";

/// What a typed diameter means: -1, automatic, for "auto" in any case and for a number below 0;
/// else the number, rounded to an integer with halves to even. A comma is read as a point; text
/// that is no number, blanks around "auto" included, is 0. Beyond 32 bits: Overflow (6).
std::int32_t DiametreDe(std::string_view text);

/// The controls when the dialog opens.
OptionsCarte LitOptions(const MapOption& options, const MapState& carte);

/// cmdTLP 0: asks for a layer's file, puts it behind the others, selects it, and keeps its folder
/// as the setting that the next dialog starts in. Cancel raises Cancelled (32755).
void AjouteCouche(OptionsCarte& dialogue, const SharedState& state, Platform& io);
/// cmdTLP 1: removes the selected layer; the one behind it is selected, or the last.
void RetireCouche(OptionsCarte& dialogue);
/// cmdUpDown 0 and 1: the selected layer one place up or down; it stays selected.
void DeplaceCouche(OptionsCarte& dialogue, int index);
/// A click on lblColor. Cancel raises Cancelled (32755).
void ChoisitCouleurSymbole(OptionsCarte& dialogue, Platform& io);

/// cmdOptCarte 0: the map's options take what the dialog shows. Overflow (6) changes nothing.
void ValideOptions(const OptionsCarte& dialogue, MapOption& options);
/// cmdOptCarte 1.
void AnnuleOptions(MapOption& options);

}  // namespace talpena
