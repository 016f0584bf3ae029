// Keyboard letters for captions that come without one.
#pragma once
#include <QString>
#include <string>

namespace talpena {

/// Gives the captions of one window their letters, in the order of asking, so that no two of
/// them share one as long as a free letter is left.
class Mnemonics {
 public:
  /// The caption with "&" before its first free letter, that of a word's start if it can be. One
  /// that has a mark keeps it.
  QString Marque(const std::string& caption);

 private:
  bool Prend(QChar letter);

  QString taken_;  ///< in lower case
};

}  // namespace talpena
