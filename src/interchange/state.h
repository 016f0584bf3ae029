// What the imports remember while the program runs.
#pragma once
#include <cstdint>
#include <string>

namespace talpena {

struct InterchangeState {
  std::int16_t TypeImportation = 0;  ///< system that was chosen last for a text import, 0 to 15
  std::string FichierImportation;    ///< full path; "" until one was chosen
  std::string DossierPoints;         ///< of the waypoint file chosen last; "" until one was
  /// The answer of frmImportation, of the main window's label: the index of the system as text, or
  /// "-1" for Cancel.
  std::string Variable;
};

}  // namespace talpena
