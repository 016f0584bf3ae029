// Degrees, minutes and seconds for the eye.
#pragma once
#include <string>

namespace talpena {

struct DmsParts {
  int degrees = 0;    ///< negative for a negative source: between -1 and 0 no sign is left
  int minutes = 0;    ///< 0 to 59
  float seconds = 0;  ///< 0 to 60
};

/// Splits an angle in minutes, held in single precision. `source` gives the sign.
DmsParts DegresVersDms(float minutes, double source);

/// "50°25'30.0''", the seconds by the mask "00.0''"; 59.96 of them read "60.0''".
std::string TexteDms(double degrees);

/// "-0° 30' 00.0''", with the sign of every negative angle and blanks, for a display.
std::string TexteDmsSigne(double degrees);

}  // namespace talpena
