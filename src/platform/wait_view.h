// What the user sees while a command is at work.
#pragma once
#include <string>

namespace talpena {

class Busy;

/// Where work ends that the user gives up.
enum class Annulation {
  Aucune,       ///< it goes through
  Instruction,  ///< in the middle of a statement, which then has changed nothing
  Boucle,       ///< where its loop asks (Busy::Bat): what was done until then stays
};

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
  /// window and the bar come up by themselves. False, once, when the user gave up and the statement
  /// under way may end by the failure Cancelled.
  virtual bool Bat() { return true; }
  /// What the wait window says when it comes up by itself; empty for the usual words.
  virtual void NommeTravail(const std::string& text) { static_cast<void>(text); }
  /// True, once, when the user gave up.
  virtual bool EstAbandonne() { return false; }
  /// From now on the user may give up: behind two seconds the wait window has Cancel.
  virtual void PermetAnnulation(Annulation where) { static_cast<void>(where); }

 private:
  friend class Busy;
  int works_ = 0;  ///< Busy objects alive
};

}  // namespace talpena
