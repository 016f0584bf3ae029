// The commands of the map window: its menus and its toolbar, as data.
#pragma once
#include <cstdint>
#include <span>

#include "platform/command_table.h"

namespace talpena {

class frmCarte;

/// What has to be there for a command.
enum class CarteCondition : std::uint8_t {
  Always,
  Picture,      ///< a map is open
  Georeference  ///< one with a projection
};

using CarteEntree = CommandRow<frmCarte, CarteCondition>;

/// The menus in order; the last one, mnuCache, pops up on the map and stands in no bar.
std::span<const CarteEntree> MenusCarte();

/// The buttons of the toolbar in order, by their keys.
std::span<const CarteEntree> OutilsCarte();

/// What is there.
struct CarteEtat {
  bool picture = false;
  bool georeference = false;
};

/// Whether an entry can be chosen.
bool EstActif(const CarteEntree& entry, const CarteEtat& etat);

}  // namespace talpena
