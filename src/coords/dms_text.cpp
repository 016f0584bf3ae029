#include "coords/dms_text.h"

#include <cmath>
#include <cstdlib>

#include "common/numbers.h"

namespace talpena {

DmsParts DegresVersDms(float minutes, double source) {
  const double whole = std::fabs(static_cast<double>(minutes));
  const double degrees = Fix(whole / 60);
  const double rest = Fix(whole - degrees * 60);
  DmsParts parts;
  parts.degrees = Arrondi32(source < 0 ? -degrees : degrees);
  parts.minutes = Arrondi32(rest);
  parts.seconds = static_cast<float>((whole - degrees * 60 - rest) * 60);
  return parts;
}

std::string TexteDms(double degrees) {
  const DmsParts parts = DegresVersDms(EnSimple(degrees * 60), degrees);
  return std::to_string(parts.degrees) + "\u00B0" + std::to_string(parts.minutes) + "'" +
         Format(static_cast<double>(parts.seconds), "00.0''");
}

std::string TexteDmsSigne(double degrees) {
  const DmsParts parts = DegresVersDms(EnSimple(degrees * 60), degrees);
  return (degrees < 0 ? "-" : "") + std::to_string(std::abs(parts.degrees)) + "\u00B0 " +
         std::to_string(parts.minutes) + "' " +
         Format(static_cast<double>(parts.seconds), "00.0''");
}

}  // namespace talpena
