// The catalogue as it was read last: another maker's database takes longer to read than the rest
// of a start, and it hardly ever changes.
#pragma once
#include <string>

#include "coords/state.h"
#include "platform/platform.h"

namespace talpena {

/// A file's catalogue as it is kept in the user's cache, for one state of the file: path, size,
/// time stamp.
class KeptCatalogue {
 public:
  /// Takes note of the state that the file is in now.
  KeptCatalogue(Platform& io, const std::string& path);

  /// Fills in the rows. False, with nothing changed, when none were kept, or not whole.
  bool Lit(DatumCatalogue& catalogue) const;
  /// Keeps the rows for the next start. Where that cannot be the next start reads the file again.
  void Garde(const DatumCatalogue& catalogue) const;

 private:
  FileSystem& files_;
  std::string kept_;    ///< where; "" for nowhere
  std::string origin_;  ///< the first line there
};

}  // namespace talpena
