#include "store/period_line.h"

#include "common/numbers.h"

namespace talpena {
namespace {

/// The year in four columns counted from 1. Beyond 16 bits: Overflow (6).
std::int16_t Annee(std::string_view line, std::size_t column) {
  return column > line.size() ? std::int16_t{0} : Arrondi16(Val(line.substr(column - 1, 4)));
}

}  // namespace

void LitPivots(DistributionHeader& entete, std::string_view line) {
  const std::size_t absent = line.find("0 - 0");
  if (absent == std::string_view::npos) {
    entete.NbPivots = 2;
    entete.Pivot1 = Annee(line, 16);
    entete.Pivot2 = Annee(line, 30);
  } else if (absent + 1 == 16) {
    entete.NbPivots = 0;
  } else if (absent + 1 == 30) {
    entete.NbPivots = 1;
    entete.Pivot1 = Annee(line, 16);
  }
}

}  // namespace talpena
