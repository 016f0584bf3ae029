// The .deg file that a save makes, and what becomes of the one that stood there.
#pragma once
#include <memory>
#include <string>
#include <string_view>

#include "platform/platform.h"
#include "platform/settings_state.h"
#include "store/document.h"

namespace talpena {

/// How a save treats the file in its place.
struct SavePlan {
  std::string bak = {};      ///< what the former file is kept as; it goes when this is empty
  std::string modele = {};   ///< mode and owner of a file that is not there, if this one is
  bool memeProtege = false;  ///< also in place of a file that this user may not write into
};

class SaveFile {
 public:
  SaveFile(FileOnDisk& fichier, const SharedState& state, Platform& io, std::string path,
           SavePlan plan)
      : fichier_(fichier), state_(state), io_(io), path_(std::move(path)), plan_(std::move(plan)) {}

  /// Starts the new file beside the old one, and clears away what a killed program left there.
  void Ouvre();

  void Ecrit(std::string_view bytes) { file_->Ecrit(bytes); }

  /// Puts the whole file in its place. May be tried again after a failure.
  void Termine();

  /// Puts the whole lines that were written in the place, a whole former state being kept as .BAK.
  /// Where that cannot be done the user is told what became of the former file. Without a new file
  /// all stays as it is.
  void Tronque();
  /// What became of the former file where this one was cut; empty when there is none.
  std::string DitGarde();

 private:
  /// The file in the place is the last whole state.
  bool AncienEntier();
  std::string Garde() const;
  void PlaceTronque();
  std::string DitAncien();
  std::string TexteGarde();
  void NoteEmpreinte();

  FileOnDisk& fichier_;
  const SharedState& state_;
  Platform& io_;
  std::string path_;
  SavePlan plan_;
  std::unique_ptr<OutputFile> file_;
};

/// Where a save that breaks off keeps the whole former file: beside it, its name up to the first
/// ".", then ".BAK".
std::string CheminSecours(const std::string& path);

}  // namespace talpena
