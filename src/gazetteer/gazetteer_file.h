// The file of the gazetteer: where it is, and its table as it is kept between two openings.
#pragma once
#include <memory>
#include <string>
#include <string_view>

#include "platform/platform.h"
#include "platform/settings_state.h"

namespace talpena {

/// The file that GeoFile means, or the folder for formats whose tables are files of one. As long as
/// the settings name the disc of a first run and nothing is there, the gazetteer in the program's
/// own folder stands in for it.
std::string FichierGazetier(const SharedState& state, Platform& io);

/// Tells this state of the file, and what is asked of it, from all others; "" when there is no such
/// file.
std::string EmpreinteGazetier(const SharedState& state, FileSystem& files, const std::string& path);

/// The gazetteer as it was opened last.
class OpenGazetteer {
 public:
  /// Opens the file for reading, or goes on with what is open when nothing about it has changed.
  /// A table is read once and kept in the user's cache; where this is not to be had it is read at
  /// each opening. Raises what TableEngine::OpenDatabase raises.
  Database& Ouvre(const SharedState& state, Platform& io);
  void Ferme();

 private:
  std::string stamp_;
  std::unique_ptr<Database> base_;
};

}  // namespace talpena
