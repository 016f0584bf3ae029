// The main window while a command is at work.
#pragma once
#include <cstdint>
#include <string>

#include "platform/wait_view.h"

namespace talpena {

/// The hourglass for as long as it lives, and what else a command asks for. Everything is put back
/// when it goes, also behind a failure.
class Busy {
 public:
  explicit Busy(WaitView& attente);
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;
  ~Busy();

  Busy& Message(const std::string& text);  ///< the wait window
  Busy& Barre();                           ///< ProgressBar1, empty
  Busy& GrilleGelee();                     ///< the grid is not drawn
  void FermeFenetres();                    ///< bar and wait window; the hourglass stays
  /// How far the work came: the bar at each percent, the windows painted at each tenth.
  void Avance(std::int64_t done, std::int64_t total);
  /// The bar alone.
  void Montre(int percent) { attente_.MontreProgression(percent); }
  /// The hourglass again, where a box took it away, and the message loop once.
  void Respire();

 private:
  WaitView& attente_;
  bool message_ = false;
  bool bar_ = false;
  bool frozen_ = false;
  int shown_ = -1;  ///< percent
};

}  // namespace talpena
