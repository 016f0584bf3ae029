// Keyboard letters for captions that come without one.
#pragma once
#include <QString>
#include <string>
#include <vector>

namespace talpena {

/// Gives the captions of one window their letters, in the order of asking, so that no two of
/// them share one as long as a free letter is left.
class Mnemonics {
 public:
  /// The caption with "&" before its first free letter, that of a word's start if it can be. One
  /// that has a mark keeps it.
  QString Marque(const std::string& caption);

  /// The same for several captions without a mark at once, of which as many as can be get a letter:
  /// one gives way where another has no choice. Letters with an accent are not taken.
  std::vector<QString> MarqueTous(const std::vector<std::string>& captions);

 private:
  bool Prend(QChar letter);

  QString taken_;  ///< in lower case
};

}  // namespace talpena
