// What the user sees while a command is at work.
#pragma once
#include <string>

namespace talpena {

class WaitView {
 public:
  virtual ~WaitView() = default;
  virtual void AfficheMessage(const std::string& text) = 0;  ///< the wait window; never fails
  virtual void FermeMessage() = 0;
  virtual void ChangeSablier(bool hourglass) = 0;
  virtual void MontreBarre(bool visible) = 0;          ///< ProgressBar1
  virtual void MontreProgression(double percent) = 0;  ///< clamped to 0..100, integer part
  virtual void TraiteMessages() = 0;                   ///< runs the message loop once
  virtual void GeleGrille(bool frozen) = 0;            ///< while frozen, the grid is not drawn
};

}  // namespace talpena
