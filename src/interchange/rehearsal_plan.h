// What a rehearsal reads.
#pragma once
#include <functional>
#include <memory>
#include <optional>

#include "coords/systems.h"
#include "interchange/import_reader.h"

namespace talpena {

/// An import before it is made. What opening and reading throw is shown as the line at which the
/// import would end.
struct RehearsalPlan {
  /// Called until it answers false, a bounded amount of work each time; empty where there is none.
  std::function<bool()> prepare = {};
  /// Opens what the import itself would read, from its start.
  std::function<std::unique_ptr<ImportReader>()> ouvre;
  /// The system that it is read in, where the user chooses one, and the same file in another: with
  /// both, another system that suits the file far better is told.
  std::optional<CoordSystem> system = {};
  std::function<std::unique_ptr<ImportReader>(CoordSystem)> ouvreEn = {};
  int sansFiche = 0;  ///< base id of what is said of a file without a record; 0 for nothing
};

}  // namespace talpena
