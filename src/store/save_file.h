// The .deg file that a save makes, and what becomes of the one that stood there.
#pragma once
#include <memory>
#include <string>
#include <string_view>

#include "platform/platform.h"
#include "platform/settings_state.h"
#include "store/document.h"

namespace talpena {

class SaveFile {
 public:
  SaveFile(FileOnDisk& fichier, const SharedState& state, Platform& io, std::string path)
      : fichier_(fichier), state_(state), io_(io), path_(std::move(path)) {}

  /// Starts the new file beside the old one; see FileSystem::CreeComme.
  void Ouvre(const std::string& modele) { file_ = io_.files.CreeComme(path_, modele); }

  void Ecrit(std::string_view bytes) { file_->Ecrit(bytes); }

  /// Puts the whole file in its place. May be tried again after a failure.
  void Termine();

  /// Puts what was written in the place, a whole former state being kept as .BAK before. Where
  /// that cannot be done the former file stays and the user is told so.
  void Tronque();

 private:
  void GardeAncien();
  void PlaceTronque();
  void NoteEmpreinte();

  FileOnDisk& fichier_;
  const SharedState& state_;
  Platform& io_;
  std::string path_;
  std::unique_ptr<OutputFile> file_;
};

/// Where a save that breaks off keeps the whole former file: beside it, its name up to the first
/// ".", then ".BAK".
std::string CheminSecours(const std::string& path);

}  // namespace talpena
