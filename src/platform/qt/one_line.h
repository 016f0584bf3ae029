// Boxes of one line, into which more may be pasted.
#pragma once

class QLineEdit;

namespace talpena {

/// From now on line breaks that come into the box, by whatever way, are blanks. The box itself
/// would keep them, and only show blanks.
void GardeUneLigne(QLineEdit& box);

}  // namespace talpena
