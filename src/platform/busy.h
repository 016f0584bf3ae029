// The main window while a command is at work.
#pragma once
#include <cstdint>
#include <string>

#include "platform/wait_view.h"

namespace talpena {

/// The hourglass for as long as it lives, and what else a command asks for. Everything is put back
/// when it goes, also behind a failure; the hourglass with the outermost of them. Work that lasts
/// longer than the eye waits has the wait window and a bar whether or not it asks for them.
class Busy {
 public:
  explicit Busy(WaitView& attente);
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;
  ~Busy();

  Busy& Message(const std::string& text);  ///< the wait window
  Busy& Barre();                           ///< ProgressBar1, empty
  Busy& GrilleGelee();                     ///< the grid is not drawn
  /// The user may give up, which throws the failure Cancelled out of the statement under way (for
  /// work that leaves everything as it was when it fails) or out of Bat alone.
  Busy& Annulable(Annulation where = Annulation::Instruction);
  void FermeFenetres();  ///< bar and wait window; the hourglass stays
  /// How far the work came: the bar at each percent, the windows painted at each tenth.
  void Avance(std::int64_t done, std::int64_t total);
  /// The bar alone.
  void Montre(int percent) { attente_.MontreProgression(percent); }
  /// The hourglass again, where a box took it away, and the message loop once.
  void Respire();
  /// WaitView::Bat for loops that run no statements; throws Cancelled when the user gave up.
  void Bat();

 private:
  WaitView& attente_;
  bool message_ = false;
  bool bar_ = false;
  bool frozen_ = false;
  bool cancelable_ = false;
  int shown_ = -1;  ///< percent
};

}  // namespace talpena
