// Numbers as a text conversion writes them into files that are read elsewhere.
#pragma once
#include <string>

namespace talpena {

/// A leading blank or a minus sign, no zero ahead of the point (" .5"), at most 7 significant
/// digits of a float and 15 of a double, no trailing blank. An exponent ("1E-08") only below 1E-07
/// and from 1E+07 on (1E-15 and 1E+15 of a double).
std::string FormeLibre(float value);
std::string FormeLibre(double value);

/// The same behind a text; quick, for lines by the million.
void AjouteFormeLibre(std::string& text, float value);

}  // namespace talpena
