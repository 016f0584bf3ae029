// A file under a name of its own, until it takes the name that it was made for.
#pragma once
#include <sys/types.h>

#include <string>

namespace talpena {

/// Locked while it lives, so that other programs leave it alone. Destroyed before it took its name
/// it goes.
class PosixTemporary {
 public:
  /// @param shown   the path that messages name
  /// @param target  the path whose place it is to take; it is made in the folder of that
  /// @param name    the file that it holds the text of, as left-overs are asked for
  PosixTemporary(std::string shown, std::string target, const std::string& name, mode_t mode);
  PosixTemporary(const PosixTemporary&) = delete;
  PosixTemporary& operator=(const PosixTemporary&) = delete;
  ~PosixTemporary();

  int Fichier() const { return file_; }
  bool EnPlace() const { return enPlace_; }

  /// Takes the place of the target. Nothing happens when it has it already.
  void Place();
  /// The same; what stands at the target is kept as `backup`.
  void PlaceEnGardant(const std::string& backup);

 private:
  bool OuvreVerrouille(mode_t mode);
  void Renomme(const std::string& to);
  void PlaceEnDeuxTemps(const std::string& backup);

  std::string shown_;
  std::string target_;
  std::string path_;  ///< as it is called now
  int file_ = -1;
  bool enPlace_ = false;
};

}  // namespace talpena
