// The header of a .deg file, from its second line on.
#pragma once
#include <string>
#include <string_view>

#include "coords/state.h"
#include "platform/deg_lines.h"
#include "store/distribution_header.h"

namespace talpena {

/// True when a file's first line is that of form 2, in any letter case.
bool EstForme2(std::string_view firstLine);

/// The next line, which has to be there, as UTF-8.
std::string LitTexte(DegLines& lines);

/// Header of a form 2 file up to its title: datum, free-field layout, TitreFichier. A file without
/// free fields leaves the layout of the file before it as it was. Raises InputPastEnd (62) and what
/// AjouteChampLibre raises; what was read till then stands in `entete`.
void LitEnTete(DistributionHeader& entete, const DatumCatalogue& catalogue, DegLines& lines);

/// The same for a file that is merged: only FreeFieldText and TitreFichier change. A file
/// without free fields has no second "<END>", runs into its end and raises InputPastEnd (62).
void LitEnTeteFusion(DistributionHeader& entete, DegLines& lines);

/// Compares datum and free fields of a form 2 file with those of the open one.
/// @return why the file cannot be merged, as the user is told; empty when it can.
/// Raises InputPastEnd (62), and SubscriptOutOfRange (9) for a definition of fewer than 3 items.
std::string RefusDeFusion(const DistributionHeader& entete, DegLines& lines);

}  // namespace talpena
