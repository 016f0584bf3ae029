// A datum that the user chooses for a label of a dialog: that of the gazetteer, of an import.
#pragma once
#include <string>
#include <string_view>

#include "coords/state.h"
#include "platform/platform.h"

namespace talpena {

/// The text from which frmDatum finds the datum of a label.
std::string CodeDuLabel(std::string_view label);

/// What the label says after frmDatum gave `code`: that of the catalogue, or what it said where no
/// datum was chosen or the catalogue lacks it.
struct DatumChoisi {
  std::string label;
  bool permis = true;  ///< false: refused for UTM and MGRS, and told (message 807)
};
DatumChoisi ChoisitDatum(const CoordState& state, Platform& io, const std::string& label,
                         std::string_view code);

}  // namespace talpena
