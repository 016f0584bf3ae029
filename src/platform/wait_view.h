// What the user sees while a command is at work.
#pragma once
#include <string>

namespace talpena {

class Busy;

class WaitView {
 public:
  virtual ~WaitView() = default;
  virtual void AfficheMessage(const std::string& text) = 0;  ///< the wait window; never fails
  virtual void FermeMessage() = 0;
  /// Work that lasts begins under the hourglass and ends with it.
  virtual void ChangeSablier(bool hourglass) = 0;
  virtual void MontreBarre(bool visible) = 0;          ///< ProgressBar1
  virtual void MontreProgression(double percent) = 0;  ///< clamped to 0..100, integer part
  virtual void TraiteMessages() = 0;                   ///< runs the message loop once
  virtual void GeleGrille(bool frozen) = 0;            ///< while frozen, the grid is not drawn

  /// The beat of work that lasts: to be called as often as it is cheap to, from inside a statement
  /// of the table engine too. The clock decides what is due: the windows are painted, the wait
  /// window and the bar come up by themselves. False, once, when the user gave up: what is under
  /// way then ends by the failure Cancelled.
  virtual bool Bat() { return true; }
  /// From now on the user may give up: behind two seconds the wait window has Cancel.
  virtual void PermetAnnulation(bool allowed) { static_cast<void>(allowed); }

 private:
  friend class Busy;
  int works_ = 0;  ///< Busy objects alive
};

}  // namespace talpena
