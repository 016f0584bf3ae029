// The file of the gazetteer: where it is, and its table as it is kept between two openings.
#pragma once
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "common/talpena_error.h"
#include "platform/platform.h"
#include "platform/settings_state.h"

namespace talpena {

/// The gazetteer in the program's own folder, where it stands in for that of GeoFile: as long as
/// the settings name the disc of a first run and nothing is there.
std::optional<std::string> GazetierFourni(const SharedState& state, Platform& io);

/// The file that GeoFile means, or that stands in for it; the folder for formats whose tables are
/// files of one.
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
  /// Reads what is open. A copy that is found damaged is gone by then, and one for which there is
  /// no room is done without: the second time `read` gets the gazetteer itself.
  template <typename Read>
  void Lit(const SharedState& state, Platform& io, Read&& read) {
    try {
      read(Ouvre(state, io));
    } catch (const TalpenaError& error) {
      if (!Recommence(error)) throw;
      read(Ouvre(state, io));
    }
  }
  void Ferme();

 private:
  bool Recommence(const TalpenaError& error);
  std::string DossierDesCopies(Platform& io) const;

  std::string stamp_;
  std::unique_ptr<Database> base_;
  bool withoutCopy_ = false;  ///< there was no room for one
};

}  // namespace talpena
