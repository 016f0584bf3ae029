// What the imports remember while the program runs.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/table_engine.h"

namespace talpena {

/// A file that has come in: a list to its end, of waypoints some at least.
struct ImportedList {
  FileStamp list;
  std::int64_t contents = 0;           ///< of the document that took it, NumeroContenu
  Bookmark firstRow = 0, lastRow = 0;  ///< that it gave
};

struct InterchangeState {
  std::int16_t TypeImportation = 0;  ///< system that was chosen last for a text import, 0 to 15
  std::string FichierImportation;    ///< full path; "" until one was chosen
  std::string DossierPoints;         ///< of the waypoint file chosen last; "" until one was
  /// The answer of frmImportation, of the main window's label: the index of the system as text, or
  /// "-1" for Cancel.
  std::string Variable;
  std::vector<ImportedList> ListesImportees;
};

}  // namespace talpena
