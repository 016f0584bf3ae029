// Files that take the places of others, in steps that whoever finds them half done can tell apart.
#pragma once
#include <sys/types.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/files.h"

namespace talpena {

/// The new files lie in a folder of their own, `side`. The former ones wait in a folder within it:
/// as long as that is called "former" they go back, and from "replaced" on the new ones go into
/// their places. Both paths have a separator at their ends.
class Exchange {
 public:
  Exchange(std::string side, std::string place)
      : side_(std::move(side)), place_(std::move(place)) {}

  /// Puts the files of `side` in the places of the `former` ones, which go. After a failure
  /// everything is as before, or waits for Acheve: then Commence is true.
  void Fait(const std::vector<std::string>& former);

  /// Some files are on their way, and others wait: former ones for going back, or new ones.
  bool Commence() const;

  /// Ends what a killed program left, as FileSystem::AcheveEchanges says.
  void Acheve(std::vector<PlacedFile>& placed);

  /// Removes the folder with all that is in it.
  void Vide();

 private:
  void MetDeCote(const std::vector<std::string>& former);
  void PlaceNouveaux();
  void RendAnciens();
  void Avance(const std::vector<std::string>& names, const std::string& from, bool nouveau,
              std::vector<PlacedFile>& placed);
  bool TousLibres(const std::vector<std::string>& names) const;
  static void Deplace(const std::string& from, const std::string& to);

  std::string side_;
  std::string place_;
};

/// Files that wait are this user's alone.
inline constexpr mode_t modeDossier = 0700;

/// The files in a folder, sorted; no folders.
std::vector<std::string> FichiersDe(const std::string& folder);

}  // namespace talpena
